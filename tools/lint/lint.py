#!/usr/bin/python3
"""Judges the sources: `lint.py` all, `lint.py --since COMMIT` of what is compiled only what differs
from that commit; `lint.py --format` lays them out instead.

What compiles a file (clang-tidy, headers alone) remembers in the user's cache what it found clean, by
the contents of all that the file includes, so that any checkout judges again only what changed.
"""

import argparse
import concurrent.futures
import functools
import hashlib
import json
import os
import pathlib
import re
import shlex
import subprocess
import sys
import time

import folder_rule
import sources

ROOT = pathlib.Path(__file__).resolve().parents[2]
BUILD = ROOT / "build" / "lint"
CACHE = pathlib.Path(os.environ.get("XDG_CACHE_HOME") or pathlib.Path.home() / ".cache")
CLEAN = CACHE / "cardpanels" / "lint"
TIDY_SETTINGS = (".clang-tidy", "tests/.clang-tidy")
HEADER_PACKAGES = ("pugixml", "gmock")
COUNT_OF_HIDDEN = re.compile(r"^\d+ (warnings?|errors?).* generated\.\n", re.MULTILINE)
WARNINGS = ("-Wall", "-Wextra", "-Wpedantic", "-Wshadow", "-Werror", "-Wno-deprecated-declarations")


def output_of(command, text=None):
    """What a command says when it fails; nothing when it succeeds."""
    done = subprocess.run(
        command,
        cwd=ROOT,
        input=text,
        stdin=subprocess.DEVNULL if text is None else None,
        stdout=subprocess.PIPE,
        stderr=subprocess.STDOUT,
        text=True,
    )
    return "" if done.returncode == 0 else done.stdout or f"{command[0]}: {done.returncode}\n"


def side_by_side(judge, subjects):
    """The findings of all subjects, each once, in order."""
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        found = pool.map(judge, subjects)
        return "".join(dict.fromkeys(each for each in found if each))


@functools.lru_cache(maxsize=None)
def version(program):
    return subprocess.run([program, "--version"], check=True, capture_output=True).stdout


def judged_once(path, command, text=None, flags=""):
    """What the command says of a file, unless it was clean with the same contents before, wherever
    the checkout was. `flags` are what else the command goes by."""
    key = repr((command, text, flags)).replace(str(ROOT), "")
    digest = hashlib.sha256(key.encode() + version(command[0]))
    for each in (*TIDY_SETTINGS, *sources.closure(ROOT, path)):
        digest.update((ROOT / each).read_bytes())
    stamp = CLEAN / digest.hexdigest()
    if stamp.exists():
        stamp.touch()
        return ""
    found = output_of(command, text)
    if not found:
        stamp.touch()
    return found


def forget_the_old():
    """Drops stamps that no run has used for a month."""
    CLEAN.mkdir(parents=True, exist_ok=True)
    for stamp in CLEAN.iterdir():
        if time.time() - stamp.stat().st_mtime > 30 * 24 * 3600:
            stamp.unlink()


def compiled():
    """The own sources that the build compiles, with their command lines."""
    for entry in json.loads((BUILD / "compile_commands.json").read_text()):
        path = pathlib.Path(entry["directory"], entry["file"]).resolve()
        if path.is_relative_to(ROOT) and not path.is_relative_to(ROOT / "build"):
            yield path.relative_to(ROOT).as_posix(), entry["command"]


def layout():
    return output_of(["clang-format", "--dry-run", "-Werror", *sources.cpp_files(ROOT)])


def folders():
    return "".join(each + "\n" for each in folder_rule.problems(ROOT))


def nothing_left_out():
    """Sources that no target builds, which nobody would judge."""
    built = {path for path, _ in compiled()}
    left = [each for each in sources.cpp_files(ROOT) if not each.endswith(".h")]
    return "".join(f"{each}:1: is built by no target\n" for each in left if each not in built)


@functools.lru_cache(maxsize=None)
def flags_of(*packages):
    """What a header of these packages needs to be found; others' headers are not judged."""
    command = ["pkg-config", "--cflags", *packages]
    found = subprocess.run(command, check=True, capture_output=True, text=True).stdout
    return [each.replace("-I", "-isystem", 1) for each in shlex.split(found)]


def headers_alone(judged):
    base = ["g++", "-std=c++20", *WARNINGS, "-fsyntax-only", "-I."]

    def judge(path):
        flags = flags_of(*HEADER_PACKAGES, "gtkmm-4.0" if "gtk4" in path else "gtkmm-3.0")
        return judged_once(path, [*base, *flags, "-x", "c++", "-"], f'#include "{path}"\n')

    return side_by_side(judge, [each for each in judged if each.endswith(".h")])


def clang_tidy(judged):
    commands = dict(compiled())

    def judge(path):
        command = ["clang-tidy", "--quiet", "-p", str(BUILD), path]
        return COUNT_OF_HIDDEN.sub("", judged_once(path, command, flags=commands[path]))

    return side_by_side(judge, sorted(set(through(judged, commands))))


def through(judged, units):
    """The units that judge these files: themselves, and for a header one that includes it, its own
    source if there is one."""
    for path in judged:
        if path in units:
            yield path
        elif path.endswith(".h"):
            including = [each for each in units if path in sources.closure(ROOT, each)]
            own = path.removesuffix(".h") + ".cpp"
            yield from [own] if own in including else sorted(including)[:1]


def cppcheck():
    cache = BUILD / "cppcheck"
    cache.mkdir(exist_ok=True)
    return output_of(
        [
            "cppcheck",
            "--quiet",
            "--enable=warning,performance,portability",
            "--std=c++20",
            "--library=googletest",
            "--error-exitcode=1",
            f"--cppcheck-build-dir={cache}",
            f"-j{os.cpu_count()}",
            "-I.",
            "-DINSTANTIATE_TEST_SUITE_P(...)=",  # its first argument may be empty
            "--file-list=-",
        ],
        "".join(each + "\n" for each in sources.cpp_files(ROOT) if not each.endswith(".h")),
    )


def shell():
    return output_of(["shellcheck", *sources.scripts(ROOT, "bash", "sh")])


def python():
    return output_of(["pyflakes3", *sources.scripts(ROOT, "python3")])


OF_THE_WHOLE = (layout, folders, nothing_left_out, shell, python, cppcheck)
OF_EACH_FILE = (headers_alone, clang_tidy)


def different_from(commit):
    """The C++ files that are not as they were in the commit."""
    git = ["git", "-C", str(ROOT)]
    for command in ([*git, "diff", "--name-only", commit], [*git, "ls-files", "--others"]):
        yield from subprocess.run(command, check=True, capture_output=True, text=True).stdout.split()


def lint(since):
    forget_the_old()
    judged = set(sources.cpp_files(ROOT))
    if since:
        judged &= set(different_from(since))
    clean = True
    for check in (*OF_THE_WHOLE, *OF_EACH_FILE):
        start = time.monotonic()
        found = check(judged) if check in OF_EACH_FILE else check()
        clean = clean and not found
        name = check.__name__.replace("_", " ")
        verdict = "FAILED" if found else "clean"
        print(f"{found}lint: {name}: {verdict} ({time.monotonic() - start:.1f} s)", flush=True)
    return 0 if clean else 1


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--format", action="store_true")
    parser.add_argument("--since", metavar="COMMIT")
    arguments = parser.parse_args()
    if arguments.format:
        return bool(output_of(["clang-format", "-i", *sources.cpp_files(ROOT)]))
    return lint(arguments.since)


if __name__ == "__main__":
    sys.exit(main())
