#!/usr/bin/python3
"""The folder rule: which folder may include what.

A row allows itself, rows above it, and libraries; so includes can run in no circle of folders.
"""

import dataclasses
import pathlib
import sys

import sources

# Libraries by the first part of an include in angle brackets.
LIBRARIES = {
    "cups": "cups",
    "systemd": "systemd",
    "pugixml.hpp": "pugixml",
    "gtest": "tests",
    "gmock": "tests",
    "benchmark": "benchmark",
    "cairo": "cairo",
    "cairo.h": "cairo",
    "poppler.h": "poppler",
}
LIBRARIES |= dict.fromkeys(
    "atk atkmm cairomm gdk gdk-pixbuf gdkmm gio giomm glib glib-object.h glib.h glibmm "
    "glibmm.h gmodule.h gtk gtkmm gtkmm.h pango pangomm sigc++".split(),
    "gtk",
)
# C library headers that the C++ standard does not have under a name of its own.
SYSTEM = set(
    "dirent.h dlfcn.h fcntl.h fnmatch.h ftw.h getopt.h glob.h iconv.h langinfo.h libgen.h "
    "libintl.h limits.h locale.h poll.h pthread.h pty.h pwd.h regex.h sched.h signal.h spawn.h "
    "stdint.h stdio.h stdlib.h string.h strings.h sysexits.h syslog.h termios.h time.h "
    "unistd.h".split()
)


@dataclasses.dataclass(frozen=True)
class Room:
    """A folder, and the rooms and libraries that it may include."""

    name: str
    rooms: tuple = ()
    libraries: tuple = ()


PPD = "cups/ppd.h"

# From the ground up. A file belongs to the innermost of these folders that it stands in.
TABLE = (
    Room("platform", (), (PPD, "systemd")),
    Room("plugin/log", ("platform",), (PPD,)),
    Room("plugin/choices", ("platform", "plugin/log"), (PPD,)),
    Room("plugin/panels", ("platform", "plugin/log", "plugin/choices"), (PPD,)),
    Room("plugin", ("platform", "plugin/log", "plugin/choices", "plugin/panels"), (PPD,)),
    Room("host", ("platform",), ("cups",)),
    Room("dialog", ("platform", "host"), ("cups",)),
    Room("ports/headless", ("platform", "dialog"), (PPD, "pugixml")),
    Room("ports/cairo", ("platform", "dialog"), ("cairo",)),
    Room("ports/gtk", ("dialog", "ports/cairo"), ("gtk", "cairo")),
    Room("ports/gtk3", ("platform", "dialog", "ports/gtk", "ports/cairo"), (PPD, "gtk", "cairo")),
    Room("ports/gtk4", ("platform", "dialog", "ports/gtk", "ports/cairo"), (PPD, "gtk", "cairo")),
    Room("apps/pde-drive", ("platform", "host", "dialog", "ports/headless"), ("cups",)),
    Room("apps/cardprint", ("platform", "host", "dialog"), ("cups",)),
    Room(
        "apps/cardprint-dialog",
        ("platform", "host", "dialog", "ports/gtk", "ports/gtk3", "apps/cardprint"),
        ("cups", "gtk", "cairo", "poppler"),
    ),
    Room("apps/gtk-module", ("platform", "host", "dialog", "ports/gtk"), ("cups", "gtk")),
    Room(
        "apps/gtk3-module",
        ("platform", "host", "dialog", "ports/gtk", "ports/gtk3", "apps/gtk-module"),
        ("cups", "gtk"),
    ),
    Room(
        "apps/gtk4-module",
        ("platform", "host", "dialog", "ports/gtk", "ports/gtk4", "apps/gtk-module"),
        ("cups", "gtk"),
    ),
)
# These may include everything.
FREE = ("tests", "bench", "fuzz")


def room_of(path, table=TABLE):
    """The row that a file belongs to, None without one."""
    fitting = [row for row in table if path.startswith(row.name + "/")]
    return max(fitting, key=lambda row: len(row.name), default=None)


def table_problems(table=TABLE):
    """Rows that allow what does not stand above them."""
    problems, above = [], set()
    for row in table:
        problems += [f"the row {row.name} allows {each}, which is not above it" for each in row.rooms
                     if each not in above]
        above.add(row.name)
    return problems


def _library_problem(row, name):
    first = name.split("/")[0]
    library = LIBRARIES.get(first)
    if library is None:
        standard = "/" not in name and "." not in name
        if standard or name in SYSTEM or first == "sys":
            return None
        return f"<{name}> is of no library that the rule knows"
    if library in row.libraries or name in row.libraries:
        return None
    return f"{row.name} may not include <{name}>"


def _own_problem(root, row, name, table):
    if not (root / name).is_file():
        return f'"{name}" is no file from the root of the checkout'
    target = room_of(name, table)
    if target is row or (target is not None and target.name in row.rooms):
        return None
    return f'{row.name} may not include "{name}"'


def _circles(root, paths):
    """Headers that include themselves by way of others."""
    for path in paths:
        text = (root / path).read_text(encoding="utf-8", errors="replace")
        for line, own, name in sources.includes(text):
            if own and (root / name).is_file() and path in sources.closure(root, name):
                yield f'{path}:{line}: "{name}" includes {path} again'


def problems(root, table=TABLE):
    """Each breach as "file:line: what"."""
    root = pathlib.Path(root)
    found = table_problems(table)
    paths = sources.cpp_files(root)
    for path in paths:
        if path.split("/")[0] in FREE:
            continue
        row = room_of(path, table)
        if row is None:
            found.append(f"{path}:1: stands in no folder that the rule knows")
            continue
        text = (root / path).read_text(encoding="utf-8", errors="replace")
        for line, own, name in sources.includes(text):
            problem = _own_problem(root, row, name, table) if own else _library_problem(row, name)
            if problem:
                found.append(f"{path}:{line}: {problem}")
    return found + list(_circles(root, paths))


def main():
    found = problems(pathlib.Path(__file__).resolve().parents[2])
    print("\n".join(found), end="\n" if found else "")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
