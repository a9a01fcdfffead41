"""compare_texts.py SHAPE TEXTS BOXES ROTATION: texts of a report file, as lines of page, x, y and text in
form units, against the words of the printed pages. The report's corner is where the printer can
begin to print, so all words are off by the same distance, which is short and never negative."""
import re
import sys

POINTS_PER_UNIT = 72 / 250
TOLERANCE = 1.5  # points
LONGEST_OFFSET = 40  # points

shape, texts, boxes, rotation = sys.argv[1:]
expected = []
for line in open(texts):
    page, x, y, text = line.split(maxsplit=3)
    expected.append((int(page), text.strip(), int(x) * POINTS_PER_UNIT, int(y) * POINTS_PER_UNIT))
found = []
page = 0
for line in open(boxes):
    if size := re.search(r'<page width="([\d.]+)" height="([\d.]+)"', line):
        page += 1
        width, height = float(size[1]), float(size[2])
        if rotation in ("90", "270"):  # the size is that of the paper before it is turned
            width, height = height, width
        wanted = (792, 612) if shape == "landscape" else (612, 792)
        assert (round(width), round(height)) == wanted, f"page {page} is {width} by {height}"
    elif word := re.search(r'xMin="([\d.]+)" yMin="([\d.]+)".*>(.*)</word>', line):
        found.append((page, word[3], float(word[1]), float(word[2])))
expected.sort()
found.sort()
assert [row[:2] for row in expected] == [row[:2] for row in found], (
    f"{shape}: the report draws {expected}\nthe printer {found}")
assert expected, "the report draws nothing"
for axis in (2, 3):
    offsets = [there[axis] - here[axis] for here, there in zip(expected, found)]
    assert max(offsets) - min(offsets) < TOLERANCE, f"{shape}: offsets {offsets}"
    assert -TOLERANCE < min(offsets) and max(offsets) < LONGEST_OFFSET, f"{shape}: {offsets}"
print(f"{shape}: {len(found)} texts on {page} pages stand where the report file has them")
