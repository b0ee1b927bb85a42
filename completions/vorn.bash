# bash completion of vorn. Its options are held against those that vorn prints by a test.

_vorn() {
    local cur prev words cword
    _init_completion -n =: || return
    case $prev in
        -l | -x)
            _filedir
            return
            ;;
    esac
    if [[ $cur == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W '-l -m -s -t -x' -- "$cur")
        return
    fi
    local files=0 at
    for ((at = 1; at < cword; ++at)); do
        case ${words[at]} in
            -l | -x) ((++at)) ;;
            -*) ;;
            *) ((++files)) ;;
        esac
    done
    case $files in
        0) _filedir vorn ;;
        1) _filedir '@(sco|mid)' ;;
    esac
}

complete -F _vorn vorn
