#!/usr/bin/env bash
# Builds everything in one configuration: release by default.
set -euo pipefail
cd "$(dirname "$(realpath "$0")")/.."
preset=${1:-release}
cmake --preset "$preset" >/dev/null
cmake --build --preset "$preset"
