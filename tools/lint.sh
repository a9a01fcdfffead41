#!/usr/bin/env bash
# Formatting, static analysis, the words that must not stand in the project and the order of its rooms.
set -euo pipefail
cd "$(dirname "$(realpath "$0")")/.."
mapfile -t sources < <(git ls-files '*.cpp' '*.h' '*.c')
clang-format --dry-run -Werror "${sources[@]}"
cppcheck --quiet --platform=win32A --std=c++20 --language=c++ --inline-suppr \
    --enable=warning,performance,portability --suppressions-list=tools/cppcheck.txt \
    --error-exitcode=1 -j2 -I. -Iinclude -Iresources $(git ls-files '*.cpp' | grep -v '^tests/')
tools/check_words.sh
tools/check_house
echo "lint: ${#sources[@]} files are clean"
