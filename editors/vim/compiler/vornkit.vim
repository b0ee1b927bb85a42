" Vim compiler file
" Compiler: vornkit check

if exists('current_compiler')
  finish
endif
let current_compiler = 'vornkit'
let s:cpo_save = &cpo
set cpo&vim

CompilerSet makeprg=vornkit\ check\ %:S

" A mistake begins with file, line and column and ends with its code. The lines of
" the score below it, with marks, and the help are told with it and lead nowhere.
CompilerSet errorformat=%f:%l:%c:\ %trror:\ %m,
      \%f:%l:%c:\ %tarning:\ %m,
      \%f:%l:%c:\ %tote:\ %m,
      \%-G%.%#

let &cpo = s:cpo_save
unlet s:cpo_save
