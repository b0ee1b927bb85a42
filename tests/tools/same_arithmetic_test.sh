#!/usr/bin/env bash
# What makes arithmetic the same on every machine: options under which scores would
# differ do not compile, and the compiler says why, or CMake does; every source of the library is
# compiled without fused multiplications; and no function that C libraries round
# differently is taken from one, by the library or by the kit where it is built.
set -uo pipefail
cd "$(dirname "$0")/../.." || exit 1
library=${VORN_LIBRARY:?names libvorn_core.a}
compiler=${CXX:-c++}
status=0

compile() {
    "$compiler" -std=c++20 -fsyntax-only -Isrc "$@" src/generators/arithmetic.cpp 2>&1
}

compile -O2 || { echo "$compiler does not compile the source at all"; exit 1; }

# The older unit of 32-bit x86 is asked for where there is one.
refused="-ffast-math -Ofast -ffinite-math-only"
"$compiler" -mfpmath=387 -fsyntax-only -x c++ /dev/null 2>/dev/null && refused+=" -mfpmath=387"
for option in $refused; do
    if said=$(compile "$option"); then
        echo "$option compiles"
        status=1
    elif ! grep -q 'error.*Scores would differ' <<<"$said"; then
        printf '%s does not say why:\n%s\n' "$option" "$said"
        status=1
    fi
done

# CMake refuses these before anything is compiled, announced to a source or not.
configured=$(mktemp -d)
trap 'rm -rf "$configured"' EXIT

# refused_by_cmake <option> <argument of cmake>...
refused_by_cmake() {
    local said
    rm -rf "$configured"
    said=$(cmake -S . -B "$configured" -G Ninja -DVORN_TESTS=OFF "${@:2}" 2>&1) &&
        { echo "configured: ${*:2}"; status=1; }
    grep -qe "Scores would differ: $1" <<<"$said" || { printf '%s is not told:\n%s\n' "$1" "$said"; status=1; }
}

for option in -Ofast -ffast-math -funsafe-math-optimizations -fassociative-math -freciprocal-math -fno-signed-zeros; do
    refused_by_cmake "$option" "-DCMAKE_CXX_FLAGS=-O1 $option"
done
refused_by_cmake -ffast-math -DCMAKE_EXE_LINKER_FLAGS=-ffast-math
CXX="$compiler -funsafe-math-optimizations" refused_by_cmake -funsafe-math-optimizations
if command -v g++ >/dev/null; then
    refused_by_cmake -fsingle-precision-constant -DCMAKE_CXX_COMPILER=g++ -DCMAKE_CXX_FLAGS=-fsingle-precision-constant
fi
if command -v clang++ >/dev/null; then
    for option in -fapprox-func -fno-honor-nans -fno-honor-infinities -fdenormal-fp-math=preserve-sign; do
        refused_by_cmake "$option" -DCMAKE_CXX_COMPILER=clang++ "-DCMAKE_CXX_FLAGS=$option"
    done
fi

commands=$(grep -E '"command":.*/(src|third_party|kit)/' "$(dirname "$library")/compile_commands.json")
[ -n "$commands" ] || { echo "no compile commands beside $library"; exit 1; }
if grep -v -e '-ffp-contract=off' <<<"$commands"; then
    echo "compiled without -ffp-contract=off"
    status=1
fi

for archive in "$library" "$(dirname "$library")/libvorn_kit.a"; do
    [ "$archive" = "$library" ] || [ -e "$archive" ] || continue
    symbols=$(nm -A -u "$archive" 2>/dev/null)
    [ -n "$symbols" ] || { echo "no symbols in $archive"; exit 1; }
    if grep -E ' U (log|log2|log10|log1p|exp|exp2|expm1|pow|sin|cos|tan|asin|acos|atan|atan2|sinh|cosh|tanh|hypot|cbrt)[fl]?$' \
        <<<"$symbols"; then
        echo "taken from the platform: use <musl/portable_math.h>"
        status=1
    fi
done
exit $status
