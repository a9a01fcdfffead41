#!/usr/bin/env bash
# readme_host.sh TESS ROOT: the host that the README shows compiles and makes the report that it
# says.
set -euo pipefail
tess=$1 root=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
run() { "$root/tools/runtime/run.sh" "$@" | tr -d '\r'; }
bin=$(dirname "$tess")
sed -n '/^```c$/,/^```$/{/^```/d;p}' "$root/README.md" >"$work/host.c"
i686-w64-mingw32-gcc -std=c11 -Wall -Wextra -Werror "$work/host.c" -I"$root/include" \
    -L"$bin/../lib" -ltessarine -o "$work/host.exe"
cp "$bin/tessarine.dll" "$work"
mkdir "$work/out"
run "$tess" form build "$root/samples/countries.json" "$work/out/countries.fp" >/dev/null
cd "$work"
run "$work/host.exe"
run "$tess" pages "$work/mine.frc" --text >texts
for text in "100" "1,000" "5,500"; do
    grep -q "$text" texts || {
        echo "the pages lack \"$text\""
        exit 1
    }
done
