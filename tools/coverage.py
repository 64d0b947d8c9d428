#!/usr/bin/python3
"""coverage.py BUILD: the branches that the tests of a build took, by room, beside what they must.

Those that only an exception takes do not count. Prints the files with most branches left, and fails
when a room has less than its share. Asks gcov itself: the gcovr of Debian 12 ends where a function
stands in two places.
"""

import collections
import concurrent.futures
import pathlib
import re
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
BRANCH = re.compile(
    r"branch +(?P<number>\d+) (?:taken (?P<count>\d+)|never executed)(?: \((?P<kind>\w+)\))?"
)
BLOCK = re.compile(r" *(?P<count>[^: ]+): +\d+-block ")
SOURCE = re.compile(r" *-: +0:Source:(?P<path>.*)")
LINE = re.compile(r" *[^: ]+: +(?P<number>\d+):")
NO_CODE = re.compile(r"[\s{}();,]*(//.*)?")


def room_of(path):
    return next((room for room in LEAST if path.startswith(room + "/")), None)


def reported(data):
    """What gcov tells of an object's counts, as text: its JSON tells no blocks."""
    command = ["gcov", "--branch-probabilities", "--branch-counts", "--all-blocks", "--stdout", data]
    return subprocess.run(command, cwd=data.parent, check=True, stdout=subprocess.PIPE).stdout


def counted(reports):
    """By file, line and number, how often each branch was taken, whatever object or instance has the
    line. gcov tells those that only an exception takes or leads to in some instances alone."""
    branches = collections.defaultdict(lambda: collections.defaultdict(collections.Counter))
    exceptional = set()
    path, number, is_exceptional = "", 0, False
    for line in (line for report in reports for line in report.decode().splitlines()):
        if branch := BRANCH.match(line):
            if room_of(path):
                branches[path][number][branch["number"]] += int(branch["count"] or 0)
                if is_exceptional or branch["kind"] == "throw":
                    exceptional.add((path, number, branch["number"]))
        elif block := BLOCK.match(line):
            is_exceptional = block["count"] == "$$$$$"
        elif source := SOURCE.match(line):
            path = source["path"].removeprefix(f"{ROOT}/")
        elif begun := LINE.match(line):
            number, is_exceptional = int(begun["number"]), False
    for path, number, branch in exceptional:
        del branches[path][number][branch]
    return branches


def taken_and_all(path, branches):
    """Without those of lines that hold no more than a brace: they come from the compiler."""
    lines = (ROOT / path).read_text(encoding="utf-8").splitlines()
    counts = [
        count
        for number, ways in branches.items()
        if not NO_CODE.fullmatch(lines[number - 1])
        for count in ways.values()
    ]
    return sum(count > 0 for count in counts), len(counts)


def main(build):
    data = sorted(pathlib.Path(build).resolve().rglob("*.gcda"))
    with concurrent.futures.ThreadPoolExecutor() as pool:
        branches = counted(pool.map(reported, data))
    files = {path: taken_and_all(path, lines) for path, lines in branches.items()}
    status = 0
    for room, least in LEAST.items():
        of_room = [files[path] for path in files if room_of(path) == room]
        taken, total = (sum(column) for column in zip(*of_room)) if of_room else (0, 0)
        share = 100 * taken / total if total else 0
        verdict = "" if share >= least else f", at least {least} % are wanted"
        status |= bool(verdict)
        print(f"{room}: {taken} of {total} branches, {share:.1f} %{verdict}")
    worst = sorted(files, key=lambda path: files[path][0] - files[path][1])[:WORST_FILES]
    for path in worst:
        print(f"  {path}: {files[path][1] - files[path][0]} left")
    return status


if __name__ == "__main__":
    sys.exit(main(sys.argv[1]))
