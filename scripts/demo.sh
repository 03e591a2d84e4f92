#!/bin/bash
# Shows what the built program does: scripts in the terminal, one that fails, and a picture of the workbench.
set -euo pipefail
cd "$(dirname "$0")/.."

strativo=build/release/bin/strativo
export QT_QPA_PLATFORM=offscreen
# The demo leaves the user's own settings and packages alone.
export STRATIVO_HOMEPATH="$PWD/build/demo-home"
mkdir -p "$STRATIVO_HOMEPATH" out

step() {
  printf '\n== %s\n\n' "$*"
}

step "A synthetic seismogram: strativo run examples/scripts/first_script.py"
"$strativo" run examples/scripts/first_script.py

step "A script that fails: strativo run examples/scripts/error_example.py (status 1 is expected)"
status=0
"$strativo" run examples/scripts/error_example.py || status=$?
if [[ $status -ne 1 ]]; then
  echo "demo: the failing script left with status $status instead of 1" >&2
  exit 1
fi
echo "The traceback names the line; the status is 1, as expected."

step "A horizon from NumPy: strativo run examples/scripts/image_from_numpy.py out/horizon.png"
"$strativo" run examples/scripts/image_from_numpy.py out/horizon.png

step "A demo survey: strativo demo out/demo-survey"
rm -rf out/demo-survey
"$strativo" demo out/demo-survey
"$strativo" run --project out/demo-survey -c 'import strativo_python as sp
project = sp.getProject()
print(len(project.objects()), "objects,", project.crs.authority, project.crs.authorityCode)'

step "A plug-in: strativo plugin check examples/plugins/velocity_tools"
"$strativo" plugin check examples/plugins/velocity_tools

step "The workbench, with the survey, the plug-in and the first script executed"
rm -f out/workbench.png
plugins="$STRATIVO_HOMEPATH/.strativo/plugins"
rm -rf "$plugins" && mkdir -p "$plugins" && cp -r examples/plugins/velocity_tools "$plugins"
sed -i 's/^autoload=.*/autoload=true/' "$plugins/velocity_tools/plugin.info"
QT_QPA_PLATFORM=xcb xvfb-run -a -s "-screen 0 1440x900x24" "$strativo" --project out/demo-survey \
  --execute examples/scripts/first_script.py --screenshot out/workbench.png
if [[ ! -s out/workbench.png ]]; then
  echo "demo: no picture was written" >&2
  exit 1
fi

step "Done"
cat <<END
Pictures:       out/workbench.png, out/horizon.png
Workbench:      $strativo
Demo survey:    out/demo-survey (open it with: $strativo --project out/demo-survey)
One script:     $strativo run SCRIPT
Documentation:  build/release/bin/doc/python/index.html
END
