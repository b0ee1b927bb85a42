# The engine as a module for pages and Node: web/vorn-wasm/ calls its exports.
file(GLOB web_engine_sources CONFIGURE_DEPENDS web/vorn-wasm/engine/*.cpp)
add_executable(vorn_engine ${web_engine_sources})
target_link_libraries(vorn_engine PRIVATE vorn_kit)
target_compile_options(vorn_engine PRIVATE -fno-exceptions)
# It stays and is called. A score that asks for more than a gibibyte is refused.
target_link_options(vorn_engine PRIVATE -mexec-model=reactor
    -Wl,--max-memory=1073741824 -Wl,--strip-all)
# What is not the engine itself is made small rather than fast.
target_compile_options(vorn_kit PRIVATE -Oz)
target_compile_options(vorn_engine PRIVATE -Oz)
