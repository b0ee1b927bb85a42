# The engine as a module for pages and Node: web/vorn-wasm/ calls its exports. A page
# loads the small one first, which compiles and checks, and the whole one when it wants more.
file(GLOB web_engine_sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/web/vorn-wasm/engine/*.cpp)
set(small_engine_sources ${web_engine_sources})
list(FILTER web_engine_sources EXCLUDE REGEX "/no_further_outputs\\.cpp$")
list(FILTER small_engine_sources EXCLUDE REGEX "/(further_outputs|text_exports)\\.cpp$")
add_executable(vorn_engine ${web_engine_sources})
add_executable(vorn_small_engine ${small_engine_sources})
foreach(engine vorn_engine vorn_small_engine)
    target_link_libraries(${engine} PRIVATE vorn_kit)
    target_compile_options(${engine} PRIVATE -fno-exceptions -fno-rtti -Oz)
    # It stays and is called. A score that asks for more than a gibibyte is refused. Where wasm-opt
    # is installed, the compiler lets it work on what is linked: for size, too.
    target_link_options(${engine} PRIVATE -mexec-model=reactor -Oz
        -Wl,--max-memory=1073741824 -Wl,--strip-all -Wl,-O2)
endforeach()

# What travels is made small; the benchmark of web/vorn-wasm shows what that costs.
target_compile_options(vorn_core PRIVATE -Os)
target_compile_options(vorn_kit PRIVATE -Oz)
