# Debian's MinGW-w64 for 64-bit Windows (g++-mingw-w64-x86-64). The program needs no
# library beside Windows' own.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static")
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(VORN_HARDENING OFF CACHE BOOL "Windows has other means")
