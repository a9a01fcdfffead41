#!/usr/bin/env bash
# full_disk.sh TESS ROOT: no file may grow beyond a size, as on a disk that is full. A run then tells
# what it could not write, and an earlier report stays as it was.
set -euo pipefail
tess=$1 root=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
run() { "$root/tools/runtime/run.sh" "$tess" "$@" 2>&1 | tr -d '\r'; }
report() {
    run run --form "$work/countries.fp" --data "$root/samples/countries.csv" --output "$work/countries.frc"
}
run form build "$root/samples/countries.json" "$work/countries.fp" >/dev/null
report >/dev/null
cp "$work/countries.frc" "$work/earlier.frc"
table=$(python3 -c 'import struct, sys
print(struct.unpack_from("<i", open(sys.argv[1], "rb").read(), 60)[0])' "$work/countries.frc")

# limit BYTES TEXT: a run under the limit fails with the text and leaves the earlier report alone.
limit() {
    local output code=0
    output=$(trap '' XFSZ && prlimit --pid $BASHPID --fsize="$1" && report) || code=$?
    [ $code -ne 0 ] && [[ $output == *"$2"* ]] || {
        echo "at $1 bytes: code $code, expected \"$2\", but: $output"
        exit 1
    }
    cmp "$work/countries.frc" "$work/earlier.frc"
    ! compgen -G "$work/*.part*" >/dev/null || {
        echo "at $1 bytes a part of a report is left"
        exit 1
    }
}
# small BYTES FILE ARGS...: a command that makes a file fails under the limit and leaves the earlier
# one alone.
small() {
    local output code=0 bytes=$1 file=$work/$2
    shift 2
    echo earlier >"$file"
    output=$(trap '' XFSZ && prlimit --pid $BASHPID --fsize="$bytes" && run "$@" "$file") || code=$?
    [ $code -ne 0 ] && [[ $output == *"can't be written: "* ]] || {
        echo "$*: code $code, but: $output"
        exit 1
    }
    [ "$(<"$file")" = earlier ] && ! compgen -G "$file.*" >/dev/null || {
        echo "$*: the earlier file is gone, or a part of the new one is left"
        exit 1
    }
}
small 1000 made.fp form build "$root/samples/countries.json"
small 1000 made.json form dump "$work/countries.fp"
limit 0 "Error writing to the output file(WriteEmptyHeader)"
limit 4000 "Error Copying Meta File(TransferMetaFile)"
limit $((table - 100)) "Error writing the output file(CopyFileData a)"
limit $((table + 2)) "Error writing the output file(WriteOutputHdrFtr a)"
echo "six full disks told"
