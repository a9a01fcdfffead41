"""pdf_has_texts.py TEXTS WORDS TOLERANCE: the texts of a report, as tess pages --text lists them,
against the words of a PDF of it, as pdftotext -bbox lists them. Each text begins at its place,
within so many points to the side."""
import html
import re
import sys

tolerance = float(sys.argv[3])
REACH = 0.25  # inches that the printer can't reach

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
        words.append((page, left, top, bottom, html.unescape(found[4])))
assert wanted, "the report draws nothing"
for page, x, y, text in wanted:
    blanks = len(text) - len(text.lstrip())
    first = text.split()[0]
    left, top = ((units / 250 + REACH) * 72 for units in (x, y))
    if not any(p == page and w == first and (blanks or abs(l - left) < tolerance) and t - 4 < top < b + 4
               for p, l, t, b, w in words):
        sys.exit(f"page {page}: the PDF lacks {text!r} at {left:.1f}, {top:.1f}")
print(len(wanted), "texts found at their places")
