# Completes velmar-thumbnailer's command lines in bash.

_velmar_thumbnailer() {
    local word=$2 previous=$3
    COMPREPLY=()
    if [[ $previous == -s ]]; then
        # The sizes that desktops ask for.
        mapfile -t COMPREPLY < <(compgen -W '128 256 512 1024' -- "$word")
        return
    fi
    if [[ $word == -* ]]; then
        local options='-s'
        [[ $COMP_CWORD -eq 1 ]] && options+=' -h --help --version'
        mapfile -t COMPREPLY < <(compgen -W "$options" -- "$word")
        return
    fi

    local files=0 i
    for ((i = 1; i < COMP_CWORD; ++i)); do
        if [[ ${COMP_WORDS[i]} == -s ]]; then
            ((++i))
        else
            ((++files))
        fi
    done
    local patterns=('*.[pP][nN][gG]') pattern
    [[ $files -eq 0 ]] && patterns=('*.[wW][sS][zZ]' '*.[zZ][iI][pP]')
    compopt -o filenames 2>/dev/null
    mapfile -t COMPREPLY < <(
        compgen -d -- "$word"
        for pattern in "${patterns[@]}"; do
            compgen -f -X "!$pattern" -- "$word"
        done
    )
}

complete -F _velmar_thumbnailer velmar-thumbnailer
