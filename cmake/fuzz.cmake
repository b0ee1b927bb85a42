# Each fuzz/*.cpp holds one LLVMFuzzerTestOneInput and is one program, fuzz_<name>.
# One that tries the kit is left out with it.
file(GLOB fuzz_sources CONFIGURE_DEPENDS fuzz/*.cpp)
foreach(source ${fuzz_sources})
    get_filename_component(name ${source} NAME_WE)
    file(STRINGS ${source} uses_kit REGEX "#include \"(tests/)?kit/")
    if(uses_kit AND NOT TARGET vorn_kit)
        continue()
    endif()
    add_executable(fuzz_${name} ${source})
    if(uses_kit)
        target_link_libraries(fuzz_${name} PRIVATE vorn_kit nlohmann_json::nlohmann_json)
    endif()
    target_link_libraries(fuzz_${name} PRIVATE vorn_fuzz_support)
    target_compile_options(fuzz_${name} PRIVATE -fsanitize=fuzzer)
    target_link_options(fuzz_${name} PRIVATE -fsanitize=fuzzer)
    set_target_properties(fuzz_${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/fuzz)
endforeach()

# A block that is legal but enormous must not look like one that never ends.
target_compile_definitions(vorn_core PUBLIC VORN_MAX_EVENTS=20000)
