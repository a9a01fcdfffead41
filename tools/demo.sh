#!/usr/bin/env bash
# demo.sh [--show]: builds everything, runs the samples to report files and draws their pages into
# out/. With --show and a display, the preview of a sample opens then.
set -euo pipefail
cd "$(dirname "$(realpath "$0")")/.."
tools/build.sh release >&2
tess() { tools/runtime/run.sh build/win32/bin/tess.exe "$@" | tr -d '\r'; }
mkdir -p out
answers() { [ "$1" != parks ] || printf -- '--set\nMIN_ACRES=30000\n'; }
for form in samples/*.json; do
    name=$(basename "$form" .json)
    mapfile -t given < <(answers "$name")
    rm -rf "out/$name"
    tess form build "$form" "out/$name.fp" >/dev/null
    tess run --form "out/$name.fp" --data "samples/$name.csv" --output "out/$name.frc" \
        "${given[@]}" 2>/dev/null
    tess pages "out/$name.frc" --png "out/$name" --dpi 96 >/dev/null
    echo "    pages as pictures: out/$name/page-001.png ..."
done
echo "The forms are out/*.fp, the reports out/*.frc. Look at the pictures, or try:"
echo "    ./dev wine build/win32/bin/tess.exe info out/countries.frc"
[ "${1:-}" = --show ] || exit 0
[ -n "${DISPLAY:-}" ] || {
    echo "There is no display to show a preview on: DISPLAY isn't set." >&2
    exit 1
}
TESSARINE_SHOW=1 TESSARINE_TIMEOUT=0 tess run --form out/countries.fp --data samples/countries.csv --to screen
