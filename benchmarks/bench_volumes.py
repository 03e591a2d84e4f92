"""Frames of a volume of 512 x 512 x 512 samples: warm ones beside memcpy of as many bytes, the first cold one beside one
read of them."""
import os
import subprocess
import sys
import tempfile
from pathlib import Path

import harness

PROGRAM = Path(sys.executable).parent.parent / "volume_frames"

# Not in /tmp, which may be memory.
with tempfile.TemporaryDirectory(dir=os.environ.get("STRATIVO_BENCH_FOLDER", Path.home())) as folder:
    done = subprocess.run([PROGRAM, folder], check=True, capture_output=True, text=True)
rows = [line.split(";") for line in done.stdout.splitlines()]
lines = ["| 512 x 512 x 512 | ratio | limit |", "|---|---|---|"]
lines += ["| %s | %s | %s |" % tuple(row) for row in rows]
harness.report("Volumes", lines)
if any(float(ratio) > float(limit) for _, ratio, limit in rows):
    raise SystemExit(1)
