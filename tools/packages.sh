# For ./run, ./test and their kin: the packages that each needs on Debian, installed where they are missing.
#
#   . tools/packages.sh
#   need_packages build display

packages_build="g++ cmake ninja-build ccache qt6-base-dev libgl1-mesa-dev"
packages_display="xvfb openbox xdotool imagemagick x11-utils fonts-dejavu-core"
packages_wayland="weston qt6-wayland"
packages_test="clang-format"
packages_lint="clang-tidy clang clazy"
packages_fuzz="clang libclang-rt-14-dev"
packages_coverage="clang libclang-rt-14-dev llvm"
packages_desktop="desktop-file-utils appstream mandoc"
packages_package="dpkg-dev lintian binutils"
packages_icons="librsvg2-bin"

is_installed() {
    [ "$(dpkg-query -W -f '${db:Status-Status}' "$1" 2>/dev/null)" = installed ]
}

# Where dpkg does not tell what is installed: what a group needs, by its commands and libraries.
commands_build="g++ cmake ninja ccache"
libraries_build="Qt6Core Qt6Widgets Qt6Network"
commands_display="Xvfb openbox xdotool import xprop"
commands_wayland="weston"
commands_test="clang-format"
commands_lint="clang-tidy clazy-standalone"
commands_fuzz="clang++"
commands_coverage="clang++ llvm-profdata llvm-cov"
commands_desktop="desktop-file-validate appstreamcli mandoc readelf"
commands_package="cpack dpkg-shlibdeps lintian readelf"
commands_icons="rsvg-convert"

need_commands() {
    local group name list missing=()
    for group in "$@"; do
        list=commands_$group
        for name in ${!list:-}; do command -v "$name" >/dev/null || missing+=("$name"); done
        list=libraries_$group
        for name in ${!list:-}; do pkg-config --exists "$name" 2>/dev/null || missing+=("$name"); done
    done
    [ ${#missing[@]} -eq 0 ] && return
    echo "This is no Debian system, and these are missing: ${missing[*]}" >&2
    echo "Install them by your system's own means, then try again." >&2
    exit 1
}

need_packages() {
    local group name list missing=()
    if ! command -v dpkg-query >/dev/null || ! command -v apt-get >/dev/null; then
        need_commands "$@"
        return
    fi
    for group in "$@"; do
        list=packages_$group
        for name in ${!list}; do is_installed "$name" || missing+=("$name"); done
    done
    [ ${#missing[@]} -eq 0 ] && return
    local as_root=()
    if [ "$(id -u)" -ne 0 ]; then
        if ! command -v sudo >/dev/null; then
            echo "Missing packages: ${missing[*]}" >&2
            echo "Install them as root (apt-get install ${missing[*]}), then try again." >&2
            exit 1
        fi
        as_root=(sudo)
    fi
    echo "Installing: ${missing[*]}"
    "${as_root[@]}" apt-get update -qq || echo "The package lists could not be renewed; trying with those at hand." >&2
    if ! "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends \
        "${missing[@]}" >/dev/null; then
        echo "Could not install: ${missing[*]}" >&2
        exit 1
    fi
}

# build PRESET [TARGET...]: configures and builds in silence, and shows all of it where it fails.
build() {
    local preset=$1 log
    shift
    log=$(mktemp)
    echo "Building ($preset)"
    if ! { cmake --preset "$preset" && cmake --build --preset "$preset" ${1:+--target "$@"}; } >"$log" 2>&1; then
        cat "$log" >&2
        rm -f "$log"
        exit 1
    fi
    rm -f "$log"
}
