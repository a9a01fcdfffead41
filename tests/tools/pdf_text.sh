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
python3 - "$work/texts" "$work/words" <<'PYTHON'
import html, re, sys
REACH = 0.25 # inches that the printer can't reach
# The test runtime's printer driver names a hyphen as a soft one.
wanted, page = [], 0
for line in open(sys.argv[1], encoding="utf-8"):
    line = line.rstrip("\r\n")
    if line.startswith("page "):
        page += 1
    elif line:
        x, y, text = line.split("\t", 2)
        if text.split():
            wanted.append((page, int(x), int(y), text))
words, page = [], 0
for line in open(sys.argv[2], encoding="utf-8"):
    page += "<page " in line
    found = re.search(r'<word xMin="([\d.]+)" yMin="([\d.]+)" xMax="[\d.]+" yMax="([\d.]+)">(.*)</word>', line)
    if found:
        left, top, bottom = (float(found[i]) for i in (1, 2, 3))
        words.append((page, left, top, bottom, html.unescape(found[4]).replace("\u00ad", "-")))
for page, x, y, text in wanted:
    blanks = len(text) - len(text.lstrip())
    first = text.split()[0]
    left, top = ((units / 250 + REACH) * 72 for units in (x, y))
    if not any(p == page and w == first and (blanks or abs(l - left) < 2) and t - 4 < top < b + 4
               for p, l, t, b, w in words):
        sys.exit(f"page {page}: the PDF lacks {text!r} at {left:.1f}, {top:.1f}")
print(len(wanted), "texts found at their places")
PYTHON
code=0
run print "$work/c.frc" --printer nope || code=$?
[ "$code" = 2 ] && grep -q "no such printer; known are: PDF" "$work/errors"
run print "$work/c.frc" --pages 1 --copies 2 | grep -q "1 page sent to PDF"
