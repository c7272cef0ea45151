# shellcheck shell=bash disable=SC2034
# Shared by scripts/run and scripts/test; sourced, not run.
# The caller has set -euo pipefail and stands in the root of the tree.

# What it takes to build; names of Debian 12.
build_packages="build-essential cmake ninja-build pkg-config qtbase5-dev qtscript5-dev libqt5svg5 libxml2-dev qttools5-dev-tools"
# What it takes to show a window where there is no display.
display_packages="xvfb xauth fonts-dejavu-core"
# What a screen reader needs to look at a form.
assistive_packages="at-spi2-core dbus-daemon python3-pyatspi"
# The radios of zorva-rig, and the daemon and client that its tests use.
radio_packages="libhamlib-dev libhamlib-utils"
# What it takes to make and judge Debian packages.
package_packages="dpkg-dev fakeroot lintian doxygen"
# What it takes to compare the public classes with those of the last release.
abi_packages="abigail-tools xz-utils"

say() {
    printf '%s: %s\n' "$(basename "$0")" "$*" >&2
}

die() {
    say "$*"
    exit 1
}

have() {
    command -v "$1" > /dev/null 2>&1
}

missing_packages() {
    local package
    for package in "$@"; do
        [ "$(dpkg-query -W -f='${db:Status-Status}' "$package" 2> /dev/null)" = installed ] || printf '%s ' "$package"
    done
}

as_root() {
    if [ "$(id -u)" -eq 0 ]; then
        "$@"
    else
        sudo "$@"
    fi
}

apt() {
    as_root env DEBIAN_FRONTEND=noninteractive apt-get -q -o DPkg::Lock::Timeout=300 "$@" < /dev/null >&2
}

# Where packages have other names, all that can be done is to look for what they bring.
require_tools() {
    local missing="" tool module
    for tool in c++ cmake ninja pkg-config; do
        have "$tool" || missing="$missing $tool"
    done
    if have pkg-config; then
        for module in Qt5Core Qt5Gui Qt5Widgets Qt5Test Qt5Script Qt5ScriptTools; do
            pkg-config --atleast-version=5.15 "$module" || missing="$missing $module(5.15)"
        done
        pkg-config --exists libxml-2.0 || missing="$missing libxml2"
    fi
    [ -z "$missing" ] || die "this is no Debian system, and it lacks:$missing. Please install these and start again."
}

# need_packages NAME...: installs what is missing of them, and says so.
need_packages() {
    if ! have dpkg-query || ! have apt-get; then
        require_tools
        return
    fi
    local missing
    missing=$(missing_packages "$@")
    [ -n "$missing" ] || return 0
    if [ "$(id -u)" -ne 0 ] && ! have sudo; then
        die "these packages are missing: $missing
Install them as root: apt-get install $missing"
    fi
    say "installing $missing"
    apt update || say "the list of packages could not be brought up to date"
    # shellcheck disable=SC2086 # a list of words
    apt install -y --no-install-recommends $missing ||
        die "could not install $missing(Debian 12 has them all)"
}

# A build folder remembers where its sources were; a moved tree begins anew.
drop_foreign_build() {
    local cache="$1/CMakeCache.txt"
    [ -e "$cache" ] || return 0
    grep -qxF "CMAKE_HOME_DIRECTORY:INTERNAL=$PWD" "$cache" || rm -rf "$1"
}

use_ccache() {
    if have ccache; then
        export CMAKE_CXX_COMPILER_LAUNCHER=ccache
        export CCACHE_BASEDIR="$PWD" CCACHE_NOHASHDIR=1
        export CCACHE_SLOPPINESS=pch_defines,time_macros # it passes precompiled headers by without
    fi
}
