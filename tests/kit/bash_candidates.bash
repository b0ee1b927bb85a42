# What bash offers for a command line: bash bash_candidates.bash <folder of completions> <word>...
# The words are those of the line, of which the last one is completed, as readline would have it.
. /usr/share/bash-completion/bash_completion
. "$1/${2##*/}.bash"
shift
COMP_WORDS=("$@")
COMP_CWORD=$(($# - 1))
COMP_LINE="$*"
COMP_POINT=${#COMP_LINE}
COMP_TYPE=9
compopt() { :; }  # may be called by readline only
"_$1"
printf '%s\n' "${COMPREPLY[@]}"
