"""What enabled debugging costs code that does not stop; the program that is measured is debugger_cost.cpp."""
import os
import re
import subprocess
import sys
from pathlib import Path

import harness

LIMITS = {"breakpoints in other files": (1.1, 1.5), "breakpoint in another function": (1.1, 1.5),
          "breakpoint in the running function": (4.5, 4.5)}
BDB_FACTOR = 10.0
program = Path(sys.executable).parent.parent / "debugger_cost"
output = subprocess.run([program], env=dict(os.environ, QT_QPA_PLATFORM="offscreen"), check=True,
                        stdout=subprocess.PIPE, text=True).stdout
harness.report("Debugger", output.rstrip().split("\n") + [
    "", "The limits are 1.1 and 1.5 without a breakpoint in the running function, 4.5 with one, and a tenth of bdb."])
rows = {name: (float(loop), float(calls)) for name, loop, calls in
        re.findall(r"^\| (.+?) \| ([\d.]+) \| ([\d.]+) \|$", output, re.M)}
bdb = rows["bdb, breakpoint in another function"]
too_slow = [name for name, limits in LIMITS.items() if any(r > limit for r, limit in zip(rows[name], limits))]
too_slow += [name for name in LIMITS if rows[name][0] * BDB_FACTOR > bdb[0]]
if too_slow:
    print("too slow:", ", ".join(too_slow))
    raise SystemExit(1)
