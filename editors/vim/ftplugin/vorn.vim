" Vim filetype plugin
" Language: Vorn scores
"
" :make tells the mistakes of the score, K tells what the word below the cursor means.

if exists('b:did_ftplugin')
  finish
endif
let b:did_ftplugin = 1
let s:cpo_save = &cpo
set cpo&vim

setlocal comments=:;
setlocal commentstring=;\ %s
setlocal formatoptions-=t
setlocal iskeyword=@,48-57,_
setlocal matchpairs+=<:>
setlocal include=^\\s*#include\\s*\|
setlocal define=^\\s*#\\%(define\\\|const\\)
setlocal keywordprg=vornkit\ words
setlocal suffixesadd=.vorn
compiler vornkit

let b:undo_ftplugin = 'setlocal comments< commentstring< formatoptions< iskeyword< matchpairs<'
      \ . ' include< define< keywordprg< suffixesadd< makeprg< errorformat<'

let &cpo = s:cpo_save
unlet s:cpo_save
