"""Loading plus unloading an empty plug-in against importing the same file in plain Python.

A C++ program loads and unloads the plug-in again and again in one process; plain Python imports the file, forgets it and
imports it again. The cost that grows with the modules that a session has imported is on our side only.
"""
import json
import subprocess
import sys
import tempfile
from pathlib import Path

import harness

LIMIT = 2.0
ROUNDS, TIMES = 15, 200
SOURCE = "def register():\n  return True\n\ndef unregister():\n  return True\n"
PLAIN = """
import importlib, json, sys, time
sys.dont_write_bytecode = True
sys.path.append(sys.argv[1])
def once():
    importlib.import_module("empty_plugin")
    del sys.modules["empty_plugin"]
once()
best = []
for _ in range(%d):
    start = time.perf_counter()
    for _ in range(%d): once()
    best.append((time.perf_counter() - start) / %d)
print(json.dumps(min(best)))
""" % (ROUNDS, TIMES, TIMES)

program = Path(sys.executable).parent.parent / "load_plugin"
with tempfile.TemporaryDirectory() as folder:
    (Path(folder) / "empty_plugin.py").write_text(SOURCE)
    (Path(folder) / "plugin.info").write_text("[PluginInfo]\ninit=empty_plugin.py\n")
    commands = {"importlib.import_module, plain Python": ["/usr/bin/python3", "-I", "-c", PLAIN, folder],
                "load() and unload()": [program, folder, str(ROUNDS), str(TIMES)]}
    least = {name: float("inf") for name in commands}
    for _ in range(3):
        for name, command in commands.items():
            output = subprocess.run(command, check=True, capture_output=True, text=True).stdout
            least[name] = min(least[name], json.loads(output))

plain, ours = least.values()
rows = ["| an empty plug-in, minimum of %d rounds of %d | us |" % (3 * ROUNDS, TIMES), "|---|---|"]
rows += ["| %s | %.0f |" % (name, 1e6 * value) for name, value in least.items()]
rows += ["", "Ratio **%.2f**; the limit is %.1f." % (ours / plain, LIMIT)]
harness.report("Loading a plug-in", rows)
if ours / plain > LIMIT:
    raise SystemExit(1)
