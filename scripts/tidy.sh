#!/bin/bash
# Runs clang-tidy.
#
#     tidy.sh [FILE...]          all checks of .clang-tidy, over the given sources or all of them
#     tidy.sh --changed [SINCE]  the quick checks over the sources changed since a commit (else since main, and on main
#                                since the commit before), two minutes of them at most; a finding is a failure
set -euo pipefail
cd "$(dirname "$0")/.."
folders=(host runtime module plugins editor app)
# What costs little beside reading the headers and is seldom wrong.
quick='-*,bugprone-argument-comment,bugprone-assert-side-effect,bugprone-copy-constructor-init,bugprone-dangling-handle'
quick+=',bugprone-infinite-loop,bugprone-sizeof-*,bugprone-string-*,bugprone-suspicious-*,bugprone-swapped-arguments'
quick+=',bugprone-undelegated-constructor,bugprone-unused-raii,bugprone-use-after-move,bugprone-virtual-near-miss'
quick+=',cppcoreguidelines-slicing,misc-definitions-in-headers,misc-unused-parameters,modernize-use-nullptr'
quick+=',modernize-use-override,performance-for-range-copy,performance-inefficient-*'
quick+=',readability-duplicate-include,readability-redundant-*'
quick_seconds=120

# The compile commands as clang understands them: without GCC's precompiled headers.
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

# Compiler warnings are GCC's business. With C++20's modules in the language clang-tidy reads everything twice.
tidy=(clang-tidy -p "$commands" --quiet --extra-arg=-w --extra-arg=-Xclang --extra-arg=-fno-cxx-modules)

if [[ ${1:-} != --changed ]]; then
  sources=("$@")
  [[ ${#sources[@]} -gt 0 ]] || mapfile -t sources < <(git ls-files "${folders[@]/%//*.cpp}")
  printf '%s\0' "${sources[@]}" | xargs -0 -P "$(nproc)" -n 4 "${tidy[@]}"
  exit
fi

since=${2:-$(git merge-base HEAD origin/main 2>/dev/null || true)}
if [[ -z $since || $since == "$(git rev-parse HEAD)" ]]; then
  since=$(git rev-parse --verify --quiet HEAD~1) || { echo "tidy: nothing to compare with"; exit 0; }
fi
mapfile -t sources < <(git diff --name-only --diff-filter=d "$since" -- "${folders[@]/%//*.cpp}")
[[ ${#sources[@]} -gt 0 ]] || { echo "tidy: no source has changed"; exit 0; }
status=0
printf '%s\0' "${sources[@]}" | timeout "$quick_seconds" \
  xargs -0 -P "$(nproc)" -n 1 "${tidy[@]}" --checks="$quick" --warnings-as-errors='*' 2>/dev/null || status=$?
if [[ $status -eq 124 ]]; then
  echo "tidy: the time is over before all of the ${#sources[@]} changed sources were looked at"
  exit 0
fi
exit "$status"
