#!/usr/bin/env bash
# Every variable of the library that can be written stands in
# docs/development/program_variables.md with the header that declares it, and nothing else does.
set -uo pipefail
cd "$(dirname "$0")/../.." || exit 1
library=${VORN_LIBRARY:?names libvorn_core.a}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
status=0

# "<name> <source>" of all writable symbols. What only the loader writes
# (.data.rel.ro: tables of addresses) is constant to us.
nm -C -A -f sysv --defined-only "$library" | awk -F'|' '
    $NF ~ /^\.(data|bss|tdata|tbss)/ && $NF !~ /^\.data\.rel\.ro/ && $4 !~ /SECTION/ {
        object = $1
        sub(/\.cpp\.o:.*/, "", object)
        sub(/.*:/, "", object)
        name = $1
        sub(/.*\.o:/, "", name)
        sub(/ +$/, "", name)
        sub(/^vorn::/, "", name)
        print name, object
    }' | sort >"$work/found"

# The same of the document: rows "| `NAME` | `folder/file.h` | writers |".
sed -nE 's/^\| `([^`]+)` \| `[a-z]+\/([a-z0-9_]+)\.(h|cpp)` \| .+ \|$/\1 \2/p' \
    docs/development/program_variables.md | sort >"$work/told"

[ -s "$work/found" ] || { echo "no variables found in $library"; exit 1; }
if ! diff --label docs/development/program_variables.md --label "$library" -u0 \
    "$work/told" "$work/found"; then
    echo "The document and the library differ (-: only told, +: only found)."
    status=1
fi

# One declaration for each, in the header that the row names; a name in
# parentheses belongs to its source alone and is declared nowhere.
while read -r line; do
    name=${line% *}
    owner=${line##* }
    [[ $name == "(anonymous namespace)"* ]] && continue
    declared=$(grep -rlE --include='*.h' "^extern [^/]*\b$name\b" src)
    row=$(grep -F "| \`$name\` |" docs/development/program_variables.md | cut -d'`' -f4)
    if [ "$declared" != "src/$row" ]; then
        echo "$name ($owner): told to be declared in $row, found in: ${declared:-no header}"
        status=1
    fi
done <"$work/found"

if grep -rnE --include='*.cpp' '^ *extern [^"]' src; then
    echo "Sources declare what a header should."
    status=1
fi
exit $status
