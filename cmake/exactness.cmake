# Compiler options that would change scores and that compilers announce by no macro.
# Those that they announce stop src/generators/arithmetic.cpp.

set(unannounced "-f(unsafe-math-optimizations|associative-math|reciprocal-math|approx-func"
    "|no-signed-zeros|single-precision-constant|denormal-fp-math=[a-z,-]+)|-mdaz-ftz")
string(CONCAT unannounced ${unannounced})
string(TOUPPER "${CMAKE_BUILD_TYPE}" type)
if("${CMAKE_CXX_FLAGS} ${CMAKE_CXX_FLAGS_${type}}" MATCHES "${unannounced}")
    message(FATAL_ERROR "Scores would differ: ${CMAKE_MATCH_0} reorders sums or rounds otherwise")
endif()
