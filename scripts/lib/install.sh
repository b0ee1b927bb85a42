# Sourced by the scripts: install_missing <Debian package>...
# Looks for what each package brings rather than for the package, so that a
# tool installed in another way counts too. Nothing missing: no call of apt-get.

# What building web/ takes, beside its packages that npm installs.
web_packages=(cmake ninja-build clang-14 lld-14 llvm-14 binaryen wasi-libc libc++-14-dev-wasm32 libc++abi-14-dev-wasm32
    libclang-rt-14-dev-wasm32 nlohmann-json3-dev libcli11-dev nodejs npm)
fuzz_packages=(cmake ninja-build clang libclang-rt-14-dev libcli11-dev nlohmann-json3-dev)

has_package() {
    case "$1" in
        ninja-build) command -v ninja ;;
        clang) command -v clang++ ;;
        libclang-rt-14-dev) compgen -G '/usr/lib/llvm-*/lib/clang/*/lib/linux/libclang_rt.fuzzer-*.a' ;;
        clang-14) command -v clang++-14 ;;
        lld-14) command -v wasm-ld-14 ;;
        llvm-14) command -v llvm-ar-14 ;;
        nodejs) command -v node ;;
        g++-*-linux-gnu) command -v "${1#g++-}-g++" ;;
        wine64) [ -x /usr/lib/wine/wine64 ] ;;
        g++-mingw-w64-x86-64-posix) command -v x86_64-w64-mingw32-g++-posix ;;
        qemu-user) command -v qemu-s390x ;;
        binaryen) command -v wasm-opt ;;
        wasi-libc) [ -e /usr/lib/wasm32-wasi/libc.a ] ;;
        libc++-14-dev-wasm32) [ -e /usr/lib/wasm32-wasi/libc++.a ] ;;
        libc++abi-14-dev-wasm32) [ -e /usr/lib/wasm32-wasi/libc++abi.a ] ;;
        libclang-rt-14-dev-wasm32) compgen -G '/usr/lib/llvm-14/lib/clang/*/lib/wasi/*.a' ;;
        libgtest-dev) compgen -G '/usr/include/gtest/gtest.h' || compgen -G '/usr/local/include/gtest/gtest.h' ;;
        libbenchmark-dev) compgen -G '/usr*/include/benchmark/benchmark.h' ;;
        libcli11-dev) [ -f /usr/include/CLI/CLI.hpp ] ;;
        nlohmann-json3-dev) [ -f /usr/include/nlohmann/json.hpp ] ;;
        dpkg-dev) command -v dpkg-shlibdeps ;;
        librsvg2-bin) command -v rsvg-convert ;;
        timgm6mb-soundfont) [ -f /usr/share/sounds/sf2/TimGM6mb.sf2 ] ;;
        vim-nox) command -v vim ;;
        emacs-nox) command -v emacs ;;
        bash-completion) [ -f /usr/share/bash-completion/bash_completion ] ;;
        hunspell-en-gb) [ -e /usr/share/hunspell/en_GB.dic ] ;;
        python3) [ -x /usr/bin/python3 ] ;;  # Debian's own: its packages are seen by no other
        python3-jsonschema) /usr/bin/python3 -c 'import jsonschema' ;;
        python3-pandas) /usr/bin/python3 -c 'import pandas' ;;
        python3-mido) /usr/bin/python3 -c 'import mido' ;;
        *) command -v "$1" ;;
    esac >/dev/null 2>&1
}

install_missing() {
    local missing=() package as_root=()
    for package in "$@"; do
        [[ " ${missing[*]} " == *" $package "* ]] || has_package "$package" || missing+=("$package")
    done
    [ ${#missing[@]} -eq 0 ] && return 0
    [ "$(id -u)" -eq 0 ] || as_root=(sudo)
    if ! command -v apt-get >/dev/null || ! command -v "${as_root[0]:-apt-get}" >/dev/null; then
        echo "Missing here: ${missing[*]} (names of Debian packages)." >&2
        echo "Install them, for example as root with: apt-get install ${missing[*]}" >&2
        return 1
    fi
    echo "Installing ${missing[*]}"
    "${as_root[@]}" apt-get update -qq || echo "apt-get update failed; trying with the lists that are there" >&2
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null && return 0
    echo "Could not install them. Try as root: apt-get install ${missing[*]}" >&2
    return 1
}
