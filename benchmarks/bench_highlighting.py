"""Colouring beside KSyntaxHighlighting; the program that is measured is highlighting_cost.cpp. It is built where
libkf5syntaxhighlighting-dev is installed."""
import os
import re
import subprocess
import sys
from pathlib import Path

import harness

CORPUS = "/usr/lib/python3.11"
program = Path(sys.executable).parent.parent / "highlighting_cost"
if not program.exists():
    print("highlighting: not measured, libkf5syntaxhighlighting-dev was not there when the benchmarks were built")
    raise SystemExit(0)
output = subprocess.run([program, CORPUS], env=dict(os.environ, QT_QPA_PLATFORM="offscreen"), check=True,
                        stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True).stdout
harness.report("Highlighting", output.rstrip().split("\n") + [
    "", "20,000 lines in a plain text window, in turns; the least of nine rounds. Both use Qt's "
    "highlighter and layout, which are part of every number. KSyntaxHighlighting also follows strings over "
    "several lines and finds what can be folded. The limit is its time."])
if any(float(ratio) > 1.0 for ratio in re.findall(r"\| ([\d.]+) \|$", output, re.M)):
    print("slower than KSyntaxHighlighting")
    raise SystemExit(1)
