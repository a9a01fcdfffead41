#!/usr/bin/env bash
# run.sh PROGRAM ARGS...: runs a Windows program in the first free instance of the test runtime.
# Arguments and exit code pass through, absolute Linux paths are translated, stdout stays clean.
# A program has TESSARINE_TIMEOUT seconds (600, 0 for no limit); then it is ended with code 124.
# With TESSARINE_SHOW=1 its windows come to the caller's display.
set -euo pipefail
here=$(dirname "$(realpath "$0")")
INSTANCE_LIBRARY=1 . "$here/instance.sh"
[ $# -gt 0 ] || {
    echo "usage: run.sh PROGRAM ARGS..." >&2
    exit 2
}
program=$(realpath "$1" 2>/dev/null) && [ -f "$program" ] || {
    echo "run.sh: $1: no such program" >&2
    exit 127
}
shift

own_display=${DISPLAY:-}
own_authority=${XAUTHORITY:-$HOME/.Xauthority}

# The lock on an instance lives as long as the program.
pool=${TESSARINE_POOL:-4}
mkdir -p "$instances"
number=
for candidate in $(seq 0 $((pool - 1))); do
    exec {lock}>"$instances/use.$candidate"
    if flock -n "$lock"; then
        number=$candidate
        break
    fi
    exec {lock}>&-
done
if [ -z "$number" ]; then
    number=0
    exec {lock}>"$instances/use.0"
    flock "$lock"
fi
"$here/instance.sh" up "$number" {lock}>&- >&2 </dev/null
set_environment "$instances/$number"
[ "${TESSARINE_SHOW:-}" != 1 ] || export DISPLAY=$own_display XAUTHORITY=$own_authority

arguments=()
for argument in "$@"; do
    if [[ $argument == /?* ]] && { [ -e "$argument" ] || [ -d "$(dirname "$argument")" ]; }; then
        argument=Z:${argument//\//\\}
    fi
    arguments+=("$argument")
done
code=0
timeout -k 5 "${TESSARINE_TIMEOUT:-600}" "$wine" "$program" "${arguments[@]}" || code=$?
exit $code
