#!/usr/bin/env python3
"""Sums up the results of one preset's test programs.

    sum_results.py FOLDER

FOLDER holds ctest.xml, which CTest wrote with --output-junit and which names every program, and PROGRAM.xml of each
GoogleTest program that came to its end. Prints "PASSED FAILED SKIPPED" to standard output, and what failed or was skipped
to standard error. A program counts as one failed test if it left no results, ran no case, or failed although none of its
cases did (a crash or a sanitizer's report at its end).
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


def program_states(program, folder):
    """(name, state) of all that counts of one program, as CTest saw it and as it told itself."""
    name, succeeded = program.get("name"), program.get("status") == "run"
    cases = read_cases(folder / f"{name}.xml")
    if not cases:
        return [(f"{name}: no results (crashed, out of time, not built, or without cases)", "failed")]
    states = [(f"{name}: {case}", state) for case, state in cases]
    if not succeeded and all(state != "failed" for _, state in states):
        states.append((f"{name}: failed, though none of its cases did", "failed"))
    return states


def main():
    folder = Path(sys.argv[1])
    programs = ElementTree.parse(folder / "ctest.xml").getroot().iter("testcase")
    states = [state for program in programs for state in program_states(program, folder)]
    if not states:
        states = [("there is no test program", "failed")]
    for name, state in states:
        if state != "passed":
            print(f"  {state:7} {name}", file=sys.stderr)
    print(*(sum(state == wanted for _, state in states) for wanted in ("passed", "failed", "skipped")))


if __name__ == "__main__":
    main()
