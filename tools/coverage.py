#!/usr/bin/python3
"""coverage.py BUILD: the branches that the tests of a build took, by room, beside what they must.

Those that only an exception takes do not count. Prints the files with most branches left, and fails
when a room has less than its share.
"""

import json
import pathlib
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[1]
LEAST = {"host": 90, "dialog": 90, "plugin": 90, "platform": 85}
LEAST |= {
    str(each.relative_to(ROOT)): 85
    for folder in ("ports", "apps")
    for each in sorted((ROOT / folder).iterdir())
    if each.is_dir()
}
WORST_FILES = 12


def files(build):
    """gcovr's report of each file."""
    command = ["gcovr", "--root", ROOT, "--json-summary", "-", "--exclude-throw-branches"]
    command += ["--exclude-unreachable-branches", "--gcov-ignore-parse-errors=negative_hits.warn"]
    for room in LEAST:
        command += ["--filter", f"{ROOT}/{room}/"]
    done = subprocess.run([*command, build], cwd=build, check=True, capture_output=True, text=True)
    return json.loads(done.stdout)["files"]


def main(build):
    reports = files(build)
    status = 0
    for room, least in LEAST.items():
        of_room = [each for each in reports if each["filename"].startswith(room + "/")]
        taken = sum(each["branch_covered"] for each in of_room)
        total = sum(each["branch_total"] for each in of_room)
        share = 100 * taken / total if total else 0
        print(f"{room}: {taken} of {total} branches, {share:.1f} % (at least {least} %)")
        if share < least:
            status = 1
    reports.sort(key=lambda each: each["branch_covered"] - each["branch_total"])
    for each in reports[:WORST_FILES]:
        print(f"  {each['branch_total'] - each['branch_covered']} left in {each['filename']}")
    return status


if __name__ == "__main__":
    sys.exit(main(sys.argv[1]))
