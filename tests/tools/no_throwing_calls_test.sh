#!/usr/bin/env bash
# The library calls nothing that throws: of the C++ runtime it uses the forms of
# new that return null, delete, and what registers destructors. So running out of
# memory is always a result, never the end of the process.
set -uo pipefail
cd "$(dirname "$0")/../.." || exit 1
library=${VORN_LIBRARY:?names libvorn_core.a}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# Names of C++, of its runtime and of the unwinder; those of C begin otherwise.
nm -u "$library" | awk '$1 ~ /^[Uw]$/ { print $2 }' | grep -E '^((_Z|__cxa|__gxx|_Unwind)|(abort|exit|_exit|__assert_fail)$)' | sort -u >"$work/used"
nm --defined-only "$library" | awk 'NF == 3 { print $3 }' | sort -u >"$work/own"
[ -s "$work/own" ] || { echo "no symbols found in $library"; exit 1; }

comm -23 "$work/used" "$work/own" | c++filt | grep -vxE \
    'operator new(\[\])?\(unsigned (int|long), std::nothrow_t const&\)|operator delete(\[\])?\(void\*(, unsigned (int|long))?\)|std::nothrow|__cxa_atexit' \
    >"$work/foreign"
if [ -s "$work/foreign" ]; then
    echo "These may throw or end the process:"
    cat "$work/foreign"
    exit 1
fi
