# Who sets SOURCE_DATE_EPOCH gets the same program from the same sources whenever
# it is built: __DATE__ and __TIME__ then tell that moment. GCC and newer Clang
# look at the variable themselves; for older Clang it is looked at here.
if(DEFINED ENV{SOURCE_DATE_EPOCH} AND CMAKE_CXX_COMPILER_ID STREQUAL "Clang"
        AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 16)
    string(TIMESTAMP build_date "%b %d %Y" UTC)
    string(REGEX REPLACE " 0([1-9]) " "  \\1 " build_date ${build_date})  # as the compiler writes it
    string(TIMESTAMP build_time "%H:%M:%S" UTC)
    set_property(SOURCE src/driver/banner.cpp APPEND PROPERTY COMPILE_DEFINITIONS
        "__DATE__=\"${build_date}\"" "__TIME__=\"${build_time}\"")
    set_property(SOURCE src/driver/banner.cpp APPEND PROPERTY COMPILE_OPTIONS -Wno-builtin-macro-redefined)
endif()
