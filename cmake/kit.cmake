# The library vorn_kit on top of vorn_core, and the command vornkit. They need
# CLI11 and nlohmann-json (Debian: libcli11-dev nlohmann-json3-dev), which the
# command vorn does without: where they are missing, vornkit is left out.
find_package(CLI11 QUIET)
find_package(nlohmann_json QUIET)
if(NOT CLI11_FOUND OR NOT nlohmann_json_FOUND)
    message(STATUS "vornkit needs CLI11 and nlohmann-json (libcli11-dev nlohmann-json3-dev): left out")
    return()
endif()

file(GLOB_RECURSE kit_sources CONFIGURE_DEPENDS kit/*.cpp)
file(GLOB_RECURSE kit_command_sources CONFIGURE_DEPENDS kit/command/*.cpp)
list(REMOVE_ITEM kit_sources ${kit_command_sources})
list(REMOVE_ITEM kit_command_sources ${PROJECT_SOURCE_DIR}/kit/command/main.cpp)

add_library(vorn_kit STATIC ${kit_sources})
target_include_directories(vorn_kit PUBLIC ${PROJECT_SOURCE_DIR})
target_link_libraries(vorn_kit PUBLIC vorn_core PRIVATE nlohmann_json::nlohmann_json)
target_compile_definitions(vorn_kit PRIVATE JSON_NOEXCEPTION
    JSON_HAS_FILESYSTEM=0 JSON_HAS_EXPERIMENTAL_FILESYSTEM=0)  # which not every C++ library has
target_compile_options(vorn_kit PRIVATE -fno-exceptions
    $<$<BOOL:${VORN_FUZZ}>:-fsanitize=fuzzer-no-link>)

# A platform without processes has the library, and its module for pages.
if(CMAKE_SYSTEM_NAME STREQUAL Generic)
    include(cmake/web_engine.cmake)
    return()
endif()

# What the command is made of is a library, too, so that tests can link it.
add_library(vorn_kit_command STATIC ${kit_command_sources})
find_package(Threads REQUIRED)
target_link_libraries(vorn_kit_command PUBLIC vorn_kit PRIVATE CLI11::CLI11 nlohmann_json::nlohmann_json Threads::Threads)
add_executable(vornkit kit/command/main.cpp)
target_link_libraries(vornkit PRIVATE vorn_kit_command)
install(TARGETS vornkit RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} OPTIONAL)  # where it was built
# Where the documents look for them.
install(DIRECTORY kit/schema DESTINATION ${CMAKE_INSTALL_DOCDIR}/kit)
