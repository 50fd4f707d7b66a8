#!/usr/bin/env bash
# Prints what bash offers for the last word of a command line: `complete.bash FOLDER WORD…`, with
# the folder that holds the completions.
set -euo pipefail

source "$1/$2.bash"
shift
spec=$(complete -p "$1")
[[ $spec =~ \ -F\ ([^ ]+) ]]
COMP_WORDS=("$@")
COMP_CWORD=$(($# - 1))
set +e # a shell that people type into has none of these
set +u
"${BASH_REMATCH[1]}" "$1" "${@: -1}" "${@: -2:1}"
printf '%s\n' "${COMPREPLY[@]}"
