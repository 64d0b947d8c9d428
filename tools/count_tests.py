#!/usr/bin/python3
"""count_tests.py FOLDER...: how many tests of these builds passed, failed and were skipped.

ctest runs programs and scripts that hold many tests each. It leaves its own report in
FOLDER/tests.xml; each program of GoogleTest leaves one in FOLDER/reports, and unittest says at its
end how many it ran. A program that crashed, was stopped, is not there, or failed outside its
tests is a failure.
"""

import pathlib
import re
import sys
import xml.etree.ElementTree

RAN = re.compile(r"^Ran (\d+) tests? in .*\n+(?:OK|FAILED)(?: \((.*)\))?$", re.MULTILINE)


def of_program(report):
    """Passed, failed and skipped in a report of GoogleTest."""
    cases = list(xml.etree.ElementTree.parse(report).getroot().iter("testcase"))
    failed = sum(case.find("failure") is not None for case in cases)
    skipped = sum(case.get("result") in ("skipped", "suppressed") for case in cases)
    return len(cases) - failed - skipped, failed, skipped


def of_script(ran):
    """The same from the last lines of unittest, matched by `RAN`."""
    counts = dict(re.findall(r"(\w+)=(\d+)", ran[2] or ""))
    failed = int(counts.get("failures", 0)) + int(counts.get("errors", 0))
    skipped = int(counts.get("skipped", 0))
    return int(ran[1]) - failed - skipped, failed, skipped


def of_test(case, reports):
    """The same for one test of ctest."""
    status = case.get("status")
    report = reports / f"{case.get('name')}.xml"
    ran = RAN.search(case.findtext("system-out") or "")
    if report.exists():
        passed, failed, skipped = of_program(report)
    elif ran:
        passed, failed, skipped = of_script(ran)
    else:
        passed, failed, skipped = int(status == "run"), 0, int(status == "disabled")
    if status in ("fail", "notrun") and failed == 0:
        failed = 1
    return passed, failed, skipped


def of_build(folder):
    folder = pathlib.Path(folder)
    cases = xml.etree.ElementTree.parse(folder / "tests.xml").getroot().iter("testcase")
    return [sum(each) for each in zip(*(of_test(case, folder / "reports") for case in cases))]


def main(folders):
    counts = [of_build(each) for each in folders]
    for folder, (passed, failed, skipped) in zip(folders, counts):
        print(f"{folder}: {passed + failed + skipped} tests, {failed} failed, {skipped} skipped")
    passed, failed, skipped = (sum(each) for each in zip(*counts))
    print(f"{passed} passed, {failed} failed" + (f", {skipped} skipped" if skipped else ""))
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
