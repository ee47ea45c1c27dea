# Shared by run, test and .ci/run: the Debian packages, the build and the display.

set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

# What the libraries, the workbench and the tests need.
build_packages=(
    g++ cmake ninja-build ccache
    qtbase5-dev qtbase5-dev-tools libqt5svg5-dev libqt5opengl5-dev qt5-style-plugins
    fonts-dejavu-core libgl1-mesa-dri xvfb xauth libxtst-dev openbox
)
# What only the checks of .ci/run need on top.
check_packages=(clang-format libbenchmark-dev pkg-config git libqcustomplot-dev libqwt-qt5-dev)

say() { printf '==> %s\n' "$*"; }
die() {
    printf 'error: %s\n' "$*" >&2
    exit 1
}

# Installs those of the named packages that are missing; silent when there is nothing to do.
install_packages() {
    local missing=() package log
    command -v dpkg-query >/dev/null || die "this needs Debian's packages; there is no dpkg here"
    for package in "$@"; do
        [ "$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null)" = installed ] ||
            missing+=("$package")
    done
    [ ${#missing[@]} -gt 0 ] || return 0

    local as_root=()
    if [ "$(id -u)" -ne 0 ]; then
        command -v sudo >/dev/null ||
            die "these Debian packages are missing, and installing them needs root or sudo: ${missing[*]}"
        as_root=(sudo)
    fi
    say "Installing Debian packages: ${missing[*]}"
    log=$(mktemp)
    if ! { "${as_root[@]}" apt-get update &&
        "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
            apt-get install -y --no-install-recommends "${missing[@]}"; } </dev/null >"$log" 2>&1; then
        tail -n 15 "$log" >&2
        die "could not install the Debian packages; the whole log is $log"
    fi
    rm -f "$log"
}

# build PRESET [TARGET...]: configures when needed, then builds.
build() {
    local preset=$1
    shift
    if [ ! -f "build/$preset/build.ninja" ]; then
        say "Configuring ($preset)"
        cmake --preset "$preset" >"/tmp/axrgui-configure.$$" 2>&1 || {
            cat "/tmp/axrgui-configure.$$" >&2
            die "could not configure preset $preset"
        }
        rm -f "/tmp/axrgui-configure.$$"
    fi
    say "Building ($preset)"
    # ninja's own progress line on a terminal, only failures and the last line elsewhere
    if [ -t 1 ]; then
        cmake --build --preset "$preset" ${1:+--target "$@"} || die "preset $preset does not build"
    else
        cmake --build --preset "$preset" ${1:+--target "$@"} >"/tmp/axrgui-build.$$" 2>&1 || {
            grep -vE '^\[[0-9]+/[0-9]+\] ' "/tmp/axrgui-build.$$" >&2 || true
            die "preset $preset does not build"
        }
        tail -n 1 "/tmp/axrgui-build.$$"
        rm -f "/tmp/axrgui-build.$$"
    fi
}

# Runs a command under a virtual X display, whatever display there is: tests must not depend on it.
virtual_display() {
    xvfb-run -a -s '-screen 0 1920x1200x24 +extension GLX' "$@"
}
