#!/bin/bash
# in_machine.sh tests FACTOR DIVISOR SYSTEM_TESTS PROGRAM... | product SECONDS [en|zh]: what runs inside the machine for 32-bit
# code, in a folder laid out like the tree: scripts/, and under build/x86 the product in bin/ and the test programs in tests/.
# A display and Wine are up.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
mkdir -p build
source scripts/common.sh
source scripts/wine.sh
trap end_started EXIT
export WINELOADER=/usr/lib/wine/wine

# tests FACTOR DIVISOR SYSTEM_TESTS PROGRAM...: runs the test programs, each with FACTOR times the time that it allows and one
# DIVISORth of the repetitions; of the system test those that the filter SYSTEM_TESTS names. In build/x86/results it leaves of
# each what it told (.xml), what it printed (.log), and how it ended (.status: run or fail, as CTest says it).
tests() {
    local systemTests=$3 program start status
    export QUORVANE_TEST_TIME_FACTOR=$1 QUORVANE_TEST_REPEAT_DIVISOR=$2
    shift 3
    load_settings < <(test_settings)
    start_test_ground || die "no desktop"
    mkdir -p build/x86/results
    cd build/x86/tests
    for program in "$@"; do
        start=$SECONDS status=run
        unset GTEST_FILTER
        [[ $program != system_test ]] || export GTEST_FILTER=$systemTests
        GTEST_OUTPUT="xml:Z:$root/build/x86/results/$program.xml" timeout 600 "$WINELOADER" "$program.exe" \
            </dev/null >"../results/$program.log" 2>&1 || status=fail
        echo "$status" >"../results/$program.status"
        say "    $program: $((SECONDS - start)) s${status#run}"
    done
}

picture() { shot "build/$1.png"; }

# click X Y: at a control of the program, that far from the corner of its window.
click() { xdotool mousemove --window "$window" "$1" "$2" sleep 0.3 click 1; }

wire_has() { grep -q "$1" build/x86/bin/Quorvane.log; }

show_menu() {
    click "$2" "$3"
    sleep 2
    picture "$1-menu"
    xdotool key Escape
    sleep 1
}

# product SECONDS [en|zh]: starts the program with counters on its line, polls for SECONDS, and takes pictures into build/: on
# start, while it polls, of each popup, and of a message.
product() {
    load_settings < <(
        test_settings
        printf '[HKEY_CURRENT_USER\\SOFTWARE\\BRENHOLT\\QV]\n"COM"=dword:1\n'
        [[ ${2-} != zh ]] || printf '"Language"=dword:1\n'
    )
    start_test_ground || die "no desktop"
    cd build/x86/bin
    begin "$root/build/line.log" "$WINELOADER" QuorvaneLine.exe --port COM2 --counters 0,1,3 --traffic off
    begin "$root/build/program.log" "$WINELOADER" Quorvane.exe
    cd "$root"
    # shellcheck disable=SC2317 # called by name
    window_or_end() { xdotool search --onlyvisible --name '^Keldrun' || ! kill -0 "$begun"; }
    poll 300 window_or_end || die "no window of the program"
    window=$(grep -Ex '[0-9]+' "$scratch/poll.txt") || die "the program ended: $(cat build/program.log)"
    sleep 2
    picture start
    xdotool key Return
    poll 120 wire_has 'RX--> *[0-9a-f]' || die "no counter answered"
    sleep "$1"
    picture polling
    show_menu help 33 34
    show_menu language 54 34
    show_menu port 75 34
    xdotool key Return
    sleep 2
    click 418 93 # Clear
    sleep 3
    picture message
    tail -n 12 build/x86/bin/Quorvane.log | tr -d '\r'
}

"$@"
