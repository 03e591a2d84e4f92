#!/bin/bash
# Runs clang-tidy over the given sources, or over all of them. GCC's precompiled headers are of no use to clang, so the
# compile commands are taken without them.
set -euo pipefail
cd "$(dirname "$0")/.."
commands=build/tidy
mkdir -p "$commands"
python3 - build/release/compile_commands.json "$commands" <<'END'
import json, os, re, shutil, sys
source, folder = sys.argv[1:]
copies = {}

def plain_header(match):
    """The list of headers without the precompiled file beside it, which clang would take for its own."""
    header = match.group(1)
    if header not in copies:
        copies[header] = os.path.abspath(os.path.join(folder, "headers%d.h" % len(copies)))
        shutil.copy(header, copies[header])
    return "-include " + copies[header]

entries = [e for e in json.load(open(source)) if not e["file"].endswith((".hxx", ".hxx.cxx", ".c"))]
for entry in entries:
    command = re.sub(r"^.*?ccache ", "", entry["command"])
    command = re.sub(r"-include (\S+/cmake_pch\.hxx)", plain_header, command)
    entry["command"] = re.sub(r" (-Winvalid-pch|-fpch-preprocess|-fno-semantic-interposition)", "", command)
json.dump(entries, open(os.path.join(folder, "compile_commands.json"), "w"))
END
sources=("$@")
[[ ${#sources[@]} -gt 0 ]] || mapfile -t sources < <(git ls-files 'host/*.cpp' 'runtime/*.cpp' 'module/*.cpp' 'editor/*.cpp' 'app/*.cpp')
printf '%s\n' "${sources[@]}" | xargs -P "$(nproc)" -n 4 clang-tidy -p "$commands" --quiet
