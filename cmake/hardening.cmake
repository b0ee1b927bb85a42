# What makes a fault harder to use: the stack is guarded, addresses are drawn at
# each start, the tables of the loader are read-only before main begins, and calls
# of the C library know the size of what they fill. Sanitizers do such work themselves.

include(CheckCXXCompilerFlag)
include(CheckLinkerFlag)

# vorn_harden_compiler(<flag>...): each where the compiler knows it.
function(vorn_harden_compiler)
    foreach(flag ${ARGN})
        string(MAKE_C_IDENTIFIER "has${flag}" known)
        check_cxx_compiler_flag(${flag} ${known})
        target_compile_options(vorn_flags INTERFACE $<$<BOOL:${${known}}>:${flag}>)
    endforeach()
endfunction()

function(vorn_harden_linker)
    foreach(flag ${ARGN})
        string(MAKE_C_IDENTIFIER "links${flag}" known)
        check_linker_flag(CXX ${flag} ${known})
        target_link_options(vorn_flags INTERFACE $<$<BOOL:${${known}}>:${flag}>)
    endforeach()
endfunction()

vorn_harden_compiler(-fstack-protector-strong -fPIE)
if(VORN_STATIC)
    vorn_harden_linker(-static-pie)
else()
    vorn_harden_linker(-pie)
endif()
vorn_harden_linker(-Wl,-z,relro -Wl,-z,now)

# The C library checks sizes only where the compiler optimises. A level that it
# does not know yet makes it warn.
set(CMAKE_REQUIRED_FLAGS "-O2 -Werror -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=3")
check_cxx_source_compiles("#include <cstdio>\nint main() { return std::getchar(); }" checks_sizes_at_run_time)
unset(CMAKE_REQUIRED_FLAGS)
set(level $<IF:$<BOOL:${checks_sizes_at_run_time}>,3,2>)
target_compile_options(vorn_flags INTERFACE
    $<$<NOT:$<CONFIG:Debug>>:-U_FORTIFY_SOURCE> $<$<NOT:$<CONFIG:Debug>>:-D_FORTIFY_SOURCE=${level}>)
