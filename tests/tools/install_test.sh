#!/usr/bin/env bash
# What a script needs is installed as root or by sudo, in one call; who may not install is told what to
# install, each name once and in the first run, and nothing is asked for that is there.
set -uo pipefail
cd "$(dirname "$0")/../.." || exit 1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
status=0

fail() {
    echo "$*"
    status=1
}

# try <user id> <package>...: with nothing to call but what lies in $work/bin
try() {
    local user=$1
    shift
    printf '#!/bin/sh\necho %s\n' "$user" >"$work/bin/id"
    chmod +x "$work/bin/id"
    # shellcheck disable=SC2016
    PATH=$work/bin "$BASH" -c '. scripts/lib/install.sh; install_missing "$@"' try "$@" >"$work/said" 2>&1
}

# A program that writes down how it was called, and runs what it was called with if it is sudo.
stub() {
    # shellcheck disable=SC2016
    printf '#!/bin/sh\necho "%s $*" >>%s\n%s\n' "$1" "$work/calls" "$2" >"$work/bin/$1"
    chmod +x "$work/bin/$1"
}

mkdir "$work/bin"
ln -s "$(command -v env)" "$work/bin/env"
touch "$work/bin/there" && chmod +x "$work/bin/there"

try 1000 there || fail "something was asked for that is there"
[ ! -s "$work/said" ] || fail "it speaks when nothing is missing"
try 1000 there one two one && fail "no failure when packages cannot be installed"
grep -q 'apt-get install one two$' "$work/said" || { cat "$work/said"; fail "not told what to install"; }

stub apt-get ''
try 1000 one && fail "installed without leave"
[ ! -e "$work/calls" ] || fail "apt-get was called without leave"
try 0 there one two || fail "not installed as root"
[ "$(grep -c 'apt-get install .* one two$' "$work/calls")" -eq 1 ] || { cat "$work/calls"; fail "not in one call"; }
stub sudo '"$@"'
try 1000 one || fail "not installed by sudo"
grep -q '^sudo .*apt-get install .* one$' "$work/calls" || { cat "$work/calls"; fail "sudo was not asked"; }
stub apt-get 'exit 1'
try 0 one && fail "a failed installation is called done"
grep -q 'Try as root: apt-get install one$' "$work/said" || fail "not told what to try"

# All that a run of the tests takes is asked for at its begin: names of its later steps are in the first list.
try_test() { PATH=$work/bin "$BASH" scripts/test "$@" >"$work/said" 2>&1; }
rm "$work/bin/sudo"
ln -s "$(command -v dirname)" "$work/bin/dirname"
printf '#!/bin/sh\necho 1000\n' >"$work/bin/id"
try_test && fail "scripts/test runs without its tools"
for name in git ninja-build csound mount clang nodejs chromium; do
    grep -q "apt-get install .*\b$name\b" "$work/said" || fail "scripts/test does not ask for $name at once"
done
try_test core && fail "scripts/test core runs without its tools"
! grep -q chromium "$work/said" || fail "scripts/test core asks for a browser"
exit $status
