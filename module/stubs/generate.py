"""Writes the type stubs of strativo_python from the docstrings of the running module.

    strativo run module/stubs/generate.py [FOLDER]

FOLDER (the folder of this file when left out) gets a stub package strativo_python with one file per module. Editors and
type checkers read it; the application does not.

A docstring begins with one line per overload, "name(argument: type, argument: type = default) -> type" without self; a
property's with "type: ". Whatever has no such line is typed as Any.
"""
import inspect
import os
import re
import sys
import textwrap

import strativo_python

PACKAGE = "strativo_python"
WIDTH = 120
SIGNATURE = re.compile(r"(\w+)\((.*)\) -> (.+)")
PROPERTY = re.compile(r"([\w.]+(?:\[[^:]*\])?(?: \| [\w.]+(?:\[[^:]*\])?)*): (.*)", re.DOTALL)
TYPING = ("Any", "Callable", "Iterable", "Iterator", "Literal", "Mapping", "Optional", "Sequence", "Union")
# What every object has: a stub only repeats these where the class has its own text for them.
COMMON = ("__doc__", "__module__", "__dict__", "__weakref__", "__instance_size__", "__new__", "__slots__",
          "__safe_for_unpickling__", "__getinitargs__", "__getstate_manages_dict__", "__reduce__", "__setstate__",
          "__reduce_ex__", "__getstate__", "__copy__", "__deepcopy__")


def lines_of(docstring):
    return [line.strip() for line in (docstring or "").strip().splitlines()]


def signatures(name, docstring, aliases=()):
    """[(arguments, result, text)] of the docstring. A text belongs to the signature lines just before it and is given
    with the first of them."""
    found, pending, text = [], [], []

    def close():
        found.extend((arguments, result, "" if number else "\n".join(text).strip())
                     for number, (arguments, result) in enumerate(pending))
        pending.clear()
        text.clear()

    for line in lines_of(docstring):
        match = SIGNATURE.fullmatch(line.rstrip(" :"))
        if match and match[1] in (name, *aliases):
            if any(text):
                close()
            pending.append((match[2], match[3]))
        elif pending:
            text.append(line)
    close()
    return found


def quoted(text, indent):
    """The text as a docstring in the source."""
    text = text.replace("\\", "\\\\").replace('"""', "'''")
    lines = [part for line in text.split("\n")
             for part in textwrap.wrap(line, WIDTH - len(indent) - 3, break_long_words=False,
                                       break_on_hyphens=False) or [""]]
    text = "\n".join((indent + line).rstrip() if number else line for number, line in enumerate(lines))
    return '%s"""%s%s"""\n' % (indent, text, "\n" + indent if "\n" in text else "")


def function(name, value, indent="", receiver=None, decorator="", aliases=()):
    """`receiver` is the first parameter of a method; None for functions and static methods."""
    known = signatures(name, value.__doc__, aliases) or [("*arguments: Any, **keywords: Any", "Any", "")]
    if name == "__init__":
        known = [(arguments, "None", text) for arguments, _, text in known]
    source = ""
    for arguments, result, text in known:
        if len(known) > 1:
            source += indent + "@overload\n"
        if decorator:
            source += indent + decorator + "\n"
        parameters = ", ".join(part for part in (receiver, arguments) if part)
        source += "%sdef %s(%s) -> %s:" % (indent, name, parameters, result)
        source += "\n" + quoted(text, indent + "    ") if text else " ...\n"
    return source


def is_writable(cls, name, descriptor):
    """A property made in C shows only by its answer whether it can be set; an object without content comes to no harm."""
    if isinstance(descriptor, property):
        return descriptor.fset is not None
    try:
        descriptor.__set__(cls.__new__(cls), None)
    except AttributeError:
        return False
    except Exception:
        pass
    return True


def attribute(cls, name, descriptor):
    match = PROPERTY.fullmatch((descriptor.__doc__ or "").strip())
    kind, text = (match[1], match[2]) if match else ("Any", (descriptor.__doc__ or "").strip())
    source = "    @property\n    def %s(self) -> %s:" % (name, kind)
    source += "\n" + quoted(text, "        ") if text else " ...\n"
    if is_writable(cls, name, descriptor):
        wider = re.search(r"\b(?:One|An?) ([\w.]+) can be set as well\b", text)
        settable = kind + " | " + wider[1] if wider else kind
        source += "    @%s.setter\n    def %s(self, value: %s) -> None: ...\n" % (name, name, settable)
    return source


def enumeration(name, cls):
    source = "class %s(int):\n%s" % (name, quoted((cls.__doc__ or "").strip(), "    ") if cls.__doc__ else "")
    source += "    names: dict[str, %s]\n    values: dict[int, %s]\n    name: str\n" % (name, name)
    return source + "".join("    %s: %s  # %d\n" % (label, name, value)
                            for label, value in sorted(cls.names.items(), key=lambda item: int(item[1])))


def is_enumeration(cls):
    return issubclass(cls, int) and isinstance(getattr(cls, "names", None), dict)


def base_classes(cls, known):
    return [base.__name__ for base in cls.__bases__ if base in known]


def class_stub(name, cls, known):
    if is_enumeration(cls):
        return enumeration(name, cls)
    bases = base_classes(cls, known)
    body = quoted((cls.__doc__ or "").strip(), "    ") if cls.__doc__ else ""
    for member, value in vars(cls).items():
        if member in COMMON or value is None:
            continue
        if isinstance(value, property) or inspect.isgetsetdescriptor(value):
            body += attribute(cls, member, value)
        elif isinstance(value, staticmethod):
            body += function(member, value.__func__, "    ", decorator="@staticmethod")
        elif inspect.isclass(value):
            body += "".join("    " + line + "\n" if line else "\n" for line in
                            class_stub(member, value, known).rstrip("\n").split("\n"))
        elif callable(value):
            aliases = (name,) if member == "__init__" else ()
            if not member.startswith("__") or signatures(member, value.__doc__, aliases):
                body += function(member, value, "    ", "self", aliases=aliases)
        elif not member.startswith("_"):
            body += "    %s: %s\n" % (member, type(value).__name__)
    return "class %s%s:\n%s" % (name, "(%s)" % ", ".join(bases) if bases else "", body or "    ...\n")


def imports(body, own_names, parent_names):
    """The import lines for the names that the text uses in annotations."""
    words = set(re.findall(r"\b[A-Za-z_]\w*\b", re.sub(r'""".*?"""', "", body, flags=re.DOTALL)))
    source = "import os\n" if "os" in words - own_names else ""
    typing = sorted(words & {*TYPING, "overload"} - own_names)
    if typing:
        source += "from typing import %s\n" % ", ".join(typing)
    if "Buffer" in words - own_names:
        source += "from typing_extensions import Buffer\n"
    outer = sorted((words & parent_names) - own_names)
    if outer:
        source += "from %s import %s\n" % (PACKAGE, ", ".join(outer))
    return source


def in_order(classes):
    """Bases before the classes that derive from them, otherwise as registered."""
    done = []
    for _, cls in classes:
        done.extend(base for base in reversed(cls.__mro__) if (base.__name__, base) in classes and base not in done)
    return [(cls.__name__, cls) for cls in done]


def module_stub(module, parent_names=frozenset()):
    public = {name: value for name, value in vars(module).items() if not name.startswith("__")}
    classes = [(name, value) for name, value in public.items() if inspect.isclass(value) and name == value.__name__]
    known = {cls for _, cls in classes}
    pieces = []
    for name, value in public.items():
        if inspect.ismodule(value):
            pieces.append("from . import %s as %s\n" % (name, name))
        elif not inspect.isclass(value) and not callable(value):
            pieces.append("%s: %s\n" % (name, type(value).__name__))
        elif inspect.isclass(value) and name != value.__name__:
            pieces.append("%s = %s\n" % (name, value.__name__))
    pieces = ["".join(pieces)] if pieces else []
    pieces += [class_stub(name, cls, known) for name, cls in in_order(classes)]
    pieces += [function(name, value) for name, value in public.items()
               if callable(value) and not inspect.isclass(value)]
    body = "\n".join(pieces)
    head = quoted(module.__doc__.strip(), "") if module.__doc__ else ""
    head += "# Written by module/stubs/generate.py; do not edit.\n"
    used = imports(body, set(public), parent_names)
    return head + used + ("\n" + body if body else "")


def stubs():
    """{file name: content} of the stub package."""
    names = {name for name in vars(strativo_python) if not name.startswith("__")}
    result = {"__init__.pyi": module_stub(strativo_python)}
    for name, value in vars(strativo_python).items():
        if inspect.ismodule(value):
            result[name + ".pyi"] = module_stub(value, names)
    return result


def main():
    folder = sys.argv[1] if len(sys.argv) > 1 else os.path.dirname(os.path.abspath(sys.argv[0]))
    package = os.path.join(folder, PACKAGE)
    os.makedirs(package, exist_ok=True)
    for name, content in stubs().items():
        with open(os.path.join(package, name), "w", encoding="utf-8") as file:
            file.write(content)


if __name__ == "__main__":
    main()
