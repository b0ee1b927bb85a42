# Target "coverage": runs all tests and writes coverage/index.html in the build folder.
# Two tests limit the size of files, and the counters of a run are files too. Runs
# that a signal ends leave counters from which gcov may work out a negative one.
find_program(GCOVR gcovr REQUIRED)
file(MAKE_DIRECTORY ${PROJECT_BINARY_DIR}/coverage)
add_custom_target(coverage
    COMMAND ${CMAKE_COMMAND} -E env GTEST_FILTER=-OddFiles.*OnAFullDisk
        ${CMAKE_CTEST_COMMAND} --no-tests=error --output-on-failure
    COMMAND ${GCOVR} --root ${PROJECT_SOURCE_DIR} --filter ${PROJECT_SOURCE_DIR}/src/
        --exclude-throw-branches --gcov-ignore-parse-errors --print-summary
        --html-details ${PROJECT_BINARY_DIR}/coverage/index.html ${PROJECT_BINARY_DIR}
    WORKING_DIRECTORY ${PROJECT_BINARY_DIR}
    USES_TERMINAL VERBATIM)
add_dependencies(coverage vorn_tests vorn)
