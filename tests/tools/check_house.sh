#!/usr/bin/env bash
# check_house.sh ROOT: the check of the house tells each kind of mistake and lets a sound tree pass.
set -euo pipefail
root=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
git -C "$work" init -q
mkdir -p "$work"/{include,state,form,run,host/data,host/tess,tests/run,tests/support}

# What check_house says of the tree, without line numbers, must be these lines.
expect() {
    "$root/tools/check_house" "$work" 2>"$work/said" && code=0 || code=$?
    sed -e '/^check_house: /d' -e 's/^[^ ]*: //' "$work/said" | sort >"$work/lines"
    if ! diff "$work/lines" <(sort); then
        echo "check_house.sh: $1" >&2
        exit 1
    fi
    [ "$code" = "$([ -s "$work/lines" ] && echo 1 || echo 0)" ]
}
put() { cat >"$work/$1"; }

put include/tessarine.h <<'C'
extern "C" int Exported(int number);
C
put state/record.h <<'C'
struct Record { int number; };
C
put form/reader.h <<'C'
#include "state/record.h"
#include "tessarine.h"
namespace rooms {
int Read(Record *record, int (*call)(int));
template <typename T> T Twice(T value) { return value + value; }
struct Reader {
    Reader();
    bool operator==(const Reader &other) const;
    int number, more;
};
class Writer;
} // namespace rooms
C
put form/reader.cpp <<'C'
#include "form/reader.h"
#define SPREAD(a) { \
    a
namespace rooms {
namespace {
struct Local { int Size() const { return '{'; } };
int Hidden() { return 1; }
} // namespace
static int AlsoHidden() { return Local{}.Size() + Hidden(); }
const char *const text = R"(void Text() {)"; // void Comment() {
const int numbers[] = {AlsoHidden(), [] { return 2; }()};
int Read(Record *, int (*call)(int)) { return call(numbers[0]); }
Reader::Reader() : number(1), more{2} { ++number; }
bool Reader::operator==(const Reader &) const { return true; }
class Own { void Call(); };
void Own::Call() {}
} // namespace rooms
extern "C" int Exported(int number) { return number; }
int main() { return 0; }
C
put run/run.cpp <<'C'
#include "form/reader.h"
C
put host/data/table.h <<'C'
#include "tessarine.h"
C
put host/tess/main.cpp <<'C'
#include "host/data/table.h"
C
put tests/run/run_test.cpp <<'C'
#include "form/reader.h"
#include "host/data/table.h"
void Helper() {}
C
put tests/support/driver.h <<'C'
void Drive();
C
put tests/support/driver.cpp <<'C'
#include "tests/support/driver.h"
void Drive() {}
C
put tests/support/driver_test.cpp <<'C'
TEST_F(Driver, Drives) {}
C
expect 'a sound tree must pass' </dev/null

put form/extra.cpp <<'C'
#include "run/run.h"
namespace rooms {
int Undeclared() { return 1; }
int Writer::Write() { return 2; }
template <typename T> T Generic(T value) { return value; }
} // namespace rooms
extern "C" int Unpublished() { return 3; }
C
put run/run.h <<'C'
C
put tests/support/undriven.cpp <<'C'
void Undriven() {}
C
put host/data/table.h <<'C'
#include "form/reader.h"
#include "host/tess/words.h"
C
put host/tess/words.h <<'C'
#include "host/data/table.h"
C
{
    echo 'void Sixty() {'
    for _ in $(seq 58); do echo; done
    echo '}'
    echo 'struct Long { void SixtyOne() {'
    for _ in $(seq 59); do echo; done
    echo '} };'
} >"$work/tests/run/long_test.cpp"
for _ in $(seq 500); do echo '//'; done >"$work/tests/run/five_hundred.h"
for _ in $(seq 501); do echo '//'; done >"$work/tests/run/longer.h"
expect 'each kind of mistake must be told' <<'SAID'
upward form/extra.cpp run/run.h
undeclared form/extra.cpp Undeclared
undeclared form/extra.cpp Writer::Write
undeclared form/extra.cpp Generic
undeclared form/extra.cpp Unpublished
undeclared tests/support/undriven.cpp Undriven
upward host/data/table.h form/reader.h
upward host/data/table.h host/tess/words.h
circle host/data/table.h host/tess/words.h
file tests/run/longer.h
routine tests/run/long_test.cpp SixtyOne
SAID
