# shellcheck shell=bash
# Opens pages in a headless browser. To be sourced by the tests here, which are skipped where there
# is no browser (the package chromium).

set -euo pipefail

if ! command -v chromium >/dev/null; then
    echo "Skipped: the tests of HTML pages need chromium"
    exit 77
fi
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

# browse PAGE OPTION…
browse() {
    timeout 60 chromium --headless --no-sandbox --disable-gpu --disable-quic --no-first-run \
        --disable-background-networking --disable-component-update --disable-sync \
        --user-data-dir="$scratch/profile" "${@:2}" "file://$1" 2>"$scratch/log" || {
        cat "$scratch/log" >&2
        return 1
    }
}

# Prints the document that the browser has made of a page, having run whatever scripts it holds.
dom_of() {
    browse "$1" --dump-dom
}

# screenshot PAGE PICTURE: the page as it shows on a display of three pixels a point, as a PNG file.
screenshot() {
    browse "$1" --window-size=700,500 --hide-scrollbars --force-device-scale-factor=3 \
        --force-color-profile=srgb --screenshot="$2"
}

# expect_lines COUNT PATTERN FILE: the pattern (extended) occurs on so many lines of the file.
expect_lines() {
    local count
    count=$(grep -cE -- "$2" "$3" || true)
    [ "$count" -eq "$1" ] && return
    echo "Expected $1 and found $count lines of $2 in:"
    cat "$3"
    exit 1
}
