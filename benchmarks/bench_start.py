"""Start of `strativo run -c pass` against an isolated plain Python plus an empty QApplication."""
import os
import statistics
import subprocess
import sys
import time
from pathlib import Path

import harness

ROUNDS = 40
LIMIT = 1.5
bin_folder = Path(sys.executable).parent.parent
environment = dict(os.environ, QT_QPA_PLATFORM="offscreen")
commands = {
    "/usr/bin/python3 -I -c pass": ["/usr/bin/python3", "-I", "-c", "pass"],
    "empty QApplication": [bin_folder / "empty_application"],
    "strativo run -c pass": [bin_folder / "strativo", "run", "-c", "pass"],
}


def seconds(command):
    start = time.perf_counter()
    subprocess.run(command, env=environment, check=True, stderr=subprocess.DEVNULL)
    return time.perf_counter() - start


for command in commands.values():
    seconds(command)
times = {name: [] for name in commands}
for _ in range(ROUNDS):
    for name, command in commands.items():
        times[name].append(seconds(command))

python, application, ours = times.values()
ratios = [c / (a + b) for a, b, c in zip(python, application, ours)]
rows = ["| whole process, %d rounds in turn | min ms | median ms |" % ROUNDS, "|---|---|---|"]
rows += ["| `%s` | %.1f | %.1f |" % (name, 1e3 * min(values), 1e3 * statistics.median(values))
         for name, values in times.items()]
ratio = min(ours) / (min(python) + min(application))
rows += ["", "strativo against the sum of the others: **%.2f** (minima), %.2f (median of rounds); the limit is %.1f." % (
    ratio, statistics.median(ratios), LIMIT)]
harness.report("Start of the headless runner", rows)
if ratio > LIMIT:
    raise SystemExit(1)
