#!/usr/bin/env bash
# 256 KiB of stack are enough for every case, and for scores that nest what can be nested
# as deeply as it can: no text asks for more.
set -euo pipefail
cd "$(dirname "$0")/../.."
program=${VORN_PROGRAM:?names the built program}
stack=${1:-256} # KiB
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

thousand() { printf "$1\n%.0s" {1..1000}; }

make_deep_scores() {
    local at
    mkdir -p "$work/macros" "$work/includes" "$work/conditions" "$work/comments"
    {
        echo '#define M1 #1#'
        for ((at = 2; at < 200; ++at)); do echo "#define M$at #\$M$((at - 1))#"; done
        echo "i1 = 4 0 4 {p2 1 p3 1 p4 ~[\$M$((at - 1)) + 1]}"
    } >"$work/macros/in.vorn"
    echo '#include |1.inc|' >"$work/includes/in.vorn"
    for ((at = 1; at < 11; ++at)); do echo "#include |$((at + 1)).inc|" >"$work/includes/$at.inc"; done
    echo 'i1 = 4 0 4 {p2 1 p3 1 p4 ~[1 + 1]}' >"$work/one.vorn"
    cp "$work/one.vorn" "$work/includes/11.inc"
    { thousand '#if(1)'; cat "$work/one.vorn"; thousand '#endif'; } >"$work/conditions/in.vorn"
    { thousand '/*'; thousand '*/'; cat "$work/one.vorn"; } >"$work/comments/in.vorn"
}

# run <folder>: its arguments may hold quotes; xargs ends with 125 after a signal, with 123 after status 1.
run() {
    local arguments=$1/args expected=0 status=0
    [ -e "$arguments" ] || { arguments=$work/arguments && echo in.vorn out.sco >"$arguments"; }
    [ ! -e "$1/expected.status" ] || [ "$(cat "$1/expected.status")" = 0 ] || expected=123
    rm -rf "$work/run" && cp -rL "$1" "$work/run"
    (cd "$work/run" && ulimit -c 0 -s "$stack" && xargs "$program" <"$arguments" >/dev/null 2>&1) || status=$?
    [ "$status" -eq "$expected" ] || { echo "$1: $status, not $expected" >&2; exit 1; }
}

make_deep_scores
for name in macros includes conditions comments; do
    run "$work/$name"
    [ "$(grep -c '  2.000 *$' "$work/run/out.sco")" -eq 4 ] || { echo "$name: no such score" >&2; exit 1; }
done
for folder in "$PWD"/tests/cases/*/*/; do run "${folder%/}"; done
