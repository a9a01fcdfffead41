#!/usr/bin/env bash
# import_library.sh DEF OUT OBJECTS...: an import library in which the plain names of DEF bear the
# decoration that the routines of OBJECTS have.
set -euo pipefail
def=$1 out=$2
shift 2
list=$(mktemp)
trap 'rm -f "$list"' EXIT
{
    echo "LIBRARY tessarine.dll"
    echo EXPORTS
    i686-w64-mingw32-nm -g "$@" | sed -n 's/^[0-9a-f]* T _\([A-Za-z0-9_]*@[0-9]*\)$/\1/p' |
        while read -r name; do
            if grep -qxE "\s*${name%@*}\s*" "$def"; then echo "  $name"; fi
        done
} >"$list"
i686-w64-mingw32-dlltool --kill-at -d "$list" -D tessarine.dll -l "$out"
