# shellcheck shell=bash disable=SC2034,SC2154
# Shared by the scripts and by tools/renew-images; sourced, not run.
# The caller has set -euo pipefail and stands in the root of the tree.

# What it takes to build; names of Debian 12.
build_packages="build-essential cmake ninja-build pkg-config qtbase5-dev qtscript5-dev libqt5svg5 libxml2-dev qttools5-dev-tools"
# What it takes to show a window where there is no display.
display_packages="xvfb xauth fonts-dejavu-core"
# What a screen reader needs to look at a form.
assistive_packages="at-spi2-core dbus-daemon python3-pyatspi"
# The radios of zorva-rig.
radio_packages="libhamlib-dev"
# The daemon and client that its tests use.
radio_test_packages="libhamlib-utils"
# Editors that speak to the language server, and the colours of others.
editor_packages="neovim emacs-nox elpa-eglot libkf5syntaxhighlighting-tools"
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

# Pictures of windows on a display of their own; $work is a folder of the caller's.

# Starts Xvfb and sets DISPLAY to it.
start_virtual_display() {
    Xvfb -noreset -displayfd 3 -screen 0 1280x1024x24 -nolisten tcp 3> "$work/display" 2> "$work/xvfb.log" &
    virtual_display=$!
    local tries=0
    until [ -s "$work/display" ]; do
        tries=$((tries + 1))
        if [ $tries -gt 200 ] || ! kill -0 $virtual_display 2> /dev/null; then
            die "the virtual display does not start: $(cat "$work/xvfb.log")"
        fi
        sleep 0.1
    done
    DISPLAY=:$(head -n 1 "$work/display")
    export DISPLAY
}

# All that is on the virtual screen; fails while nothing is. (Asked for a window
# by its title, import waits for a click if there is none yet.)
picture() {
    timeout 20 import -silent -window root "ppm:$1" 2> /dev/null &&
        [ "$(convert "$1" -format '%[fx:maxima>0]' info:)" = 1 ]
}

# wait_for_picture PROCESS: takes pictures until its window has come to rest,
# which a cursor that blinks does between two pictures.
wait_for_picture() {
    local process=$1 equal=0 tries=0
    while [ $equal -lt 4 ]; do
        tries=$((tries + 1))
        [ $tries -le 100 ] || return 1
        sleep 0.3
        kill -0 "$process" 2> /dev/null || return 1
        picture "$work/now.ppm" || continue
        if cmp -s "$work/now.ppm" "$work/last.ppm" || cmp -s "$work/now.ppm" "$work/before.ppm"; then
            equal=$((equal + 1))
        else
            equal=0
        fi
        cmp -s "$work/now.ppm" "$work/last.ppm" || mv "$work/last.ppm" "$work/before.ppm" 2> /dev/null || true
        mv "$work/now.ppm" "$work/last.ppm"
    done
}

# keep_picture FILE: the last picture. There is no window manager: round the window the screen is black.
keep_picture() {
    convert "$work/last.ppm" -bordercolor black -border 1 -trim +repage "$1"
}
