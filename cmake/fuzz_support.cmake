# Draws scores from the grammar of the language and checks what comes of them:
# for the fuzzers, for the tests that replay their inputs, and for write_scores.
file(GLOB fuzz_support_sources CONFIGURE_DEPENDS fuzz/drawing/*.cpp)
add_library(vorn_fuzz_support STATIC ${fuzz_support_sources})
target_include_directories(vorn_fuzz_support PUBLIC fuzz)
target_link_libraries(vorn_fuzz_support PUBLIC vorn_test_support)

add_executable(write_scores fuzz/write_scores/main.cpp)
target_link_libraries(write_scores PRIVATE vorn_fuzz_support)
