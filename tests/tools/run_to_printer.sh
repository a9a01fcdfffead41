#!/usr/bin/env bash
# run_to_printer.sh TESS ROOT: the countries sample run straight to the printer, on the form's own
# paper and on others, has the pages, the paper and the texts of the same run to a file.
set -euo pipefail
tess=$1 root=$2
. "$root/tools/runtime/settings.sh"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
run() { "$root/tools/runtime/run.sh" "$tess" "$@" 2>"$work/errors" | tr -d '\r'; }

# job TITLE: the finished print job of that title.
job() {
    local file
    for _ in $(seq 1200); do
        for file in "$instances"/*/printing/jobs/*-"$1".pdf; do
            [ ! -e "$file" ] || {
                echo "$file"
                return
            }
        done
        sleep 0.05
    done
    echo "no job named $1 came" >&2
    return 1
}

# shape TITLE PAGES SIZE ROTATION OPTIONS...
shape() {
    local title=run-$$-$1 pages=$2 size=$3 rotation=$4 summary made
    shift 4
    sed "s/\"name\": \"Countries of the World\"/\"name\": \"$title\"/" \
        "$root/samples/countries.json" >"$work/c.json"
    run form build "$work/c.json" "$work/c.fp" >/dev/null
    run run --form "$work/c.fp" --data "$root/samples/countries.csv" --output "$work/c.frc" \
        --silent "$@"
    run pages "$work/c.frc" --text >"$work/texts"
    summary=$(run run --form "$work/c.fp" --data "$root/samples/countries.csv" --to printer "$@")
    [ "$summary" = "PDF: $pages pages printed from 85 records" ] || {
        echo "$title: $summary"
        exit 1
    }
    made=$(job "$title")
    pdfinfo "$made" >"$work/info"
    grep -q "^Pages: *$pages$" "$work/info" && grep -q "^Page size: *$size " "$work/info" &&
        grep -q "^Page rot: *$rotation$" "$work/info" || {
        cat "$work/info"
        exit 1
    }
    # aligned texts begin by the widths of the printer's fonts, not the display's
    pdftotext -bbox "$made" "$work/words"
    python3 "$root/tests/tools/pdf_has_texts.py" "$work/texts" "$work/words" 12
}
shape own 3 "612 x 792" 0
shape turned 5 "612 x 792" 90 --landscape
shape a4 3 "595 x 842" 0 --paper A4
shape a4turned 5 "595 x 842" 90 --printer pdf --paper a4 --landscape
