#!/usr/bin/env bash
# The corpus of each fuzzer stays within what the tests have time for: some_files chooses evenly by size.
# What showed a fault lies beside it, where a merge leaves it alone.
set -euo pipefail
cd "$(dirname "$0")/../.."
. scripts/lib/some_files.sh

folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
for size in 1 2 3 4 5 6 7 8 9 10; do head -c "$size" /dev/zero >"$folder/of $size"; done

expect() {
    [ "$1" = "$2" ] && return
    printf 'expected: %s\nfound: %s\n' "$1" "$2" >&2
    exit 1
}
chosen() { some_files "$folder" "$1" | sed 's/.* //' | tr '\n' ' '; }
expect "1 2 3 4 5 6 7 8 9 10 " "$(chosen 10)"
expect "1 2 3 4 5 6 7 8 9 10 " "$(chosen 11)"
expect "1 3 5 7 9 " "$(chosen 5)"
expect "1 4 7 " "$(chosen 3)"
expect "" "$(chosen 0)"

# Each fuzzer has a limit, and what is kept lies within it.
eval "$(grep '^declare -A most=' scripts/fuzz)"
for name in $(scripts/fuzz names); do
    count=$(find "fuzz/corpus/$name" -type f | wc -l)
    if [ "$count" -gt "${most[$name]:-0}" ]; then
        echo "fuzz/corpus/$name has $count inputs, more than ${most[$name]:-0}: scripts/fuzz merge" >&2
        exit 1
    fi
done

# A merge chooses the corpus anew, here from a run that reached something with one input, and leaves what was found.
expect "$(scripts/fuzz names | grep -Fx -f <(ls fuzz/found))" "$(ls fuzz/found)"
eval "$(sed -n '/^merge() {/,/^}/p' scripts/fuzz)"
fuzzers=(drawn_score)
work=$folder/work
mkdir -p "$folder/build/fuzz/fuzz" "$folder/fuzz"
cp -r fuzz/corpus fuzz/found "$folder/fuzz"
printf '#!/bin/sh\n: >"$4/reached"\n' >"$folder/build/fuzz/fuzz/fuzz_drawn_score"
chmod +x "$folder/build/fuzz/fuzz/fuzz_drawn_score"
(cd "$folder" && merge >/dev/null)
expect "reached" "$(ls "$folder/fuzz/corpus/drawn_score")"
expect "$(ls fuzz/found/drawn_score)" "$(ls "$folder/fuzz/found/drawn_score")"
[ -e "$folder/fuzz/found/drawn_score/8b9fe9813195e5fcfaafdb60b15fa0dc7f3455d8" ]

# A run does not take the last one's faults for its own, nor lose them.
eval "$(sed -n '/^run_all() {/,/^}/p' scripts/fuzz)"
run_one() { find "$found" -type f; }
found=$folder/found
found_before=$folder/found_before
mkdir -p "$found/drawn_score"
: >"$found/drawn_score/crash-1"
expect "" "$(run_all 1)"
expect "crash-1" "$(ls "$found_before")"
