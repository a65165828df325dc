#!/usr/bin/env python3
"""Sums up the results of one preset's tests.

    sum_results.py FOLDER

In FOLDER, ctest.xml, which CTest wrote with --output-junit, names every test, and NAME.xml of a GoogleTest program its
cases. Prints "PASSED FAILED SKIPPED" to standard output, and what failed or was skipped to standard error.
What isn't named ..._test has no such file, and counts as one test. A program without its file counts as one that failed, as
under Wine one that runs out of stack ends with success; so does, besides its cases, one that failed although none of them did
(a crash, a sanitizer's report at its end).
"""

import sys
import xml.etree.ElementTree as ElementTree
from pathlib import Path


def case_state(case):
    if case.find("failure") is not None:
        return "failed"
    if case.find("skipped") is not None or case.get("result") != "completed":
        return "skipped"
    return "passed"


def read_cases(path):
    """(name, state) of each case of one GoogleTest program; none if it left no readable results."""
    try:
        cases = ElementTree.parse(path).iter("testcase")
        return [(f"{case.get('classname')}.{case.get('name')}", case_state(case)) for case in cases]
    except (OSError, ElementTree.ParseError):
        return []


def test_states(test, folder):
    """(name, state) of all that counts of one test, as CTest saw it and as it told itself."""
    name, status = test.get("name"), test.get("status")
    own = {"run": "passed", "disabled": "skipped"}.get(status, "failed")
    cases = [(f"{name}: {case}", state) for case, state in read_cases(folder / f"{name}.xml")]
    if not cases and name.endswith("_test"):
        return [(f"{name}: no results (crashed, out of time, not built, or without cases)", "failed")]
    if not cases or (own == "failed" and all(state != "failed" for _, state in cases)):
        cases.append((name, own))
    return cases


def main():
    folder = Path(sys.argv[1])
    tests = ElementTree.parse(folder / "ctest.xml").getroot().iter("testcase")
    states = [state for test in tests for state in test_states(test, folder)] or [("there is no test", "failed")]
    for name, state in states:
        if state != "passed":
            print(f"  {state:7} {name}", file=sys.stderr)
    print(*(sum(state == wanted for _, state in states) for wanted in ("passed", "failed", "skipped")))


if __name__ == "__main__":
    main()
