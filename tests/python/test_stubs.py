"""The committed type stubs are those of the running module, and Python can read them."""
import ast
import importlib.util
import pathlib
import unittest

FOLDER = pathlib.Path(__file__).resolve().parents[2] / "module" / "stubs"
AGAIN = "run: strativo run module/stubs/generate.py"


def generator():
    spec = importlib.util.spec_from_file_location("stub_generator", FOLDER / "generate.py")
    module = importlib.util.module_from_spec(spec)
    spec.loader.exec_module(module)
    return module


class Stubs(unittest.TestCase):
    def test_committed_files_are_current(self):
        for name, content in generator().stubs().items():
            committed = (FOLDER / "strativo_python" / name).read_text(encoding="utf-8")
            self.assertTrue(content == committed, "%s is out of date; %s" % (name, AGAIN))
            ast.parse(committed)

    def test_signatures(self):
        make = generator()
        text = "turn(angle: float) -> vec3\nturn(x: int = 0) -> vec3\n\nTurns.\n\nturn() -> None\n\nTurns back."
        self.assertEqual(make.signatures("turn", text), [("angle: float", "vec3", "Turns."), ("x: int = 0", "vec3", ""),
                                                         ("", "None", "Turns back.")])
        source = make.stubs()["__init__.pyi"]
        tree = ast.parse(source)
        image = next(node for node in tree.body if getattr(node, "name", "") == "Image2d")
        self.assertEqual([base.id for base in image.bases], ["_HVImageBaseFloat"])
        members = {node.name: node for node in image.body if isinstance(node, ast.FunctionDef)}
        self.assertEqual(ast.unparse(members["__setitem__"].args), "self, index: tuple[int, int], value: float")
        self.assertEqual(ast.unparse(members["transpose"].returns), "Image2d")
        base = next(node for node in tree.body if getattr(node, "name", "") == "_HVImageBaseFloat")
        setters = [node.name for node in base.body if isinstance(node, ast.FunctionDef)
                   and any(ast.unparse(each).endswith(".setter") for each in node.decorator_list)]
        self.assertEqual(setters, ["name"])
