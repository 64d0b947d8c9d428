"""The checkout's own files and what they include."""

import functools
import os
import pathlib
import re

INCLUDE = re.compile(r'^[ \t]*#[ \t]*include[ \t]*([<"])([^>"]+)[>"]', re.MULTILINE)
CPP_SUFFIXES = (".h", ".cpp", ".c")


def own_files(root):
    """The files of the checkout in order, as paths from its root; nothing built, nothing hidden
    but .ci."""
    found = []
    for folder, subfolders, files in os.walk(root):
        at_root = pathlib.Path(folder) == pathlib.Path(root)
        subfolders[:] = sorted(
            each
            for each in subfolders
            if not (each.startswith(".") or each == "__pycache__" or (at_root and each == "build"))
            or (at_root and each == ".ci")
        )
        found += [(pathlib.Path(folder) / each).relative_to(root).as_posix() for each in files]
    return sorted(found)


def cpp_files(root):
    return [each for each in own_files(root) if each.endswith(CPP_SUFFIXES)]


def includes(text):
    """The includes of a file as (line number, True for "…" and False for <…>, path)."""
    return [
        (text.count("\n", 0, match.start()) + 1, match[1] == '"', match[2])
        for match in INCLUDE.finditer(text)
    ]


@functools.lru_cache(maxsize=None)
def _own_includes(root, path):
    text = (root / path).read_text(encoding="utf-8", errors="replace")
    return [name for _, own, name in includes(text) if own and (root / name).is_file()]


def closure(root, path):
    """The file and all own files that it includes, at any depth."""
    root = pathlib.Path(root)
    seen, left = set(), [path]
    while left:
        each = left.pop()
        if each not in seen:
            seen.add(each)
            left += _own_includes(root, each)
    return sorted(seen)


def scripts(root, *interpreters):
    """The own files whose first line names one of the interpreters, or that have its suffix."""
    suffixes = {"python3": ".py", "bash": ".sh"}
    found = []
    for path in own_files(root):
        if any(path.endswith(suffixes.get(each, "\0")) for each in interpreters):
            found.append(path)
            continue
        with open(pathlib.Path(root) / path, "rb") as file:
            first = file.readline(200)
        words = re.split(rb"[ /\s]+", first) if first.startswith(b"#!") else []
        if any(each.encode() in words for each in interpreters):
            found.append(path)
    return found
