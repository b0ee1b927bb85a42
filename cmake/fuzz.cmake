# Each fuzz/*.cpp holds one LLVMFuzzerTestOneInput and is one program, fuzz_<name>.
file(GLOB fuzz_sources CONFIGURE_DEPENDS fuzz/*.cpp)
foreach(source ${fuzz_sources})
    get_filename_component(name ${source} NAME_WE)
    add_executable(fuzz_${name} ${source})
    target_link_libraries(fuzz_${name} PRIVATE vorn_fuzz_support)
    target_compile_options(fuzz_${name} PRIVATE -fsanitize=fuzzer)
    target_link_options(fuzz_${name} PRIVATE -fsanitize=fuzzer)
    set_target_properties(fuzz_${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/fuzz)
endforeach()

# A block that is legal but enormous must not look like one that never ends.
target_compile_definitions(vorn_core PUBLIC VORN_MAX_EVENTS=20000)
