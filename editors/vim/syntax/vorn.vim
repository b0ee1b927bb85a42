" Vim syntax file
" Language: Vorn scores
" Made by scripts/words from scripts/lib/words/vorn.vim: change that.

if exists('b:current_syntax')
  finish
endif
let s:cpo_save = &cpo
set cpo&vim

syntax case match
syntax sync fromstart
syntax cluster vornItem contains=vornMacro,vornConstant,vornTime,vornEquation,vornNumber,vornNote,vornRest
syntax cluster vornItem add=vornRepeat,vornPrevious,vornLoop,vornChord,vornPfield,vornType,vornGenerator,vornCommand
syntax cluster vornItem add=vornComment,vornLineComment

" --- values; of what matches at the same place the last counts ---

syntax match vornNumber /\v\w@1<![-+]?%(\d+\.*\d*|\.\d+)/
syntax match vornNote /\v\c[a-z_$~]@1<!%(%([ABCDEFGRabcdefgr])\C[+fns-]*\d?)+\w@!/
syntax match vornRest /\v\w@1<![rR]\w@!/
syntax match vornPrevious /\v\w@1<![zZ]\w@!/
syntax match vornRepeat /\v[A-Za-z_]@1<!x\d+|\/\*@!/
syntax match vornLoop /[<>]/
syntax match vornChord /[':]/
syntax match vornType /\v\c[a-z0-9_$~]@1<!%(nox|opx|db|in|no|op|re|rh)[0-7]?\w@!/

" --- macros and constants ---

syntax match vornMacro /\v\$\a\w*/
syntax match vornConstant /\v\~\a\w*/
syntax match vornTime /\v\~\@[1-4]/
syntax match vornTerm /\v\@[12]|\?/ contained
syntax match vornName /\v\a\w*/ contained
syntax match vornOperator /[%*+/-]/ contained
syntax region vornEquation matchgroup=vornDelimiter start=/\~\[/ end=/\]/ oneline
      \ contains=vornTerm,vornName,vornOperator,vornNumber,vornMacro

" --- statements, settings and generators ---

syntax match vornPfield /\v[A-Za-z0-9_$~]@1<!p\d+/ nextgroup=vornOutput skipwhite
syntax match vornOutput /\v\c\(\s*%(bn|db|hz|in|od|op|re|tr|xx)[0-7]?\s*\)/ contained

syntax match vornCurve /\v\c%([0-9a-z_.]@1<!%(\d*\.?\d+|[~$]\w+)[ \t,]+)@<=%(%(v[0-9.]*|[CEFLSVceflsv])\s*\*?|\*)\(@!/ contained
syntax match vornDistribution /\v\c%(\[\s*)@<=[BFGHLTXbfghltx]/ contained
syntax match vornSetMark /[*x]\ze\s*\[/ contained
syntax match vornResult /\v\c[FIfi]\ze\s*[[p]/ contained
syntax match vornField /\v[pP]\d+/ contained
syntax match vornWhole /\v\(@1<=T\*?|%(\(\s+)@<=T\*?/ contained

syntax match vornCommand /\v\c[a-z0-9_$~]@1<!%(dv|pf|rd|rs|sr|te)\ze\s*\(/ nextgroup=vornCommandData skipwhite
syntax region vornCommandData matchgroup=vornDelimiter start=/(/ end=/)/ end=/\ze[#{}]/ contained
      \ contains=vornNumber,vornMacro,vornConstant,vornTime,vornEquation,vornCurve,vornComment,vornLineComment
syntax match vornGenerator /\v\c[a-z0-9_$~]@1<!%(ra|rw)\ze\s*\(/ nextgroup=vornRangeData skipwhite
syntax region vornRangeData start=/(/ end=/)/ end=/\ze[#{}]/ contained
      \ contains=@vornItem,vornWhole,vornDistribution
syntax match vornGenerator /\v\c[a-z0-9_$~]@1<!%(mo)\ze\s*\(/ nextgroup=vornMovementData skipwhite
syntax region vornMovementData start=/(/ end=/)/ end=/\ze[#{}]/ contained
      \ contains=@vornItem,vornWhole,vornCurve,vornDistribution
syntax match vornGenerator /\v\c[a-z0-9_$~]@1<!%(ho|s2|se)\ze\s*\(/ nextgroup=vornSetData skipwhite
syntax region vornSetData start=/(/ end=/)/ end=/\ze[#{}]/ contained
      \ contains=@vornItem,vornWhole,vornSetMark
syntax match vornGenerator /\v\c[a-z0-9_$~]@1<!%(ms)\ze\s*\(/ nextgroup=vornChangeData skipwhite
syntax region vornChangeData start=/(/ end=/)/ end=/\ze[#{}]/ contained
      \ contains=@vornItem,vornWhole,vornCurve
syntax match vornGenerator /\v\c[a-z0-9_$~]@1<!%(dx|ex)\ze\s*\(/ nextgroup=vornEquationData skipwhite
syntax region vornEquationData start=/(/ end=/)/ end=/\ze[#{}]/ contained
      \ contains=vornNumber,vornMacro,vornConstant,vornTime,vornEquation,vornField,vornResult,vornOperator,vornWhole

" --- lines and blocks ---

syntax match vornDirective /\v\#%(include|undef|const|if|endif)>/
syntax match vornInclude /\v%(\#include\s*)@<=\|[^|]*\|/
syntax match vornConstant /\v%(\#const\s+)@<=\a\w*/
syntax match vornMacro /\v%(\#undef\s+)@<=\a\w*/
syntax match vornDirective /\v\#define>/ nextgroup=vornDefined skipwhite
syntax match vornDefined /\v\a\w*/ contained nextgroup=vornArguments,vornBody skipwhite skipempty
syntax region vornArguments start=/(/ end=/)/ contained nextgroup=vornBody skipwhite skipempty
syntax region vornBody matchgroup=vornDirective start=/#/ end=/#/ contained keepend
      \ contains=@vornItem,vornHeader,vornBodyDirect

syntax match vornHeader /\v[A-Za-z0-9_$~]@1<!i\s*%(\d+|[$~]@=)\ze\s*[=$~]/
syntax region vornBlock matchgroup=vornHeader start=/\v[A-Za-z0-9_$~]@1<!i\s*%(\d+|[$~]@=)\ze\s*[=$~]/
      \ matchgroup=NONE end=/}/ contains=@vornItem,vornDirective,vornInclude transparent fold
syntax match vornDirect /\v^\s*\>.*/ contains=vornCsoundComment,vornMacro,vornConstant,vornTime,vornEquation
syntax match vornBodyDirect /\v%(^|\#@1<=)\s*\>[^#]*/ contained contains=vornMacro,vornConstant,vornTime,vornEquation
syntax match vornCsoundComment /;.*/ contained
syntax region vornSkipped start=/\v[A-Za-z0-9_$~]@1<!i\s*-\s*\d/ end=/}/ contains=vornComment,vornLineComment

" --- comments, before which nothing else counts ---

syntax match vornTodo /\v<%(TODO|FIXME|XXX)>/ contained
syntax region vornLineComment start=/;/ end=/$/ contains=vornTodo,@Spell extend
syntax region vornComment start=+/\*+ end=+\*/+ contains=vornComment,vornTodo,@Spell extend

highlight default link vornComment Comment
highlight default link vornLineComment Comment
highlight default link vornCsoundComment Comment
highlight default link vornSkipped Comment
highlight default link vornTodo Todo
highlight default link vornDirective PreProc
highlight default link vornInclude String
highlight default link vornDefined Macro
highlight default link vornMacro Macro
highlight default link vornArguments Identifier
highlight default link vornConstant Constant
highlight default link vornName Constant
highlight default link vornTime Constant
highlight default link vornTerm Constant
highlight default link vornDirect String
highlight default link vornBodyDirect String
highlight default link vornHeader Structure
highlight default link vornPfield Label
highlight default link vornOutput Type
highlight default link vornType Type
highlight default link vornCommand Statement
highlight default link vornGenerator Function
highlight default link vornCurve Special
highlight default link vornDistribution Special
highlight default link vornSetMark Special
highlight default link vornResult Special
highlight default link vornWhole Special
highlight default link vornField Label
highlight default link vornOperator Operator
highlight default link vornLoop Operator
highlight default link vornChord Operator
highlight default link vornRepeat Operator
highlight default link vornPrevious Operator
highlight default link vornDelimiter Delimiter
highlight default link vornNumber Number
highlight default link vornNote String
highlight default link vornRest Comment

let b:current_syntax = 'vorn'
let &cpo = s:cpo_save
unlet s:cpo_save
