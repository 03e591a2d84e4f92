"""One million print() calls with the workbench's window open; the program that is measured is print_in_window.cpp."""
import os
import re
import subprocess
import sys
from pathlib import Path

import harness

LIMIT = 1.2
STALL_LIMIT_MS = 50.0
program = Path(sys.executable).parent.parent / "print_in_window"
output = subprocess.run([program], env=dict(os.environ, QT_QPA_PLATFORM="offscreen"), check=True,
                        stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True).stdout
harness.report("Printing into the message window", output.rstrip().split("\n") + [
    "", "The limits are %.1f for the ratio of minima and %.0f ms for the pauses." % (LIMIT, STALL_LIMIT_MS)])
ratio = float(re.search(r"captured stream \| \d+ \| ([\d.]+)", output).group(1))
pauses = [float(number) for number in re.findall(r"\| ([\d.]+) ms \|", output)]
if ratio > LIMIT or max(pauses) > STALL_LIMIT_MS:
    raise SystemExit(1)
