#!/usr/bin/env bash
# replayed_inputs.sh FUZZ ROOT: every input of tests/data, each of which once broke something or
# nearly did, runs to its end; and the fuzzer would notice if one didn't.
set -euo pipefail
fuzz=$1 root=$2
"$root/tools/runtime/run.sh" "$fuzz" "$root" --break >/dev/null && code=0 || code=$?
[ "$code" = 99 ] || { echo "replayed_inputs.sh: writing past a block ended with $code" >&2; exit 1; }
cd "$root/tests/data"
"$root/tools/runtime/run.sh" "$fuzz" "$root" --replay * | tr -d '\r' | diff - <(printf '%s\n' *)
