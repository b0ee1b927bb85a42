# What is installed beside the programs: man pages, those of vornkit where it is built.
file(GLOB kit_pages CONFIGURE_DEPENDS man/vornkit*.1)
install(FILES man/vorn.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES man/vorn.5 DESTINATION ${CMAKE_INSTALL_MANDIR}/man5)
if(TARGET vornkit)
    install(FILES ${kit_pages} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
endif()
