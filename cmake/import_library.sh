#!/usr/bin/env bash
# import_library.sh DEF OBJECT OUT: an import library in which the plain names of DEF bear the
# decoration that OBJECT's routines have.
set -euo pipefail
def=$1 object=$2 out=$3
list=$(mktemp)
trap 'rm -f "$list"' EXIT
{
    echo "LIBRARY tessarine.dll"
    echo EXPORTS
    i686-w64-mingw32-nm -g "$object" | sed -n 's/^[0-9a-f]* T _\([A-Za-z0-9_]*@[0-9]*\)$/\1/p' |
        while read -r name; do
            if grep -qxE "\s*${name%@*}\s*" "$def"; then echo "  $name"; fi
        done
} >"$list"
i686-w64-mingw32-dlltool --kill-at -d "$list" -D tessarine.dll -l "$out"
