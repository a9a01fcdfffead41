#!/usr/bin/env bash
# mutate.sh ROOT: which changes ./dev mutate makes to a source, and which it leaves alone.
set -euo pipefail
root=$1
work=$(mktemp -d "$root/build/mutate-test.XXXXXX")
trap 'rm -rf "$work"' EXIT
cat >"$work/source.cpp" <<'CPP'
#include "number 1.h" // 2 + 3
#define SUM (4 + 5)
static_assert(sizeof(int) == 4);
/* true */ const char *text = "6 + 7", letter = '8';
void Work(int *count, bool known) {
    if (*count < 0x1f && !known) Stop(count);
    std::vector<int> list;
    list.push_back(*count);
    for (; *count > 1.5f; ++*count) known = true;
}
CPP
"$root/tools/mutate" --list --files "$work/source.cpp" | sed 's/^.*source\.cpp:/:/' | diff - <(
    cat <<'CHANGES'
:6: if (*count < 0x1f && !known) -> if (!(*count < 0x1f && !known))
:6: if (*count < 0x1f && !known) -> if (true || (*count < 0x1f && !known))
:6: if (*count < 0x1f && !known) -> if (false && (*count < 0x1f && !known))
:6: < -> <=
:6: 0x1f -> 0x20
:6: 0x1f -> 0x1e
:6: && -> ||
:6: ! -> nothing
:6: Stop(count) -> static_cast<void>(0)
:8: list.push_back(*count) -> static_cast<void>(0)
:9: > -> >=
:9: 1.5f -> 2.5f
:9: ++ -> --
:9: true -> false
CHANGES
)
