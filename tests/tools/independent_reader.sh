#!/usr/bin/env bash
# independent_reader.sh TESS ROOT: a page of the countries sample, cut out of its report by the page
# table, is opened by a metafile reader that is none of ours, and shows the values of its fields.
set -euo pipefail
tess=$1 root=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
run() { "$root/tools/runtime/run.sh" "$tess" "$@" >/dev/null 2>&1; }
run form build "$root/samples/countries.json" "$work/countries.fp"
run run --form "$work/countries.fp" --data "$root/samples/countries.csv" --output "$work/countries.frc"
python3 - "$work/countries.frc" "$work/page.wmf" <<'PYTHON'
import struct, sys
report = open(sys.argv[1], "rb").read()
count, table = struct.unpack_from("<ii", report, 56)
offsets = struct.unpack_from(f"<{count + 1}I", report, table)
open(sys.argv[2], "wb").write(report[offsets[0]:offsets[1]])
PYTHON
wmf2svg -o "$work/page.svg" "$work/page.wmf"
for text in "Ethiopia" "Addis Ababa" "396,536" "1,052,034"; do
    grep -q "$text" "$work/page.svg" || {
        echo "the page shows no \"$text\""
        exit 1
    }
done
echo "$(grep -c '<text' "$work/page.svg") texts found"
