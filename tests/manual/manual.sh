# shellcheck shell=bash disable=SC2034 # for those who source it
# What the programs print about their own command lines. To be sourced by the tests here, which are
# called with the source folder and the programs.

set -euo pipefail

export LC_ALL=C.UTF-8
source_folder=$(realpath "$1")
mapfile -t programs < <(realpath "${@:2}")
failed=0

fail() {
    echo "$*"
    failed=1
}

# help_of NAME [WORD]: what the program of this name prints for --help.
help_of() {
    local program
    for program in "${programs[@]}"; do
        [ "$(basename "$program")" != "$1" ] || "$program" "${@:2}" --help </dev/null
    done
}

# The forms of all command lines, each as a line such as "skintool info".
forms() {
    basename -a "${programs[@]}"
    help_of skintool | sed -n '/^Sub-commands/,/^$/ s/^  \([^ ]*\) .*/skintool \1/p'
}

# option_lines NAME [WORD]: the options with their values, as the help has them before it explains.
option_lines() {
    help_of "$@" | sed -n '/^Options:/,/^$/ s/^  \(-.*\)/\1/p' | sed 's/  .*//'
}

# options_of NAME [WORD]: what the usage text and the list of options mention, sorted.
options_of() {
    { help_of "$@" | sed '/^$/,$ d' && option_lines "$@"; } |
        grep -oE '(^|[][ |,])--?[a-z][a-z-]*' | grep -oE -- '-[a-z-]+' | sort -u
}

# choices_of NAME [WORD]: a line "--option a b" for each option of which the values are given.
choices_of() {
    option_lines "$@" | sed -n 's/^\(--[a-z-]*\) \([a-z]*|[a-z|]*\)$/\1 \2/p' | tr '|' ' '
}

# expect_same WHAT EXPECTED FOUND, texts of several lines
expect_same() {
    [ "$2" = "$3" ] || fail "$1: expected (<) and found (>)" "$(diff <(echo "$2") <(echo "$3"))"
}

[ "$(forms | wc -l)" -gt 3 ] || fail "No sub-commands in the help"
