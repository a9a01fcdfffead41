#!/usr/bin/env bash
# Times runs of 10,000 and 100,000 records to a report file against a floor that issues the same
# drawing calls with no layout, the pages of a preview against the platform's own play of them, and
# a designer's repaint and drag against their bare drawing, all in one go.
set -euo pipefail
cd "$(dirname "$(realpath "$0")")/.."
tools/build.sh release >&2
bin=build/win32/bin
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
run() { tools/runtime/run.sh "$@" | tr -d '\r'; }
run $bin/tess.exe form build bench/list.json "$work/list.fp" >/dev/null
read -r small_time small_pages small_peak <<<"$(run $bin/bench_report.exe "$work/list.fp" "$work/small.frc" 10000)"
read -r time pages peak <<<"$(run $bin/bench_report.exe "$work/list.fp" "$work/list.frc" 100000)"
read -r floor_time floor_pages <<<"$(run $bin/bench_floor.exe "$work/list.frc" "$work/floor.frc")"
awk -v t="$time" -v p="$pages" -v k="$peak" -v st="$small_time" -v sp="$small_pages" -v sk="$small_peak" \
    -v f="$floor_time" -v fp="$floor_pages" 'BEGIN {
    printf "10,000 records:  %.2f s, %d pages, peak %d KB\n", st, sp, sk
    printf "100,000 records: %.2f s, %d pages, peak %d KB, %d records a second\n", t, p, k, 100000 / t
    printf "the floor:       %.2f s, %d pages\n", f, fp
    printf "ratio of run to floor: %.2f; of the peaks: %.3f\n", t / f, k / sk }'
read -r pages turn play growth <<<"$(run $bin/bench_preview.exe "$work/list.fp" 60000)"
awk -v n="$pages" -v t="$turn" -v p="$play" -v g="$growth" 'BEGIN {
    printf "preview:         %d pages to the last and back, %.2f ms a turn, memory grew by %d KB\n", n, t, g
    printf "ratio of a page turn to the platform'"'"'s own play of the page: %.2f\n", t / p }'
awk -f bench/canvas.awk >"$work/canvas.json"
run $bin/tess.exe form build "$work/canvas.json" "$work/canvas.fp" >/dev/null
read -r items repaint bare drag outlines cursor <<<"$(run $bin/bench_canvas.exe "$work/canvas.fp")"
awk -v n="$items" -v r="$repaint" -v b="$bare" -v d="$drag" -v o="$outlines" -v c="$cursor" 'BEGIN {
    printf "designer:        %d items, %.2f ms a repaint, %.1f us a step of a drag\n", n, r, d
    printf "ratio of a repaint to the bare drawing of its items: %.2f\n", r / b
    printf "ratio of a step to its two outlines: %.2f; to outlines and cursor: %.2f\n", d / o, d / (o + c) }'
