# What is handed on, made by scripts/release: CPack packs what `cmake --install` would
# install, as a Debian package or as an archive of the folder that it would fill.

set(CPACK_PACKAGE_NAME vorn)
set(CPACK_PACKAGE_VENDOR "The Vorn developers")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "text in, music out: writes Csound scores and MIDI files")
set(CPACK_PACKAGE_DESCRIPTION "Vorn turns a description of music into notes. Fields of notes are filled by
lists and by generators: weighted choice, random walks, moving masks, sets,
equations. It writes scores for Csound and Standard MIDI Files. vornkit, beside
it, explains mistakes, draws pictures, plays scores and makes variations.")
set(CPACK_PACKAGE_CONTACT "The Vorn developers <vorn@example.org>")
if(DEFINED ENV{DEBEMAIL})  # as Debian's own tools: who packs it answers for the package
    set(CPACK_PACKAGE_CONTACT "$ENV{DEBFULLNAME} <$ENV{DEBEMAIL}>")
endif()
set(CPACK_STRIP_FILES ON)
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_ARCHIVE_COMPONENT_INSTALL OFF)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION sound)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "csound, librsvg2-bin")
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "fluidsynth, timgm6mb-soundfont, snakemake")

if(NOT WIN32)
    install(FILES share/mime/packages/vorn.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages)
    install(FILES share/icons/hicolor/scalable/mimetypes/text-x-vorn.svg
        DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/mimetypes)
endif()

if(VORN_DEBIAN)  # files that Debian asks of every package
    string(TIMESTAMP package_date "%a, %d %b %Y %H:%M:%S +0000" UTC)
    configure_file(packaging/debian/changelog.in ${PROJECT_BINARY_DIR}/changelog @ONLY)
    execute_process(COMMAND gzip -9nf ${PROJECT_BINARY_DIR}/changelog COMMAND_ERROR_IS_FATAL ANY)
    install(FILES ${PROJECT_BINARY_DIR}/changelog.gz packaging/debian/copyright
        DESTINATION ${CMAKE_INSTALL_DOCDIR})
    install(CODE "file(GLOB_RECURSE pages \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/share/man/*.[1-9]\")
        execute_process(COMMAND gzip -9n \${pages} COMMAND_ERROR_IS_FATAL ANY)")
endif()
include(CPack)
