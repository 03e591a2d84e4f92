"""SEG-Y: conversions of samples against memcpy, import and export against dd of the same bytes, and segyio reading and
writing the same file. Everything is in the page cache, and what is written goes through to the disk."""
import json
import subprocess
import sys
import tempfile
from pathlib import Path

import harness

MEGABYTES = 1000
# Shares of the rate of what each is compared with.
LIMITS = {"from_ibm": 0.7, "to_ibm": 0.7, "import": 0.5, "export_ibm": 0.6, "export_ieee": 0.6}
NAMES = {"from_ibm": "IBM to float", "to_ibm": "float to IBM", "from_int16": "int16 to float", "scan": "looking through",
         "import": "import, one order", "export_ibm": "export, IBM", "export_ieee": "export, IEEE",
         "read": "segyio reads a cube", "write": "segyio writes it"}
PROGRAM = Path(sys.executable).parent.parent / "segy_rates"
SEGYIO = """
import os, sys, time, segyio
path = sys.argv[1]
def best(work):
    times = []
    for _ in range(3):
        start = time.perf_counter(); result = work(); times.append(time.perf_counter() - start)
    return min(times), result
def write():
    segyio.tools.from_array3D(path + ".copy", cube, dt=4000)
    with open(path + ".copy") as file:
        os.fsync(file.fileno())
read, cube = best(lambda: segyio.tools.cube(path))
print(read, best(write)[0])
"""

with tempfile.TemporaryDirectory(dir=Path(PROGRAM).parent) as folder:
    times = json.loads(subprocess.run([PROGRAM, folder, str(MEGABYTES)], check=True, capture_output=True, text=True).stdout)
    try:
        other = subprocess.run(["/usr/bin/python3", "-c", SEGYIO, folder + "/rates.sgy"], check=True, capture_output=True,
                               text=True).stdout
        times["read"], times["write"] = map(float, other.split())
    except subprocess.CalledProcessError:  # python3-segyio is not there
        pass

lines = ["%d MB in one file; own memory of the import %.0f MB." % (MEGABYTES, times["own_memory_mb"]), "",
         "| what | seconds | beside | share of its rate | limit |", "|---|---|---|---|---|"]
missed = []
for key, name in NAMES.items():
    if key not in times:
        continue
    beside = "memcpy" if key.startswith(("from_", "to_")) else "dd"
    share = times[beside] / times[key]
    lines.append("| %s | %.3f | %s | %.2f | %s |" % (name, times[key], beside, share, LIMITS.get(key, "")))
    if share < LIMITS.get(key, 0):
        missed.append(name)
harness.report("SEG-Y", lines)
if missed or times["own_memory_mb"] > 256:
    raise SystemExit(1)
