# Options of compiler and linker that would change scores are refused, whether or not the
# compiler announces them to a source. Those that it announces stop src/generators/arithmetic.cpp, too.

set(inexact "-Ofast|-mdaz-ftz|-f(fast-math|unsafe-math-optimizations|associative-math|reciprocal-math"
    "|approx-func|no-signed-zeros|no-honor-nans|no-honor-infinities|single-precision-constant"
    "|denormal-fp-math=[a-z,-]*(preserve-sign|positive-zero))")
string(CONCAT inexact ${inexact})
string(TOUPPER "${CMAKE_BUILD_TYPE}" type)
set(given ${CMAKE_CXX_COMPILER_ARG1} ${CMAKE_CXX_FLAGS} ${CMAKE_CXX_FLAGS_${type}}
    ${CMAKE_EXE_LINKER_FLAGS} ${CMAKE_EXE_LINKER_FLAGS_${type}})
if("${given}" MATCHES "${inexact}")
    message(FATAL_ERROR "Scores would differ: ${CMAKE_MATCH_0} computes otherwise")
endif()
