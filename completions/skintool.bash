# Completes skintool's command lines in bash.

# Offers folders, and files like any of the patterns: WORD [PATTERN…].
_skintool_files() {
    local word=$1 pattern
    shift
    compopt -o filenames 2>/dev/null
    mapfile -t COMPREPLY < <(
        compgen -d -- "$word"
        for pattern in "$@"; do
            compgen -f -X "!$pattern" -- "$word"
        done
    )
}

_skintool() {
    local word=$2 previous=$3
    local commands='corpus corpus-report gallery info preview windows'
    local skins=('*.[wW][sS][zZ]' '*.[zZ][iI][pP]')
    local form= first=1
    if [[ $COMP_CWORD -gt 1 && " $commands " == *" ${COMP_WORDS[1]} "* ]]; then
        form=${COMP_WORDS[1]}
        first=2
    fi

    COMPREPLY=()
    case $form:$previous in
    :--state | windows:--state)
        mapfile -t COMPREPLY < <(compgen -W 'webamp idle' -- "$word")
        return
        ;;
    corpus:--out | gallery:--out | windows:--out | :--compare | corpus-report:--crashes)
        _skintool_files "$word"
        return
        ;;
    preview:--out)
        _skintool_files "$word" '*.html' '*.mhtml'
        return
        ;;
    :--png)
        _skintool_files "$word" '*.png'
        return
        ;;
    corpus:--manifest | corpus-report:--env | corpus-report:--json)
        _skintool_files "$word" '*.json'
        return
        ;;
    corpus-report:--markdown)
        _skintool_files "$word" '*.md'
        return
        ;;
    *:--scale | corpus*:--sample | corpus*:--seed | corpus:--timeout | corpus:--max-memory)
        return # a number
        ;;
    esac

    if [[ $word == -* ]]; then
        local options=
        case $form in
        '') options='-v --verbose --png --state --scale --compare --no-region' ;;
        corpus) options='--out --resume --timeout --max-memory --sample --seed --manifest' ;;
        corpus-report) options='--markdown --json --env --sample --seed --crashes' ;;
        gallery) options='--out --scale' ;;
        info) options='--json' ;;
        preview) options='--out --mhtml' ;;
        windows) options='--out --scale --state --no-region' ;;
        esac
        [[ $COMP_CWORD -eq $first ]] && options+=' -h --help --version'
        mapfile -t COMPREPLY < <(compgen -W "$options" -- "$word")
        return
    fi

    case $form in
    corpus | gallery) _skintool_files "$word" ;;
    corpus-report) _skintool_files "$word" '*.jsonl' ;;
    *) _skintool_files "$word" "${skins[@]}" ;;
    esac
    if [[ $COMP_CWORD -eq 1 ]]; then
        local -a words
        mapfile -t words < <(compgen -W "$commands" -- "$word")
        COMPREPLY+=("${words[@]}")
    fi
}

complete -F _skintool skintool
