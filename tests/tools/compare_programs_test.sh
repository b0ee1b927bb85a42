#!/usr/bin/env bash
# The comparison of builds passes one that leaves the same and names the case of
# one that leaves another byte, another status or another message. One that did not
# begin is run again.
set -uo pipefail
cd "$(dirname "$0")/../.." || exit 1
program=${VORN_PROGRAM:?names the built program}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
status=0

mkdir -p "$work/cases/some/plain" "$work/cases/some/refused"
echo 'i1 = 3 0 4 { p2 re 1 p3 ra(4 1 [1 2]) }' >"$work/cases/some/plain/in.vorn"
echo 'i1 = 3 0 4 { p2 re 1 ' >"$work/cases/some/refused/in.vorn"
echo '-l "a log" in.vorn out.sco' >"$work/cases/some/refused/args"

# twin <name> <command behind the run>: a program that differs in that
twin() {
    printf '#!/bin/sh\n"%s" "$@"\nended=$?\n%s\nexit $ended\n' "$program" "$2" >"$work/$1"
    chmod +x "$work/$1"
}
twin equal ':'
twin servant 'sleep 100 & echo $! >>"'"$work"'/servants"'
twin byte 'printf " " >>out.sco'
twin message '[ $ended -eq 0 ] || echo more >&2'
twin ended '[ $ended -eq 0 ] && ended=2'
twin file '[ $ended -eq 0 ] || : >left'
printf '#!/bin/sh\n[ -e "%s/begun" ] || { : >"%s/begun"; exit 1; }\nexec "%s" "$@"\n' \
    "$work" "$work" "$program" >"$work/late"
printf '#!/bin/sh\nexit 1\n' >"$work/silent"
chmod +x "$work/late" "$work/silent"

# row <twin> <status> <end of its line in the table>
row() {
    local told
    told=$(/usr/bin/python3 scripts/lib/compare_programs.py "$program" "$1=$work/$1" -- "$work/cases")
    [ $? -eq "$2" ] && grep -qE "^$1 +2 +$3$" <<<"$told" && return
    printf '%s: not "%s" with status %s but\n%s\n' "$1" "$3" "$2" "$told"
    status=1
}
row equal 0 '0 *'
row servant 0 '0 *'
xargs kill <"$work/servants" || { echo "the comparison has waited for what runs left behind"; status=1; }
row byte 1 '2  some/plain, some/refused'
row message 1 '1  some/refused'
row ended 1 '1  some/plain'
row file 1 '1  some/refused'
row late 0 '0 *'
row silent 1 '2  some/plain, some/refused'
exit $status
