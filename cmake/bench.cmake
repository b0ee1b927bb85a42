# Each bench/*.cpp is one program, bench_<name>. One that includes Google
# Benchmark is left out where that library is missing; its main is its own or
# the library's.
find_package(benchmark QUIET)
file(GLOB bench_sources CONFIGURE_DEPENDS bench/*.cpp)
foreach(source ${bench_sources})
    get_filename_component(name ${source} NAME_WE)
    file(STRINGS ${source} uses_benchmark REGEX "#include <benchmark/benchmark.h>")
    if(uses_benchmark AND NOT benchmark_FOUND)
        message(STATUS "bench_${name} needs Google Benchmark (libbenchmark-dev): left out")
        continue()
    endif()
    add_executable(bench_${name} ${source})
    target_link_libraries(bench_${name} PRIVATE vorn_core)
    if(uses_benchmark)
        target_link_libraries(bench_${name} PRIVATE benchmark::benchmark_main benchmark::benchmark)
    endif()
    add_dependencies(bench_${name} vorn)
    target_compile_definitions(bench_${name} PRIVATE VORN_PROGRAM="$<TARGET_FILE:vorn>")
    set_target_properties(bench_${name} PROPERTIES INTERPROCEDURAL_OPTIMIZATION
        "${ipo_supported}" RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bench)
endforeach()
