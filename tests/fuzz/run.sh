#!/bin/sh
# Feeds made-up bytes to a reader, with the sanitizers: run.sh NAME SECONDS. Needs clang with its fuzzer.
set -eu
cd "$(dirname "$0")/../.."
name=$1
seconds=${2:-60}
work=${STRATIVO_FUZZ_FOLDER:-build/fuzz}/$name
mkdir -p "$work/corpus"
case $name in
volume_header)
    sources="host/volume/VolumeHeader.cpp host/volume/VolumeHeaderText.cpp host/volume/VolumeLayout.cpp
        host/formats/SettingNames.cpp host/georef/BlocSpace.cpp host/core/TextForm.cpp host/core/Transform.cpp"
    # A sound header to begin with.
    printf '@ %s\n' '{"format":"strativo volume","version":"1.0","orders":[{"order":"inline","state":"whole","offset":131072,"shape":[2,4,3]},{"order":"crossline","state":"whole","offset":135168,"shape":[3,4,2]}],"blockToSurvey":[0,1,0,0,1,0,0,0,0,0,1,0,0,0,0,1],"blockToWorld":[1,0,0,0,0,1,0,0,0,0,1,0,0,0,0,1],"content":"seismic","crs":"","domain":"Time","extents":{"crosslines":3,"inlines":2,"samples":4},"history":[{"what":"Made","when":"2026-01-01T00:00:00Z"}],"horizontalUnit":"Meters","noValue":-9999,"sampleType":"float32 little-endian","samples":"Amplitude","statistics":{"count":24,"deviation":1,"maximum":2,"mean":0,"minimum":-2,"percentiles":[[1,-2],[99,2]]},"verticalUnit":"Milliseconds"}' > "$work/corpus/sound"
    ;;
*)
    echo "unknown: $name" >&2
    exit 2
    ;;
esac
# shellcheck disable=SC2046,SC2086 # lists of words
# Not for this compiler: it looks for what a matrix of three rows has not got.
g++ -std=c++20 -g -O1 -fPIC -I. -c host/core/Matrix.cpp -o "$work/matrix.o"
clang++ -std=c++20 -g -O1 -fPIC -fsanitize=fuzzer,address,undefined -fno-sanitize=vptr -fno-sanitize-recover=undefined \
    -DQT_NO_KEYWORDS -I. $(pkg-config --cflags Qt5Core Qt5Gui) "tests/fuzz/$name.cpp" $sources "$work/matrix.o" \
    $(pkg-config --libs Qt5Core Qt5Gui) -o "$work/fuzz"
# Qt's reader of JSON forgets a few bytes of texts that are none.
exec "$work/fuzz" -detect_leaks=0 -max_total_time="$seconds" -max_len=8192 -artifact_prefix="$work/" "$work/corpus"
