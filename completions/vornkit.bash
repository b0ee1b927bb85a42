# bash completion of vornkit. Its options are held against --help by a test.

_vornkit_words() { mapfile -t COMPREPLY < <(compgen -W "$1" -- "$cur"); }

# All codes, or those that begin with a letter.
_vornkit_codes() { vornkit explain 2>/dev/null | sed -n "s/^\($1[A-Za-z0-9]*\) .*/\1/p"; }

_vornkit_language() { vornkit words --format json 2>/dev/null | sed -n 's/^ *"word": "\([a-z0-9]*\)",$/\1/p' | sort -u; }

_vornkit_pfields() { echo p{4..16}; }

# What follows an option; false: the option takes nothing.
_vornkit_value() {
    case $1 in
        check:--format | explain:--format | words:--format) _vornkit_words 'text json' ;;
        check:--ignore) _vornkit_words "$(_vornkit_codes L)" ;;
        events:--format) _vornkit_words 'json csv' ;;
        events:--output | events:-o) _filedir '@(json|csv)' ;;
        picture:--output | picture:-o | watch:--picture) _filedir '@(svg|png|html)' ;;
        picture:--theme) _vornkit_words 'light dark' ;;
        picture:--pitch) _vornkit_words "none $(_vornkit_pfields)" ;;
        *:--pitch | *:--level | *:--velocity) _vornkit_words "$(_vornkit_pfields)" ;;
        *:--wav) _filedir wav ;;
        play:--soundfont) _filedir '@(sf2|sf3)' ;;
        vary:--output | vary:-o) _filedir -d ;;
        vary:--render) _filedir orc ;;
        midi:--channel | midi:--program) ;;
        picture:--from | picture:--to | picture:--width | picture:--title) ;;
        vary:--count | vary:--first | vary:--set | vary:--jobs | vary:--only | vary:--keep) ;;
        *) return 1 ;;
    esac
}

_vornkit_options() {
    case $1 in
        check) echo --format --ignore --midi --relative ;;
        explain | words) echo --format ;;
        events) echo --output --format --rests --relative ;;
        midi) echo --pitch --velocity --channel --program --relative --quiet ;;
        picture) echo --output --pitch --level --from --to --width --title --theme --relative ;;
        play) echo --wav --midi --soundfont --pitch --level --relative ;;
        vary) echo --output --count --first --set --render --jobs --only --keep --snakemake --relative ;;
        watch) echo --picture --wav --relative ;;
    esac
    echo --help
}

# The arguments of a subcommand, by how many stand before.
_vornkit_argument() {
    case $1:$2 in
        explain:*) _vornkit_words "$(_vornkit_codes '')" ;;
        words:*) _vornkit_words "$(_vornkit_language)" ;;
        play:0) _filedir '@(vorn|mid)' ;;
        check:* | *:0) [[ $1 == new ]] || _filedir vorn ;;
        midi:1) _filedir mid ;;
        play:1 | watch:1) _filedir orc ;;
    esac
}

_vornkit() {
    local cur prev words cword subcommand='' before=0 at
    _init_completion -n =: || return
    for ((at = 1; at < cword; ++at)); do
        if [[ ${words[at]} == -?* ]]; then
            COMPREPLY=()
            _vornkit_value "$subcommand:${words[at]}" && ((++at))
            ((at == cword)) && return
        elif [[ -z $subcommand ]]; then
            subcommand=${words[at]}
        else
            ((++before))
        fi
    done
    COMPREPLY=()
    if [[ -z $subcommand ]]; then
        _vornkit_words 'new check explain events midi picture play vary watch words --help --version'
    elif [[ $cur == -* ]]; then
        _vornkit_words "$(_vornkit_options "$subcommand")"
    else
        _vornkit_argument "$subcommand" "$before"
    fi
}

complete -F _vornkit vornkit
