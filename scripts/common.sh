# shellcheck shell=bash
# What ./run and ./test share: messages, the lock on the tree, started processes and their end, builds.
# To be sourced with the current directory at the root of the tree, under `set -euo pipefail`.

root=$PWD
exec 8>&1 # for what is said at the end: a signal may come while a function's output goes elsewhere
scratch=$(mktemp -d "${TMPDIR:-/tmp}/quorvane.XXXXXX")
started=() # process groups that this script began and that may still be there

say() { printf '%s\n' "$*"; }

die() {
    say "$0: $*" >&2
    exit 1
}

# lock_tree: one ./run or ./test at a time in this tree, as they share build folders, prefixes and the traffic log.
# The lock ends with the process, however that ends. A script called by the lock's holder goes on under it.
lock_tree() {
    [[ -z ${QUORVANE_LOCKED-} ]] || return 0
    mkdir -p build
    exec 9>build/.lock
    flock -n 9 || die "another ./run or ./test is at work in this folder"
    export QUORVANE_LOCKED=1
}

# poll SECONDS COMMAND...: repeats COMMAND until it succeeds; fails when the time is up.
poll() {
    local deadline=$((SECONDS + $1))
    shift
    until "$@" >"$scratch/poll.txt" 2>&1; do
        ((SECONDS < deadline)) || return 1
        sleep 0.1
    done
}

# begin LOG COMMAND...: starts COMMAND in the background as a process group of its own; leaves its id in `begun`. Should
# this script be killed without a chance to end COMMAND, the kernel does it.
begin() {
    local log=$1
    shift
    set -m
    setpriv --pdeathsig KILL "$@" </dev/null >"$log" 2>&1 8>&- 9>&- &
    begun=$!
    set +m
    started+=("$begun")
}

# attend COMMAND...: runs COMMAND to its end and gives its status. Unlike in a plain call, a signal to this script acts at
# once, as bash runs traps during `wait` but not during a foreground command.
attend() {
    local group status=0
    set -m
    "$@" </dev/null 8>&- 9>&- &
    group=$!
    set +m
    started+=("$group")
    wait "$group" || status=$?
    forget "$group"
    return "$status"
}

# forget GROUP: it has ended, and its number may soon belong to somebody else.
forget() {
    local group kept=()
    for group in "${started[@]}"; do
        [[ $group == "$1" ]] || kept+=("$group")
    done
    started=("${kept[@]}")
}

any_started_alive() {
    local group
    for group in "${started[@]}"; do
        ! kill -0 -- "-$group" || return 0
    done
    return 1
}

signal_started() {
    local group
    for group in "${started[@]}"; do
        kill "-$1" -- "-$group" || true
    done
}

# end_started: ends all that this script began, and removes its scratch folder.
end_started() {
    {
        signal_started TERM
        for _ in {1..50}; do
            any_started_alive || break
            sleep 0.1
        done
        signal_started KILL
        wait
    } 2>/dev/null
    rm -rf "$scratch"
}

trap 'exit 129' HUP
trap 'exit 130' INT
trap 'exit 143' TERM

# tell_progress LOG: keeps Ninja's output from standard input in LOG, and says every 20 s how far it is.
tell_progress() {
    local line next=$((SECONDS + 20))
    while IFS= read -r line; do
        printf '%s\n' "$line" >>"$1"
        if [[ $line == \[* ]] && ((SECONDS >= next)); then
            say "  ${line%%]*}]"
            next=$((SECONDS + 20))
        fi
    done
}

# build_target PRESET LOG [TARGET...]: on a terminal Ninja shows its progress itself.
build_target() {
    local log=$2 command=(cmake --build --preset "$1" -j "$(nproc)")
    shift 2
    (($# == 0)) || command+=(--target "$@")
    if [[ -t 1 ]]; then
        "${command[@]}"
    else
        "${command[@]}" 2>&1 | tell_progress "$log"
    fi
}

# build PRESET [TARGET...]: configures where that hasn't been done with these presets, and builds; Ninja itself sees to other
# changes of the build description. What went wrong is shown.
build() {
    local preset=$1 log=$root/build/$1.log
    shift
    : >"$log"
    if ! cmp -s CMakePresets.json "build/$preset/presets.json"; then
        attend cmake --preset "$preset" >"$log" 2>&1 || {
            tail -n 40 "$log"
            return 1
        }
        cp CMakePresets.json "build/$preset/presets.json"
    fi
    attend build_target "$preset" "$log" "$@" || {
        tail -n 60 "$log"
        return 1
    }
}
