#!/usr/bin/python3
"""Judges the sources; `--format` lays them out instead.

What compiles a file (clang-tidy, headers alone) remembers in build/lint/clean what it found clean,
by the contents of all that the file includes, so that only what changed is judged again.
"""

import concurrent.futures
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
CLEAN = BUILD / "clean"
TIDY_SETTINGS = (".clang-tidy", "tests/.clang-tidy")
HEADER_PACKAGES = ("gtkmm-3.0", "pugixml", "gmock")
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


def judged_once(path, command, text=None):
    """What the command says of a file, unless it was clean with the same contents before."""
    digest = hashlib.sha256(repr((command, text)).encode())
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


def headers_alone():
    flags = shlex.split(
        subprocess.run(
            ["pkg-config", "--cflags", *HEADER_PACKAGES], check=True, capture_output=True, text=True
        ).stdout
    )
    # Others' headers are not judged.
    flags = [each.replace("-I", "-isystem", 1) for each in flags]
    base = ["g++", "-std=c++20", *WARNINGS, "-fsyntax-only", "-I."]

    def judge(path):
        return judged_once(path, [*base, *flags, "-x", "c++", "-"], f'#include "{path}"\n')

    return side_by_side(judge, [each for each in sources.cpp_files(ROOT) if each.endswith(".h")])


def clang_tidy():
    # The command line stands in the key: other flags judge anew.
    commands = dict(compiled())

    def judge(path):
        command = ["clang-tidy", "--quiet", "-p", str(BUILD), path]
        found = judged_once(path, [*command, f"--extra-arg=-DFLAGS_{digest_of(commands[path])}"])
        return COUNT_OF_HIDDEN.sub("", found)

    return side_by_side(judge, sorted(commands))


def digest_of(text):
    return hashlib.sha256(text.encode()).hexdigest()[:16]


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


CHECKS = (layout, folders, nothing_left_out, shell, python, headers_alone, cppcheck, clang_tidy)


def lint():
    forget_the_old()
    clean = True
    for check in CHECKS:
        start = time.monotonic()
        found = check()
        clean = clean and not found
        name = check.__name__.replace("_", " ")
        verdict = "FAILED" if found else "clean"
        print(f"{found}lint: {name}: {verdict} ({time.monotonic() - start:.1f} s)", flush=True)
    return 0 if clean else 1


def main():
    if sys.argv[1:] == ["--format"]:
        return bool(output_of(["clang-format", "-i", *sources.cpp_files(ROOT)]))
    return lint()


if __name__ == "__main__":
    sys.exit(main())
