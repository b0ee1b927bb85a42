#!/usr/bin/env zsh
# What zsh offers for a command line: zsh_candidates.zsh <folder of completions> <line>
# An interactive zsh in a terminal of its own completes the line; its compadd, through which
# every candidate goes, prints them. What is waited for stands in no line that is sent.
zmodload zsh/zpty
zpty shell zsh -f -i
send() { zpty -w shell "$1"; }
await() { local text; zpty -r -m shell text "*$1*"; print -r -- "$text"; }

send "PROMPT=; stty -echo; unset zle_bracketed_paste; fpath=($1 \$fpath); autoload -Uz compinit; compinit -C -u -d $HOME/dump"
send '
compadd() {
    if [[ ${@[1,(i)(-|--)]} == *-(O|A|D)\ * ]]; then
        builtin compadd "$@"
        return
    fi
    local -a hits
    builtin compadd -A hits "$@"
    local hit
    for hit in $hits; do print -r -- "candi""date:$hit"; done
    builtin compadd "$@"
}
at_end() { print -r -- "candidates-""end"; exit; }
show() { zle list-choices; zle -I; at_end; }
zle -N show
bindkey "^I" show
print -r -- read''y'
await ready >/dev/null
zpty -w -n shell "$2"$'\t'
await candidates-end | tr -d '\r' | sed -n 's/^.*candidate://p'
zpty -d shell
