# The engine as a module for pages and Node: web/vorn-wasm/ calls its exports. A page
# loads the small one first, which compiles and checks, and the whole one when it wants more.
# What travels is made small; the benchmark of web/vorn-wasm shows what that costs.
file(GLOB web_engine_sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/web/vorn-wasm/engine/*.cpp)
set(small_engine_sources ${web_engine_sources})
list(FILTER web_engine_sources EXCLUDE REGEX "/no_further_outputs\\.cpp$")
list(FILTER small_engine_sources EXCLUDE REGEX "/(further_outputs|text_exports)\\.cpp$")
# The tables whose texts the small one goes without, and all that reads them: found here, the
# linker does not look for them in the library.
file(GLOB tables_with_further_texts CONFIGURE_DEPENDS kit/diagnose/*_explanations.cpp
    kit/diagnose/explanation.cpp kit/diagnose/advice.cpp kit/language/*words.cpp)
add_executable(vorn_engine ${web_engine_sources})
add_executable(vorn_small_engine ${small_engine_sources} ${tables_with_further_texts})
target_compile_definitions(vorn_small_engine PRIVATE VORN_WITHOUT_FURTHER_TEXTS)

target_compile_options(vorn_core PRIVATE -Oz)
target_compile_options(vorn_kit PRIVATE -fno-rtti -Oz)
# Where a score of many events spends its time.
set(busy_sources blocks/fill generators/arithmetic generators/ddf generators/progress generators/random
    generators/value_range generators/walk output/arena output/csound_writer output/pitch_conversion
    output/written_value)
list(TRANSFORM busy_sources PREPEND src/)
list(TRANSFORM busy_sources APPEND .cpp)
set_source_files_properties(${busy_sources} PROPERTIES COMPILE_OPTIONS "-O2;-fno-unroll-loops")
# What reads a generator is called once, and not made a part of the loop over events.
set(reading_sources ddf_p2 ddf_time ex ho mo ms ra rw se weights)
list(TRANSFORM reading_sources PREPEND src/generators/)
list(TRANSFORM reading_sources APPEND .cpp)
set_source_files_properties(${reading_sources} PROPERTIES COMPILE_OPTIONS -fno-inline)
find_program(WASM_OPT wasm-opt)  # Debian: binaryen
if(NOT WASM_OPT)
    message(STATUS "Without wasm-opt (binaryen) the modules for pages are larger and slower")
endif()
foreach(engine vorn_engine vorn_small_engine)
    target_link_libraries(${engine} PRIVATE vorn_kit)
    target_compile_options(${engine} PRIVATE -fno-exceptions -fno-rtti -Oz)
    # It stays and is called. A score that asks for more than a gibibyte is refused.
    target_link_options(${engine} PRIVATE -mexec-model=reactor
        -Wl,--max-memory=1073741824 -Wl,--strip-all -Wl,-O2 -Wl,--lto-O2)
    # Twice, since what is read again is made smaller than what has only been changed again; a large routine stays
    # one of its own also where it is called once, which is smaller still. The last bytes
    # of the stack, which lies first, hold nothing: who comes there is about to run over.
    if(WASM_OPT)
        set(make_small ${WASM_OPT} --enable-bulk-memory --enable-sign-ext --low-memory-unused --strip-producers -O3
            --one-caller-inline-max-function-size=50
            $<TARGET_FILE:${engine}> -o $<TARGET_FILE:${engine}>)
        add_custom_command(TARGET ${engine} POST_BUILD VERBATIM COMMAND ${make_small} COMMAND ${make_small})
    endif()
endforeach()
