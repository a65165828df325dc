# shellcheck shell=bash
# shellcheck disable=SC2034 # some of it is for those that source this
# What ./run, ./test and their helpers share: messages, the lock on the tree, started processes and their end, packages,
# builds. To be sourced with the current directory at the root of the tree, under `set -euo pipefail`.

root=$PWD
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
    until "$@" >/dev/null 2>&1; do
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
    setpriv --pdeathsig KILL "$@" </dev/null >"$log" 2>&1 9>&- &
    begun=$!
    set +m
    started+=("$begun")
}

# attend COMMAND...: runs COMMAND to its end and gives its status. Unlike in a plain call, a signal to this script acts at
# once, as bash runs traps during `wait` but not during a foreground command.
attend() {
    local group status=0
    set -m
    "$@" </dev/null 9>&- &
    group=$!
    set +m
    started+=("$group")
    wait "$group" || status=$?
    # Its number may soon belong to somebody else.
    mapfile -t started < <(printf '%s\n' "${started[@]}" | grep -vx "$group")
    return "$status"
}

checks=0 failures=0

# check WHAT COMMAND...: a line for it, and what COMMAND said if it failed.
check() {
    local what=$1
    checks=$((checks + 1))
    shift
    if "$@" >"$scratch/check.log" 2>&1; then say "ok      $what"; else
        failures=$((failures + 1))
        say "FAILED  $what"
        tail -n 20 "$scratch/check.log"
    fi
}

# links_lead FOLDER: whether each link in its pages leads to a file that is there, and to a heading there; there are some.
links_lead() {
    local page link file number=0 astray=0
    while IFS=: read -r page link; do
        number=$((number + 1)) link=$(printf '%b' "${link//%/\\x}")
        file=$page
        [[ $link == '#'* ]] || file=$1/${link%%#*}
        [[ -f $file && ($link != *'#'* || $(grep -cF " id=\"${link#*#}\"" "$file") == 1) ]] && continue
        astray=1
        say "$page: $link"
    done < <(grep -oHP '(href|src)="\K[^"]*' "$1"/*.html | grep -v '^[^:]*:https*://')
    ((number > 0 && astray == 0))
}

# conclude: how many checks passed, as the last line and as the exit code.
conclude() {
    say "$((checks - failures)) passed, $failures failed"
    exit $((failures > 0))
}

signal_started() {
    local group
    for group in "${started[@]}"; do kill "-$1" -- "-$group"; done 2>/dev/null
}

none_left() { ! signal_started 0; }

# end_started: ends all that this script began, and removes its scratch folder.
end_started() {
    signal_started TERM || true
    poll 5 none_left || signal_started KILL || true
    rm -rf "$scratch"
}

trap 'exit 129' HUP
trap 'exit 130' INT
trap 'exit 143' TERM

as_root() { if ((EUID == 0)); then "$@"; else sudo "$@"; fi; }

# install_packages: what of scripts/packages.txt is missing; asks the package archive nothing if nothing is. An update that
# fails for one of the machine's archives, perhaps none that matters here, is no reason to stop.
install_packages() {
    local missing log=build/packages.log
    command -v apt-get >/dev/null || {
        say "No apt-get here: what scripts/packages.txt lists has to be installed by hand."
        return 0
    }
    mapfile -t missing < <(comm -23 <(sed -e 's/ *#.*//' -e '/^$/d' scripts/packages.txt | sort) \
        <(dpkg-query -W -f '${db:Status-Status} ${Package}\n' | sed -n 's/^installed //p' | sort))
    ((${#missing[@]})) || return 0
    say "Installing ${#missing[@]} Debian packages: ${missing[*]}"
    as_root apt-get update -qq </dev/null >"$log" 2>&1 || say "apt-get update failed; trying with the lists at hand"
    as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq -o DPkg::Lock::Timeout=120 --no-install-recommends \
        "${missing[@]}" </dev/null >>"$log" 2>&1 || die "no packages: $(tail -n 5 "$log")"
}

configure() { attend cmake --preset "$1" && cp CMakePresets.json "build/$1/presets.json"; }

# build PRESET [TARGET...]: configures where that hasn't been done with these presets, and builds; Ninja itself sees to other
# changes of the build description. What went wrong is shown.
build() {
    local preset=$1 log=build/$1.log start=$SECONDS
    shift
    say "Building $preset"
    if ! { cmp -s CMakePresets.json "build/$preset/presets.json" || configure "$preset"; } >"$log" 2>&1 ||
        ! attend cmake --build --preset "$preset" ${1+--target "$@"} >"$log" 2>&1; then
        tail -n 60 "$log"
        return 1
    fi
    say "  built $preset in $((SECONDS - start)) s"
}
