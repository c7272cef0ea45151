#!/usr/bin/env bash
# tst_lib.sh LIB: a build folder is kept where it belongs to the tree, whatever the
# tree's path, and dropped where it belongs to another one.
set -euo pipefail
lib=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
failed=0

# case_of NAME HOME KEPT: a build folder of the tree NAME whose cache says that its
# sources are in HOME ("self": in that tree); KEPT is yes or no.
case_of() {
    local tree="$work/$1" home=$2 kept=yes
    mkdir -p "$tree/build/debug"
    [ "$home" != self ] || home=$tree
    printf 'CMAKE_BUILD_TYPE:STRING=Debug\nCMAKE_HOME_DIRECTORY:INTERNAL=%s\n' "$home" > "$tree/build/debug/CMakeCache.txt"
    (
        cd "$tree"
        . "$lib"
        drop_foreign_build build/debug
    )
    [ -e "$tree/build/debug" ] || kept=no
    if [ "$kept" != "$3" ]; then
        echo "in $tree with sources in $home: kept is $kept, not $3"
        failed=1
    fi
}

case_of plain self yes
case_of 'c++[x]' self yes
case_of 'back\slash' self yes
case_of 'star*dollar$' self yes
case_of moved /elsewhere no
# As a pattern, the path of the one tree would fit the other's.
case_of 'a.b' "$work/axb" no
exit $failed
