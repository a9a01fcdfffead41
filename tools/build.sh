#!/usr/bin/env bash
# Builds everything in one configuration: release by default.
set -euo pipefail
cd "$(dirname "$(realpath "$0")")/.."
preset=${1:-release}
. tools/runtime/settings.sh
cmake --preset "$preset" -DTESSARINE_CSV_SOURCE="$csv_source" >/dev/null
cmake --build --preset "$preset"
