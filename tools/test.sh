#!/usr/bin/env bash
# Builds and runs all tests; further arguments go to ctest.
set -euo pipefail
cd "$(dirname "$(realpath "$0")")/.."
preset=release
[ -z "${debug:-}" ] || preset=debug
[ -z "${sanitize:-}" ] || preset=sanitize
tools/build.sh "$preset" >&2
exec ctest --preset "$preset" "$@"
