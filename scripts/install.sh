# shellcheck shell=bash
# Installs Debian packages where they are missing: `install PACKAGE…`. To be sourced.

install() {
    local missing=() package
    for package in "$@"; do
        dpkg-query -W -f='${Status}\n' "$package" 2>/dev/null | grep -q '^install ok installed$' ||
            missing+=("$package")
    done
    [ ${#missing[@]} -eq 0 ] && return

    echo "Installing ${missing[*]}" >&2
    local as_root=()
    [ "$(id -u)" -eq 0 ] || as_root=(sudo)
    "${as_root[@]}" apt-get update -qq >&2
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y -qq --no-install-recommends "${missing[@]}" >&2
}

# What the library and the programs are built with and from.
install_library_packages() {
    install g++ cmake ninja-build \
        libdeflate-dev libpng-dev zlib1g-dev libutf8proc-dev libmd-dev libseccomp-dev
}

# The same for the presets.
install_build_packages() {
    install_library_packages
    install ccache
}

# What the benchmarks measure with and against.
install_benchmark_packages() {
    install libbenchmark-dev libsdl2-dev unzip imagemagick python3
}
