#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Counts the outcomes in a JUnit file that ctest wrote.

usage: count_tests.py FILE CTEST_EXIT_STATUS

Prints the names of tests that failed (with the end of what they said) or were skipped, and on the last line "PASSED FAILED SKIPPED". A test that
ctest could not run counts as failed, only one that skipped itself or is disabled as skipped. A run that failed as a
whole (no file, no tests, a non-zero exit status that no test explains) counts as one failure.
"""
import sys
import xml.etree.ElementTree as ElementTree

SHOWN_LINES = 80
SKIPPED_ON_PURPOSE = ("SKIP_RETURN_CODE", "SKIP_REGULAR_EXPRESSION", "Disabled")


def outcome(case):
    status = case.get("status")
    if status == "run":
        return "passed"
    if status == "disabled":
        return "skipped"
    note = case.find("skipped")
    if status == "notrun" and note is not None and note.get("message", "").startswith(SKIPPED_ON_PURPOSE):
        return "skipped"
    return "failed"


def count(path):
    counts = {"passed": 0, "failed": 0, "skipped": 0}
    for case in ElementTree.parse(path).getroot().iter("testcase"):
        result = outcome(case)
        counts[result] += 1
        if result != "passed":
            print(f"  {result}: {case.get('name')}")
        if result == "failed":
            for line in (case.findtext("system-out") or "").splitlines()[-SHOWN_LINES:]:
                print(f"    | {line}")
    return counts


def main():
    path, exit_status = sys.argv[1], int(sys.argv[2])
    try:
        counts = count(path)
    except (OSError, ElementTree.ParseError) as error:
        print(f"  failed: no results of the run ({error})")
        counts = {"passed": 0, "failed": 1, "skipped": 0}
    if counts["failed"] == 0 and (exit_status != 0 or counts["passed"] == 0):
        print(f"  failed: the run as a whole (ctest ended with {exit_status})")
        counts["failed"] = 1
    print(counts["passed"], counts["failed"], counts["skipped"])


if __name__ == "__main__":
    main()
