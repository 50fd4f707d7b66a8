# shellcheck shell=bash
# What the tests of the scripts for collections share: a scratch folder, and checks that end the
# test. To be sourced.

set -euo pipefail
shopt -s inherit_errexit

# shellcheck disable=SC2034 # for those that source this
scripts=$(realpath "$(dirname "${BASH_SOURCE[0]}")/../../examples/corpus")
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
log=$scratch/log # both streams of the last command run

stop() {
    printf 'Line %s: %s\n' "${BASH_LINENO[-2]}" "$1" >&2
    [ ! -f "$log" ] || cat "$log" >&2
    exit 1
}

# expect STATUS COMMAND…
expect() {
    local expected=$1 status=0
    shift
    "$@" >"$log" 2>&1 || status=$?
    [ "$status" -eq "$expected" ] || stop "$* ended with status $status instead of $expected"
}

# expect_told PATTERN: the last command printed it.
expect_told() {
    grep -q -e "$1" "$log" || stop "nothing told of $1"
}

# wait_until COMMAND…: for at most ten seconds.
wait_until() {
    local i
    for ((i = 0; i < 200; ++i)); do
        "$@" && return
        sleep 0.05
    done
    stop "never came true: $*"
}
