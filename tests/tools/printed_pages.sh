#!/usr/bin/env bash
# printed_pages.sh OUTPUT_TESTS ROOT: the pages that a run prints, opened by a reader that is none
# of ours, show the texts of the same run's report file at the same places, on paper of its shape.
set -euo pipefail
program=$1 root=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
TESSARINE_COPY_DIR=$work "$root/tools/runtime/run.sh" "$program" --gtest_brief=1 \
    --gtest_filter='*PrintedCopy*' >"$work/log" 2>&1 || {
    cat "$work/log"
    exit 1
}
for shape in portrait landscape; do
    pdftotext -bbox "$work/$shape.pdf" "$work/$shape.html"
    python3 "$root/tests/tools/compare_texts.py" "$shape" "$work/$shape.txt" "$work/$shape.html" \
        "$(pdfinfo "$work/$shape.pdf" | awk '/^Page rot/ { print $3 }')"
done
