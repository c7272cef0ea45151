#!/usr/bin/env bash
# tst_run.sh SCRIPTS: what scripts/run hands to the test shell. It runs in a tree of its
# own with a shell that tells how it was called, and nothing is built or installed.
set -euo pipefail
scripts=$(realpath "$1")
work=$(realpath "$(mktemp -d)")
trap 'rm -rf "$work"' EXIT
failed=0

tree=$work/tree
mkdir -p "$tree/build/run/bin" "$tree/examples" "$work/bin" "$work/here/sub" "$work/far"
cp -r "$scripts" "$tree/scripts"
: > "$tree/build/run/build.ninja"
printf 'CMAKE_HOME_DIRECTORY:INTERNAL=%s\n' "$tree" > "$tree/build/run/CMakeCache.txt"
: > "$tree/examples/receiver.zorva"
: > "$work/here/a.zorva"
: > "$work/here/sub/a.zorva"
: > "$work/here/with blank.zorva"
: > "$work/here/list.xml"

tool() {
    printf '#!/usr/bin/env bash\n%s\n' "$2" > "$1"
    chmod +x "$1"
}
# shellcheck disable=SC2016 # for the tools to expand
{
    tool "$work/bin/cmake" ':'
    tool "$work/bin/dpkg-query" 'printf installed'
    tool "$tree/build/run/bin/zorvashell" 'printf "%s|" "$(basename "$PWD")" "$@"; exit 7'
}

# run ARGUMENT...: what the shell was called with, the tree's path as TREE and the
# caller's as HERE, or the exit code if it was not called.
run() {
    local code=0 told
    told=$(cd "$work/here" && DISPLAY=:none PATH="$work/bin:$PATH" "$tree/scripts/run" "$@" 2> "$work/errors") || code=$?
    if [ $code -eq 7 ]; then
        told=${told//"$tree"/TREE}
        printf '%s' "${told//"$work/here"/HERE}"
    else
        printf 'code %s' "$code"
    fi
}

# case_of EXPECTED ARGUMENT...: checksums of paths count as *.
case_of() {
    local expected=$1 told
    shift
    told=$(run "$@" | sed -E 's/\.[0-9]+\/ZorvaTest/.*\/ZorvaTest/')
    if [ "$told" != "$expected" ]; then
        printf 'scripts/run %s\n  gave     %s\n  expected %s\n' "$*" "$told" "$expected"
        failed=1
    fi
}

kept() {
    printf -- '--settings|TREE/build/run/settings/%s.*/ZorvaTest_test.xml|' "$1"
}

case_of "here|TREE/examples/receiver.zorva|$(kept receiver.zorva)"
case_of "here|HERE/a.zorva|$(kept a.zorva)" a.zorva
case_of "here|HERE/a.zorva|$(kept a.zorva)" "$work/here/a.zorva"
case_of "here|HERE/with blank.zorva|$(kept 'with blank.zorva')" 'with blank.zorva'
case_of "here|HERE/a.zorva|debug|$(kept a.zorva)" a.zorva debug
case_of "here|HERE/list.xml|" list.xml
case_of "here|HERE/a.zorva|--watch|--fresh|$(kept a.zorva)" --watch a.zorva --fresh
case_of "here|HERE/a.zorva|--overlay|o p.xml|--overlay=q.xml|$(kept a.zorva)" --overlay 'o p.xml' a.zorva --overlay=q.xml
case_of "here|HERE/a.zorva|--set|s.xml|$(kept a.zorva)" a.zorva --set s.xml
case_of "here|HERE/a.zorva|--language|de|--translations|tr|$(kept a.zorva)" --language de --translations tr a.zorva
case_of "here|HERE/a.zorva|--settings|mine.xml|" a.zorva --settings mine.xml
case_of "here|HERE/a.zorva|--settings=mine.xml|" --settings=mine.xml a.zorva
# What is wrong with a further word the shell tells.
case_of "here|HERE/a.zorva|more|$(kept a.zorva)" a.zorva more
case_of "code 0" --help
case_of "code 1" missing.zorva
case_of "code 2" a.zorva --nonsense
case_of "code 2" a.zorva --overlay

if [ "$(run a.zorva)" = "$(run sub/a.zorva | sed 's/sub.a.zorva/a.zorva/')" ]; then
    echo "two forms of one name share their settings"
    failed=1
fi
exit $failed
