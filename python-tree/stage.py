#!/usr/bin/python3
"""Stages the Python tree that is shipped beside the program.

    stage.py TREE

The tree is taken from the Debian packages of the interpreter that runs this file:

    python36.zip     the standard library; the host looks for this name, whatever the version
    source/          the library's sources as files, for whoever goes by the names that code bears
    *.so             the library's extension modules; dlopen cannot read them from an archive
    site-packages/   jedi, parso, pip and, when it is installed, numpy, each with its metadata

Everything is compiled beforehand, because the embedded interpreter never writes bytecode: without this each start
would compile what it imports. The bytecode is not checked against its source when it is loaded, so time stamps may
change on the way to the user. The archive has the sources, too, for `inspect` and completion.

A new tree is made in a folder of its own and moved into place at the end; what else lies in TREE (the launcher)
stays. Packages that were added to the staged site-packages by hand are gone after a new staging.
"""

import argparse
import importlib.util
import marshal
import os
import re
import shutil
import sys
import sysconfig
import tempfile
import zipfile
from concurrent.futures import ProcessPoolExecutor
from pathlib import Path

ARCHIVE = "python36.zip"
SOURCES = "source"
OPTIMIZATION = 1  # the level of the embedded interpreter; it looks for files of this level only
EPOCH = (1980, 1, 1, 0, 0, 0)

STDLIB = Path(sysconfig.get_path("stdlib"))
PACKAGES = Path("/usr/lib/python3/dist-packages")
WHEELS = Path("/usr/share/python-wheels")

HERE = Path(__file__).parent
ADDED = "_shipped_library.py"  # says what is particular to this library, also which modules are left out and why

# What Debian ties to its own machine is left out without a word (sitecustomize, build configuration).
STDLIB_LEFT_OUT = re.compile(
    r"(.*/)?(__pycache__|tests?|idle_test)(/|$)"
    r"|(idlelib|lib2to3|tkinter|turtledemo|ensurepip|venv|dist-packages|site-packages|lib-dynload|config-[^/]*)(/|$)"
    r"|(turtle|sitecustomize)\.py$|EXTERNALLY-MANAGED$|.*\.(exe|bat|orig)$"
)
# readline and gdbm are GPL, the Debian dbm sits on a copyleft Berkeley DB; the library does without all three.
EXTENSIONS_LEFT_OUT = re.compile(r"(readline|_gdbm|_dbm|_tkinter|_test.*|_ctypes_test|_?xx.*)\.")
PACKAGES_LEFT_OUT = shutil.ignore_patterns("__pycache__", "tests")


def compiled(source: bytes, shown_name: str) -> bytes:
    """The bytes of an unchecked hash-based .pyc file (PEP 552)."""
    code = compile(source, shown_name, "exec", dont_inherit=True, optimize=OPTIMIZATION)
    flags = (1).to_bytes(4, "little")
    return importlib.util.MAGIC_NUMBER + flags + importlib.util.source_hash(source) + marshal.dumps(code)


def stdlib_entry(name: str) -> list[tuple[str, bytes]]:
    data = (HERE / name if name == ADDED else STDLIB / name).read_bytes()
    if not name.endswith(".py"):
        return [(name, data)]
    return [(name + "c", compiled(data, f"{ARCHIVE}/{name}")), (name, data)]


def write_source(path: Path, data: bytes) -> None:
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_bytes(data)


def stage_stdlib(target: Path, pool: ProcessPoolExecutor) -> None:
    names = sorted(path.relative_to(STDLIB).as_posix() for path in STDLIB.rglob("*") if path.is_file())
    names = [name for name in names if not STDLIB_LEFT_OUT.match(name)] + [ADDED]
    # Bytecode is stored, not deflated: reading is a plain copy, and start-up time is worth more than 10 MB.
    with zipfile.ZipFile(target / ARCHIVE, "w", zipfile.ZIP_STORED) as archive:
        for entries in pool.map(stdlib_entry, names, chunksize=32):
            for name, data in entries:
                if name.endswith(".py"):
                    archive.writestr(zipfile.ZipInfo(name, EPOCH), data, zipfile.ZIP_DEFLATED)
                    write_source(target / SOURCES / name, data)
                else:
                    archive.writestr(zipfile.ZipInfo(name, EPOCH), data)


def stage_extensions(target: Path) -> None:
    for path in (STDLIB / "lib-dynload").glob("*.so"):
        if not EXTENSIONS_LEFT_OUT.match(path.name):
            shutil.copy2(path, target)


def copy_distribution(name: str, site_packages: Path, required: bool) -> None:
    metadata = [path for path in PACKAGES.glob(f"{name}-*") if path.suffix in (".egg-info", ".dist-info")]
    if not (PACKAGES / name).is_dir() or not metadata:
        if required:
            sys.exit(f"stage.py: {name} is not in {PACKAGES}: install python3-{name}")
        return
    for path in [PACKAGES / name, *metadata]:
        if path.is_dir():
            shutil.copytree(path, site_packages / path.name, ignore=PACKAGES_LEFT_OUT, ignore_dangling_symlinks=True)
        else:
            shutil.copy2(path, site_packages)


def unpack_pip(site_packages: Path) -> None:
    wheels = sorted(WHEELS.glob("pip-*.whl"))
    if not wheels:
        sys.exit(f"stage.py: no pip wheel in {WHEELS}: install python3-pip-whl")
    with zipfile.ZipFile(wheels[-1]) as wheel:
        wheel.extractall(site_packages)


def compile_in_place(path: Path) -> None:
    cached = Path(importlib.util.cache_from_source(str(path), optimization=OPTIMIZATION))
    cached.parent.mkdir(exist_ok=True)
    try:
        cached.write_bytes(compiled(path.read_bytes(), path.name))
    except SyntaxError:
        pass  # templates and code for other versions of Python; an import would fail on them in the same way


def stage_packages(target: Path, pool: ProcessPoolExecutor) -> None:
    site_packages = target / "site-packages"
    site_packages.mkdir()
    copy_distribution("jedi", site_packages, required=True)
    copy_distribution("parso", site_packages, required=True)
    copy_distribution("numpy", site_packages, required=False)
    unpack_pip(site_packages)
    for _ in pool.map(compile_in_place, site_packages.rglob("*.py"), chunksize=32):
        pass


def move_into_place(staged: Path, tree: Path) -> None:
    for stale in tree.glob("*.so"):
        if not (staged / stale.name).exists():
            stale.unlink()
    for path in staged.iterdir():
        final = tree / path.name
        if path.is_dir() and final.exists():
            final.rename(staged / (path.name + ".old"))
        os.replace(path, final)


def main() -> None:
    parser = argparse.ArgumentParser(description="Stage the Python tree that is shipped beside the program.")
    parser.add_argument("tree", type=Path)
    tree = parser.parse_args().tree.absolute()
    tree.mkdir(parents=True, exist_ok=True)
    with tempfile.TemporaryDirectory(prefix=".python-staging-", dir=tree.parent) as folder:
        staged = Path(folder)
        with ProcessPoolExecutor() as pool:
            stage_stdlib(staged, pool)
            stage_packages(staged, pool)
        stage_extensions(staged)
        move_into_place(staged, tree)


if __name__ == "__main__":
    main()
