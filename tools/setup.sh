#!/usr/bin/env bash
# Installs everything that building and testing need. Quick when it is there already.
set -euo pipefail
cd "$(dirname "$(realpath "$0")")/.."
. tools/runtime/settings.sh

packages=(
    g++-mingw-w64-i686-posix mingw-w64-tools cmake ninja-build googletest python3
    xvfb cups-daemon ghostscript patchelf poppler-utils libwmf-bin imagemagick
    clang-format cppcheck nlohmann-json3-dev libcli11-dev libstb-dev xz-utils
)
programs=(i686-w64-mingw32-g++-posix cmake ninja Xvfb gs patchelf clang-format cppcheck
    pdftotext wmf2svg python3)

complete() {
    local program
    for program in "${programs[@]}"; do command -v "$program" >/dev/null || return 1; done
    [ -x /usr/sbin/cupsd ] && [ -d /usr/src/googletest ] &&
        [ -f /usr/include/nlohmann/json.hpp ] && [ -f /usr/include/CLI/CLI.hpp ] &&
        [ -f /usr/include/stb/stb_image_write.h ]
}

if ! complete; then
    echo "installing packages..." >&2
    export DEBIAN_FRONTEND=noninteractive
    as_root=()
    [ "$(id -u)" = 0 ] || as_root=(sudo)
    "${as_root[@]}" apt-get update -qq
    "${as_root[@]}" apt-get install -y -qq --no-install-recommends "${packages[@]}" >&2
    complete || {
        echo "setup: packages are missing although they were installed: ${packages[*]}" >&2
        exit 1
    }
fi
tools/fetch_sources.sh
tools/runtime/make_tree.sh
