# What tests and fuzzers share: runs of Vorn on given files, readers of its outputs.
file(GLOB support_sources CONFIGURE_DEPENDS tests/support/*.cpp)
add_library(vorn_test_support STATIC ${support_sources})
target_include_directories(vorn_test_support PUBLIC ${PROJECT_SOURCE_DIR}/tests)
target_link_libraries(vorn_test_support PUBLIC vorn_core)
# Names of folders only where they are needed: ccache keeps the rest across build folders.
target_compile_definitions(vorn_test_support PRIVATE VORN_PROGRAM="$<TARGET_FILE:vorn>")
