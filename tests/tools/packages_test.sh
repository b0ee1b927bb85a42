#!/usr/bin/env bash
# What is handed on, used as others would: the Debian package is clean to lintian, its
# programs and those for any Linux write the same; the sources build by themselves.
# With --bare (scripts/check packages) the package is also installed, used and removed in
# a bare root of Debian, which has to be fetched, and the program for any Linux runs there;
# the archive for Windows is made and used under Wine, that of the playground made.
set -uo pipefail
cd "$(dirname "$0")/../.." || exit 1
. tests/tools/hardening.sh
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
status=0

fail() {
    echo "$*"
    status=1
}

scripts/release deb static source >"$work/made" || { cat "$work/made"; exit 1; }
(cd build/packages && sha256sum --quiet -c SHA256SUMS) || fail "the sums are not those of the packages"
package=$(ls build/packages/vorn_*.deb)
lintian --fail-on error "$package" >"$work/lintian" 2>&1 || { cat "$work/lintian"; fail "lintian finds errors"; }

# Run in the bare root, whose only addition is the package.
cat >"$work/use" <<'E2'
set -e
apt-get install -qq --no-install-recommends -y ./vorn.deb >/dev/null
cd "$(mktemp -d)"
cp /usr/share/doc/vorn/examples/clockwork/clockwork.vorn .
vorn clockwork.vorn piece.sco 2>/dev/null
vorn -m /usr/share/doc/vorn/examples/midi_chorale/midi_chorale.vorn piece.mid 2>/dev/null
vornkit check clockwork.vorn
vornkit picture clockwork.vorn -o piece.svg
grep -q '^i' piece.sco && grep -q '</svg>' piece.svg && head -c 4 piece.mid | grep -q MThd
/portable/bin/vorn clockwork.vorn portable.sco 2>/dev/null
cmp piece.sco portable.sco
apt-get remove -qq -y vorn >/dev/null
! command -v vorn && ! command -v vornkit
[ -z "$(find / -xdev -name '*vorn*' -not -path '/proc/*' -not -path '/portable*' -not -path '/var/*' \
    -not -path '/tmp/*' -not -name vorn.deb)" ]
echo used and removed
E2
mkdir "$work/portable"
tar -xzf build/packages/vorn-*-linux-*.tar.gz -C "$work/portable" --strip-components=1 || fail "no archive for Linux"
if ldd "$work/portable/bin/vorn" 2>/dev/null | grep -q '=>'; then fail "the program for any Linux needs libraries"; fi
use_in_bare_root() {
    mmdebstrap --quiet --variant=apt \
        --customize-hook="cp $PWD/$package \"\$1/vorn.deb\" && cp -r $work/portable $work/use \"\$1/\"" \
        --customize-hook='chroot "$1" sh /use' bookworm /dev/null >"$work/bare" 2>&1
    grep -q 'used and removed' "$work/bare" || { tail -n 30 "$work/bare"; fail "not used in a bare root"; }
}

dpkg -x "$package" "$work/installed"
for program in vorn vornkit; do hardening_missing "$work/installed/usr/bin/$program" || status=1; done
score=$work/installed/usr/share/doc/vorn/examples/clockwork/clockwork.vorn
for program in "$work/installed/usr" "$work/portable"; do
    "$program/bin/vorn" "$score" "$work/piece.sco" 2>/dev/null || fail "$program/bin/vorn does not run"
    "$program/bin/vornkit" check "$score" 2>/dev/null || fail "$program/bin/vornkit does not run"
    [ -e "$work/first.sco" ] || cp "$work/piece.sco" "$work/first.sco"
    cmp "$work/first.sco" "$work/piece.sco" || status=1
done
use_under_wine() {
    scripts/release windows >"$work/made" || { cat "$work/made"; fail "no archive for Windows"; return; }
    unzip -q build/packages/vorn-*-windows-*.zip -d "$work/windows" && cp "$score" "$work/Glöckchen.vorn"
    (cd "$work" && WINEDEBUG=-all /usr/lib/wine/wine64 windows/*/bin/vorn.exe \
        Glöckchen.vorn Stück.sco >/dev/null 2>&1)
    cmp "$work/first.sco" "$work/Stück.sco" || fail "the program for Windows writes something else"
    VORN_PROGRAM=$work/installed/usr/bin/vorn tests/tools/windows_archive.py "$work"/windows/* ||
        fail "the archive for Windows does not do what docs/windows.md says"
}
if [ "${1:-}" = --bare ]; then
    use_in_bare_root
    use_under_wine
    scripts/release playground >"$work/made" || { cat "$work/made"; fail "no archive of the playground"; }
    unzip -l build/packages/vorn-*-playground.zip | grep -q ' index.html$' || fail "the playground has no page at its top"
fi

mkdir "$work/sources"
tar -xzf "build/packages/vorn-$(dpkg-deb -f "$package" Version).tar.gz" -C "$work/sources" --strip-components=1 || fail "no archive of the sources"
{ cmake -S "$work/sources" -B "$work/built" -G Ninja -DVORN_TESTS=OFF -DCMAKE_BUILD_TYPE=Release &&
    cmake --build "$work/built" --target vorn; } >"$work/built.log" 2>&1 || { cat "$work/built.log"; fail "no build"; }
exit $status
