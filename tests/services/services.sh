# shellcheck shell=bash disable=SC2034 # for those who source it
# Runs a desktop's thumbnail service with the thumbnailer installed. To be sourced by the tests
# here, which are called with the build folder and a skin, and are skipped where the service is not
# to be had.

set -euo pipefail

build=$1
skin=$2
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
python=/usr/bin/python3 # the one that has the system's bindings
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

skip() {
    echo "Skipped: $*"
    exit 77
}

# need FILE PACKAGE
need() {
    [ -e "$1" ] || skip "the tests of thumbnail services need the package $2"
}

# need_binding NAME VERSION PACKAGE, for Python
need_binding() {
    "$python" -B -c "import gi; gi.require_version('$1', '$2')" 2>/dev/null ||
        skip "the tests of thumbnail services need the packages python3-gi and $3"
}

# installed COMMAND…: runs it where /usr/local is what an installation there makes of it, seen by
# the command and what it starts only, and where nothing of this user's desktop is to be seen.
installed() {
    local -a apart
    if unshare --mount true 2>/dev/null; then
        apart=(unshare --mount)
    elif unshare --map-root-user --mount true 2>/dev/null; then
        apart=(unshare --map-root-user --mount)
    else
        skip "this system lets nobody mount things for himself"
    fi
    cmake --install "$build" --prefix "$scratch/local" --component thumbnailer >"$scratch/log" 2>&1 || {
        cat "$scratch/log"
        return 1
    }
    mkdir -p "$scratch/home" "$scratch/run"
    chmod 700 "$scratch/run"
    "${apart[@]}" sh -c 'mount --bind "$1" /usr/local && shift && exec "$@"' sh "$scratch/local" \
        env -i PATH=/usr/local/bin:/usr/bin:/bin LC_ALL=C.UTF-8 HOME="$scratch/home" \
        XDG_RUNTIME_DIR="$scratch/run" XDG_CACHE_HOME="$scratch/cache" \
        ASAN_OPTIONS=detect_leaks=0 "$@" # which a process that has locked itself in can't do
}

need /usr/bin/update-mime-database shared-mime-info
need "$python" python3-gi
need_binding GdkPixbuf 2.0 gir1.2-gdkpixbuf-2.0
