# What is installed beside the programs: man pages, completions, those of vornkit where
# it is built, and the files for editors; on Windows, which has no places for them, these alone.
if(WIN32)
    install(DIRECTORY editors DESTINATION .)
    return()
endif()

set(bash_completions ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
set(zsh_completions ${CMAKE_INSTALL_DATADIR}/zsh/site-functions)
set(fish_completions ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d)

function(install_beside program)
    file(GLOB pages CONFIGURE_DEPENDS man/${program}.1 man/${program}-*.1)
    install(FILES ${pages} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
    install(FILES completions/${program}.bash DESTINATION ${bash_completions} RENAME ${program})
    install(FILES completions/_${program} DESTINATION ${zsh_completions})
    install(FILES completions/${program}.fish DESTINATION ${fish_completions})
endfunction()

install_beside(vorn)
install(FILES man/vorn.5 DESTINATION ${CMAKE_INSTALL_MANDIR}/man5)
if(TARGET vornkit)
    install_beside(vornkit)
endif()

install(DIRECTORY editors/vim/ DESTINATION ${CMAKE_INSTALL_DATADIR}/vim/vimfiles)
install(FILES editors/emacs/vorn-mode.el editors/emacs/vorn-words.el
    DESTINATION ${CMAKE_INSTALL_DATADIR}/emacs/site-lisp)
install(DIRECTORY editors/vscode DESTINATION ${CMAKE_INSTALL_DATADIR}/vorn)
install(FILES editors/README.md DESTINATION ${CMAKE_INSTALL_DOCDIR}/editors)
