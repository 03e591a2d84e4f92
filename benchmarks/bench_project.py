"""A project with ten thousand objects of one kind: opening it, listing and filing them; with a hundred thousand: the
first listing, a renaming in the browser, undo and redo."""
import os
import re
import subprocess
import sys
import tempfile
from pathlib import Path

import harness

COUNT = 10_000
LIMITS_MS = {"open": 500.0, "list": 50.0, "file": 50.0, "list a directory": 50.0}
MANY_LIMITS_MS = {"list 100000 objects first": 100.0, "rename one of them in the browser": 20.0,
                  "undo 10000 changes": 1000.0, "redo 10000 changes": 1000.0}
PROGRAM = Path(sys.executable).parent.parent / "strativo"
CODE = """
import time, strativo_python
project, kind = strativo_python.getProject(), strativo_python.ObjectId.Horizon3d
objects = project.objects(kind)
for name in "AB":
    project.addVirtualDirectory(kind, name, "")
def file_all():
    # A pause, so that each round is written: changes in quick succession are collected.
    time.sleep(0.4)
    file_all.into = "B" if file_all.into == "A" else "A"
    start = time.perf_counter()
    project.setObjectsInVirtualDirectory(objects, kind, file_all.into)
    return time.perf_counter() - start
file_all.into = "B"
def timed(call):
    start = time.perf_counter()
    call()
    return time.perf_counter() - start
for name, measure in (("list", lambda: timed(lambda: project.objects(kind))), ("file", file_all),
                      ("list a directory", lambda: timed(lambda: project.getObjectsInVirtualDirectory(kind, file_all.into)))):
    print("%s %.2f" % (name, min(measure() for _ in range(9)) * 1e3))
"""


def run(*words):
    return subprocess.run([PROGRAM, "run", *words], check=True, capture_output=True, text=True,
                          env=dict(os.environ, QT_QPA_PLATFORM="offscreen")).stdout


with tempfile.TemporaryDirectory() as folder:
    run("--project", folder, "-c", "pass")
    objects = Path(folder, "horizons-3d")
    objects.mkdir()
    for number in range(COUNT):
        (objects / ("Horizon %d.horizon" % number)).touch()
    opening = ("import time; s = time.clock_gettime(time.CLOCK_PROCESS_CPUTIME_ID); print(s * 1e3)")
    # The processor's time of the whole process up to the script's first line, with and without the project.
    starts = {who: min(float(run(*words, "-c", opening)) for _ in range(9))
              for who, words in (("with", ("--project", folder)), ("without", ()))}
    times = {"open": max(0.0, starts["with"] - starts["without"])}
    times.update((name, float(value)) for name, value in re.findall(r"(.+) ([\d.]+)\n", run("--project", folder, "-c", CODE)))
with tempfile.TemporaryDirectory() as folder:
    program = PROGRAM.parent / "objects_cost"
    many = subprocess.run([program, folder], check=True, capture_output=True, text=True,
                          env=dict(os.environ, QT_QPA_PLATFORM="offscreen")).stdout
times.update((name, float(value)) for name, value in re.findall(r"(.+) ([\d.]+)\n", many))
LIMITS_MS.update(MANY_LIMITS_MS)
lines = ["| %d objects of one kind | ms | limit |" % COUNT, "|---|---|---|"]
lines += ["| %s | %.1f | %.0f |" % (name, times[name], limit) for name, limit in LIMITS_MS.items()]
harness.report("Projects", lines)
if any(times[name] > limit for name, limit in LIMITS_MS.items()):
    raise SystemExit(1)
