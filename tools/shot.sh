#!/usr/bin/env bash
# shot.sh [NAME...]: takes pictures of windows with the sample of countries into out/shots/.
set -euo pipefail
cd "$(dirname "$(realpath "$0")")/.."
names=("$@")
[ $# -gt 0 ] || names=(preview preview-fitted preview-running viewer dialogs designer
    designer-group designer-labels designer-expression)
tools/build.sh release >&2
bin=build/win32/bin
mkdir -p out/shots
run() { tools/runtime/run.sh "$@" | tr -d '\r'; }
run $bin/tess.exe form build samples/countries.json out/shots/countries.fp >/dev/null
run $bin/tess.exe run --form out/shots/countries.fp --data samples/countries.csv \
    --output out/shots/countries.frc --silent 2>/dev/null
run $bin/tess.exe form build samples/airports.json out/shots/airports.fp >/dev/null
for name in "${names[@]}"; do
    sample=countries
    [ "$name" != designer-labels ] || sample=airports
    run $bin/shot.exe "$name" out/shots/$sample.fp samples/$sample.csv \
        out/shots/countries.frc "out/shots/$name.png"
    echo "out/shots/$name.png"
done
