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
    [ ! -e "$work/countries.frc.part" ] || {
        echo "at $1 bytes a part of a report is left"
        exit 1
    }
}
limit 0 "Error writing to the output file(WriteEmptyHeader)"
limit 4000 "Error Copying Meta File(TransferMetaFile)"
limit $((table - 100)) "Error writing the output file(CopyFileData a)"
limit $((table + 2)) "Error writing the output file(WriteOutputHdrFtr a)"
echo "four full disks told"
