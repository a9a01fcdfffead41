#!/usr/bin/env bash
# fuzz.sh [MINUTES] [--kinds LIST] [--seed N]: drives changed inputs of every kind through the
# library for so long. What crashes or hangs leaves its input in tests/data/, where a test runs it.
# fuzz.sh --replay FILES...: runs inputs again.
set -uo pipefail
cd "$(dirname "$(realpath "$0")")/.."
kinds=form,report,pages,expression,json,csv,bitmap,walk
minutes=10 seed=$(date +%s) left=${TESSARINE_FINDINGS:-tests/data} replay=()
while [ $# -gt 0 ]; do
    case $1 in
    --kinds) kinds=$2 && shift ;;
    --seed) seed=$2 && shift ;;
    --replay) replay=("${@:2}") && break ;;
    [0-9]*) minutes=$1 ;;
    *)
        echo "usage: ./dev fuzz [MINUTES] [--kinds $kinds] [--seed N] | --replay FILES..." >&2
        exit 2
        ;;
    esac
    shift
done
tools/build.sh fuzz >&2 || exit 1
root=$(pwd)
# Boxes and findings; what the runtime itself says of its devices is no news.
fuzz() {
    TESSARINE_TIMEOUT=0 tools/runtime/run.sh build/win32-fuzz/bin/fuzz.exe "$root" "$@" \
        2> >(grep -v '^wine: ' >&2) | tr -d '\r'
    return "${PIPESTATUS[0]}"
}
if [ ${#replay[@]} -gt 0 ]; then
    files=()
    for file in "${replay[@]}"; do files+=("$(realpath "$file")"); done
    fuzz --replay "${files[@]}" | tools/routine_names build/win32-fuzz/bin
    exit "${PIPESTATUS[0]}"
fi
mkdir -p "$left"
IFS=, read -ra names <<<"$kinds"
declare -A places=()
for kind in "${names[@]}"; do
    end=$(($(date +%s) + minutes * 60 / ${#names[@]}))
    while [ "$(date +%s)" -lt "$end" ]; do
        log=$(fuzz --kind "$kind" --seed "$seed" --seconds $((end - $(date +%s))) \
            --left "$(realpath "$left")") && echo "$log" && break
        seed=$((seed + 1))
        input=$(sed -n 's/^left: //p' <<<"$log")
        place=$kind$(sed -n 's/^at//p' <<<"$log" | grep -oE ' (tessarine.dll|fuzz.exe)[^ ]*' | head -n 2)
        if [ -n "${places[$place]:-}" ]; then
            rm -f "$left/$input" # one input a place will do
            continue
        fi
        places[$place]=$input
        tools/routine_names build/win32-fuzz/bin <<<"$log"
        echo "again with: ./dev fuzz --replay $left/$input"
    done
done
[ ${#places[@]} = 0 ] || echo "fuzz: ${#places[@]} findings in $left" >&2
[ ${#places[@]} = 0 ]
