# The calls that POSIX has and Windows has not, for the command vorn: windows/README.md.
target_compile_options(vorn_flags INTERFACE -include ${PROJECT_SOURCE_DIR}/windows/posix.h)
target_include_directories(vorn_flags SYSTEM INTERFACE ${PROJECT_SOURCE_DIR}/windows/include)
target_sources(vorn PRIVATE windows/main.cpp windows/posix.cpp)
foreach(call main fopen fclose open stat unlink getenv)
    target_link_options(vorn PRIVATE -Wl,--wrap=${call})
endforeach()

# The archive is a folder to be unpacked anywhere: pages and examples stand beside bin/, where its readers look.
set(CMAKE_INSTALL_DOCDIR .)
configure_file(windows/vorn-play.cmd ${PROJECT_BINARY_DIR}/vorn-play.cmd @ONLY NEWLINE_STYLE DOS)
install(FILES ${PROJECT_BINARY_DIR}/vorn-play.cmd DESTINATION ${CMAKE_INSTALL_BINDIR})
