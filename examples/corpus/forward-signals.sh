# shellcheck shell=bash
# Runs a command that ends when the script is told to: `forwarding_signals COMMAND…` gives the
# command's status. Without it a script that is terminated leaves its command behind. To be sourced.

forwarding_signals() {
    local child status=0 received='' signal
    "$@" &
    child=$!
    for signal in HUP INT TERM; do
        # The command is terminated whatever came: what is started in the background ignores INT.
        # shellcheck disable=SC2064
        trap "received=$signal; kill -TERM $child 2>/dev/null || true" "$signal"
    done
    wait "$child" || status=$?
    if [ -n "$received" ]; then
        wait "$child" 2>/dev/null || true # the signal ended the first wait, not the command
        trap - "$received"
        kill -s "$received" $$
    fi
    trap - HUP INT TERM
    return "$status"
}
