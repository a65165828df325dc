#!/usr/bin/env python3
"""Sums up the results of presets' tests.

    sum_results.py FOLDER...

In each FOLDER, results/ctest.xml, which CTest wrote with --output-junit, names every test, and results/NAME.xml of a GoogleTest
program its cases. Prints "PASSED FAILED SKIPPED" to standard output, and what failed or was skipped to standard error.
A program without such a file counts as one test; one that failed although none of its cases did (a crash, a sanitizer's
report at its end) as one that failed besides.
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
    states = [(f"{name}: {case}", state) for case, state in read_cases(folder / f"{name}.xml")]
    if not states or (own == "failed" and all(state != "failed" for _, state in states)):
        states.append((name, own))
    return states


def main():
    states = []
    for folder in (Path(name) / "results" for name in sys.argv[1:]):
        tests = ElementTree.parse(folder / "ctest.xml").getroot().iter("testcase")
        found = [state for test in tests for state in test_states(test, folder)]
        states += found or [(f"{folder}: no test", "failed")]
    for name, state in states:
        if state != "passed":
            print(f"  {state:7} {name}", file=sys.stderr)
    print(*(sum(state == wanted for _, state in states) for wanted in ("passed", "failed", "skipped")))


if __name__ == "__main__":
    main()
