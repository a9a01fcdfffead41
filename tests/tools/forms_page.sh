#!/usr/bin/env bash
# forms_page.sh TESS ROOT: the form and the table that the page on forms shows make the report that
# it promises.
set -euo pipefail
tess=$1 root=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
run() { "$root/tools/runtime/run.sh" "$tess" "$@" | tr -d '\r'; }
block() { sed -n "/^\`\`\`$1\$/,/^\`\`\`\$/{/^\`\`\`/d;p}" "$root/docs/forms.md"; }
block json >"$work/sales.json"
block csv >"$work/sales.csv"
run form build "$work/sales.json" "$work/sales.fp" >/dev/null
run run --form "$work/sales.fp" --data "$work/sales.csv" --output "$work/sales.frc" --silent
run pages "$work/sales.frc" --text | cut -f3 >"$work/texts"
diff "$work/texts" - <<'TEXTS'
page 1
North
03/01/2026
 1,200.50
 240.10
03/05/2026
 99.50
 19.90
 1,300.00
South
03/02/2026
 80.00
 16.00
 80.00
TEXTS
