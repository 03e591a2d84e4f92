"""The script editor on the standard library's files; the program that is measured is editor_cost.cpp."""
import os
import re
import subprocess
import sys
from pathlib import Path

import harness

CORPUS = "/usr/lib/python3.11"
KEY_LIMIT_MS = 16.0
COMPLETION_LIMIT_MS = 150.0
program = Path(sys.executable).parent.parent / "editor_cost"
run = subprocess.run([program, CORPUS], env=dict(os.environ, QT_QPA_PLATFORM="offscreen"),
                     stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
harness.report("Script editor", run.stdout.rstrip().split("\n") + [
    "", "The limits are %.0f ms for a key press in 20,000 lines and %.0f ms for a completion after a dot." %
    (KEY_LIMIT_MS, COMPLETION_LIMIT_MS)])
key = float(re.search(r"a key press in 20,000 lines \| ([\d.]+)", run.stdout).group(1))
completion = float(re.search(r"completion after a dot \| ([\d.]+)", run.stdout).group(1))
if run.returncode or key > KEY_LIMIT_MS or completion > COMPLETION_LIMIT_MS:
    raise SystemExit(1)
