#!/usr/bin/env python3
"""count_cases.py ENTRIES REPORTS: prints how many test cases passed, failed and were skipped.

ENTRIES is ctest's JUnit file, REPORTS the folder of the reports that the GoogleTest programs
wrote. An entry without a report (a script, or a program that ended early) is one case.
"""
import pathlib
import sys
import xml.etree.ElementTree as xml


def main(entries, reports):
    passed = failed = skipped = 0
    for entry in xml.parse(entries).getroot().iter("testcase"):
        succeeded = entry.get("status") == "run"
        report = pathlib.Path(reports, entry.get("name") + ".xml")
        if not report.exists():
            passed += succeeded
            skipped += entry.get("status") in ("notrun", "disabled")
            failed += entry.get("status") == "fail"
            continue
        cases = [case for case in xml.parse(report).getroot().iter("testcase")]
        bad = sum(case.find("failure") is not None for case in cases)
        left = sum(case.get("result") != "completed" for case in cases)
        passed += len(cases) - bad - left
        skipped += left
        # A program can fail with every case passed, as by a leak found at its end.
        failed += bad if bad or succeeded else 1
    print(passed, failed, skipped)


main(*sys.argv[1:])
