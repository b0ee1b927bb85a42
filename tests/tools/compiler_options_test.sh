#!/usr/bin/env bash
# Options under which scores would differ between machines do not compile, and the
# compiler says why. The older unit of 32-bit x86 is asked for where there is one.
set -uo pipefail
cd "$(dirname "$0")/../.." || exit 1
compiler=${CXX:-c++}
status=0

compile() {
    "$compiler" -std=c++20 -fsyntax-only -Isrc "$@" src/generators/arithmetic.cpp 2>&1
}

compile -O2 || { echo "$compiler does not compile the source at all"; exit 1; }

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
exit $status
