#!/usr/bin/env bash
# pdf_text.sh TESS ROOT: the countries sample as a PDF has the report's pages and paper, and each of
# its texts as text at its place; wrong printers are told.
set -euo pipefail
tess=$1 root=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
run() { "$root/tools/runtime/run.sh" "$tess" "$@" 2>"$work/errors"; }
run form build "$root/samples/countries.json" "$work/c.fp" >/dev/null
run run --form "$work/c.fp" --data "$root/samples/countries.csv" --output "$work/c.frc" --silent
run pages "$work/c.frc" --text >"$work/texts"
run printers | grep -q '^\* PDF'
run pdf "$work/c.frc" "$work/all.pdf" >/dev/null
grep -q "3 of 3 pages" "$work/errors"
run pdf "$work/c.frc" "$work/two.pdf" --pages 2-3 >/dev/null
pdfinfo "$work/all.pdf" | grep -q "^Pages: *3$"
pdfinfo "$work/two.pdf" | grep -q "^Pages: *2$"
pdfinfo "$work/all.pdf" | grep -q "^Page size: *612 x 792"
pdftotext -bbox "$work/all.pdf" "$work/words"
python3 "$root/tests/tools/pdf_has_texts.py" "$work/texts" "$work/words" 2
code=0
run print "$work/c.frc" --printer nope || code=$?
[ "$code" = 2 ] && grep -q "no such printer; known are: PDF" "$work/errors"
run print "$work/c.frc" --pages 1 --copies 2 | grep -q "1 page sent to PDF"
