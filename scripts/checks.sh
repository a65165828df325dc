# shellcheck shell=bash
# shellcheck disable=SC2154 # root and scratch are those of common.sh
# The counts of ./test: single checks of the script's own, and the test programs that CTest runs.

passed=0
failed=0
skipped=0

ok() {
    passed=$((passed + 1))
    say "  ok      $*"
}

fail() {
    failed=$((failed + 1))
    say "  FAILED  $*"
}

skip() {
    skipped=$((skipped + 1))
    say "  skipped $*"
}

# check NAME COMMAND...: one check, passed if COMMAND succeeds; what it printed is shown only if not.
check() {
    local name=$1
    shift
    if attend "$@" >"$scratch/check.txt" 2>&1; then
        ok "$name"
    else
        fail "$name"
        tail -n 40 "$scratch/check.txt" | sed 's/^/          /'
    fi
}

# run_tests PRESET [COMMAND...]: runs the preset's test programs through CTest, with COMMAND in front, and adds their cases
# to the counts.
run_tests() {
    local preset=$1 results=$root/build/$1/results status=0 failedBefore=$failed
    shift
    rm -rf "$results"
    mkdir -p "$results"
    attend "$@" ctest --preset "$preset" --output-junit "$results/ctest.xml" || status=$?
    count_results "$preset" || return
    ((status == 0 || failed > failedBefore)) || fail "ctest ended with status $status"
}

# count_results PRESET: adds the cases in the preset's results to the counts.
count_results() {
    local sums passedHere failedHere skippedHere
    sums=$(python3 scripts/sum_results.py "$root/build/$1/results") || return
    read -r passedHere failedHere skippedHere <<<"$sums"
    passed=$((passed + passedHere))
    failed=$((failed + failedHere))
    skipped=$((skipped + skippedHere))
    say "  $passedHere passed, $failedHere failed, $skippedHere skipped"
}
