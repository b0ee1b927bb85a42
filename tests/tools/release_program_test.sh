#!/usr/bin/env bash
# The program as it is installed: hardened, and the same bytes whenever and in
# whatever folder it is built, once SOURCE_DATE_EPOCH fixes the date of its banner.
set -uo pipefail
cd "$(dirname "$0")/../.." || exit 1
. tests/tools/hardening.sh
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export SOURCE_DATE_EPOCH=1000000000 LC_ALL=C  # 9 September 2001, 01:46:40
status=0

# build <folder of the sources> <build folder> [<option of cmake>...]
build() {
    { cmake -S "$1" -B "$2" -G Ninja -DCMAKE_BUILD_TYPE=Release -DVORN_TESTS=OFF "${@:3}" &&
        cmake --build "$2" --target "${target:-vorn}"; } >"$work/log" 2>&1 && return
    cat "$work/log"
    exit 1
}

# holds <what it is> <pattern> <file>
holds() {
    grep -qE -- "$2" "$3" && return
    echo "Not found: $1 ($2)"
    status=1
}

build . "$work/first"
program=$work/first/vorn
hardening_missing "$program" || status=1

# Nothing of a cache here: each object is compiled a second time, elsewhere.
mkdir -p "$work/elsewhere/deeper"
tar -c --exclude=./build --exclude=./.git . | tar -x -C "$work/elsewhere/deeper" || exit 1
CCACHE_DISABLE=1 build "$work/elsewhere/deeper" "$work/elsewhere/second"
cmp "$program" "$work/elsewhere/second/vorn" || status=1

echo 'i1 = 3 0 1 { p2 1 p3 1 }' >"$work/in.vorn"
"$program" "$work/in.vorn" "$work/out.sco" 2>"$work/banner" || status=1
holds "the date that was given" '^Vorn \([0-9.]+, Sep  9 2001, 01:46:40\)$' "$work/banner"

# Some versions of Clang do not look at the variable: there the build does.
if command -v clang++ >/dev/null; then
    target=CMakeFiles/vorn_core.dir/src/driver/banner.cpp.o
    CCACHE_DISABLE=1 build . "$work/clang" -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_COMPILER=clang++
    holds "the day in Clang's object" 'Sep  9 2001' "$work/clang/$target"
    holds "the time in Clang's object" '01:46:40' "$work/clang/$target"
fi
exit $status
