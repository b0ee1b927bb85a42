# Clang 14 for WebAssembly with Debian's wasi-libc, libc++-14-dev-wasm32,
# libc++abi-14-dev-wasm32, libclang-rt-14-dev-wasm32 and lld-14. The stack is 1 MiB
# and placed first: one that runs over meets the end of memory rather than data. Bytes are
# moved at once and whole numbers widened in one step, as every browser can since 2021. Where
# wasm-opt is installed Clang would call it, but knows no way to tell it of these features:
# -O0, which links nothing differently, keeps it from that.
set(CMAKE_SYSTEM_NAME Generic)
set(CMAKE_SYSTEM_PROCESSOR wasm32)
set(CMAKE_CXX_COMPILER clang++-14)
set(CMAKE_CXX_COMPILER_TARGET wasm32-wasi)
set(CMAKE_EXECUTABLE_SUFFIX_CXX .wasm)
set(CMAKE_CXX_FLAGS_INIT "-fno-exceptions -mbulk-memory -msign-ext")
set(CMAKE_EXE_LINKER_FLAGS_INIT "-Wl,-z,stack-size=1048576 -Wl,--stack-first -O0")
set(VORN_HARDENING OFF CACHE BOOL "There is neither such a stack nor such a loader")
