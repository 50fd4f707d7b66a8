# shellcheck shell=bash
# Runs a command that ends when the script is told to: `forwarding_signals COMMAND…` gives the
# command's status. Without it a script that is terminated leaves its command behind. To be sourced.

# The command gets one TERM for each signal, whichever it was. It has a process group of its own, so
# that an interrupt from the terminal does not come to it twice: skintool corpus ends in order at
# the first signal and at once at the second.
forwarding_signals() {
    local child status=0 received='' signal
    set -m
    "$@" </dev/null &
    set +m
    child=$!
    for signal in HUP INT TERM; do
        # shellcheck disable=SC2064
        trap "received=$signal; kill -TERM $child 2>/dev/null || true" "$signal"
    done
    wait "$child" || status=$?
    if [ -n "$received" ]; then
        # It was the signal that ended the wait, not the command.
        while kill -0 "$child" 2>/dev/null; do wait "$child" || true; done
        trap - "$received"
        kill -s "$received" $$
    fi
    trap - HUP INT TERM
    return "$status"
}
