#!/usr/bin/python3
"""soak.py [COUNT]: prints COUNT cards (200 by default) in one process of a program with the module,
each from a dialog of its own, on whose page choices and an area are changed.

Before that it prints as many without the module: GTK keeps some memory of each dialog for good.
With the module, memory must not grow by more than 2 % beside that, and no file descriptor or thread
may be left. Takes three seconds a dialog and more. Finds the checkout and what was built as the
tests do.
"""

import pathlib
import statistics
import sys
import unittest

import atspi_driver as user
from print_dialog import criticals
from print_dialog_test import MODULE, PROGRAM, PrintDialogTestCase

STEP = 5
LAMINATES = ("Front Side", "Back Side", "Both Sides", "No Laminate")


def used(pid):
    """What a process uses: KiB of memory of its own, file descriptors, threads."""
    process = pathlib.Path("/proc") / str(pid)
    rollup = (process / "smaps_rollup").read_text().splitlines()
    (anonymous,) = (int(line.split()[1]) for line in rollup if line.startswith("Anonymous:"))
    return anonymous, len(list((process / "fd").iterdir())), len(list((process / "task").iterdir()))


def grown(seen):
    """From the second quarter to the last, by medians: KiB more, the KiB before, files and threads
    more."""
    quarter = len(seen) // 4
    before, after = (
        [statistics.median(each) for each in zip(*part)]
        for part in (seen[quarter : 2 * quarter], seen[-quarter:])
    )
    more, files, threads = (b - a for a, b in zip(before, after))
    return more, before[0], files, threads


class SoakTestCase(PrintDialogTestCase):
    count = 200

    def start_with_log(self, module):
        """Starts the tests' own program, whose errors are more than a pipe holds."""
        log = pathlib.Path(self.desktop.home, "errors")
        command = ["sh", "-c", f'exec "{PROGRAM}" "{self.commands}" 2>"{log}"']
        dialog = self.start(command, module)
        self.program.window()
        return dialog, log

    def change(self, dialog, number):
        dialog.open_card()
        dialog.open_panel("Ribbon and Resin")
        dialog.choose("Front Resin", "Defined Areas" if number % 2 else "Black Text")
        if number % 2:
            for name in ("X", "Y", "width", "height"):
                dialog.type(f"Front Resin Area 1, {name}", f"{1 + number % 3 / 4}in")
        dialog.open_panel("Thermal Laminate")
        dialog.choose("Thermal Laminate", LAMINATES[number % len(LAMINATES)])

    def print_cards(self, first, module):
        """Prints cards with the jobs' numbers from `first` on; answers what the program used."""
        dialog, log = self.start_with_log(module)
        seen = []
        for number in range(first, first + self.count):
            self.send("operation")
            dialog.select_printer("card")
            if module:
                self.change(dialog, number)
            dialog.press("Print")
            self.job(number)
            root = self.program.root
            user.wait_for(lambda root=root: not user.showing(root, "dialog"), "the dialog stays")
            if number % STEP == 0:
                seen.append(used(self.program.pid))
                memory, files, threads = seen[-1]
                print(f"{number}: {memory} KiB, {files} files, {threads} threads", flush=True)
        self.check_end()
        self.assertEqual(criticals(log.read_text()), [])
        return seen

    def test_nothing_grows_and_nothing_is_left(self):
        own, memory_before, _, _ = grown(self.print_cards(1, module=None))
        print(f"without the module: {own} KiB more on {memory_before} KiB")
        more, memory, files, threads = grown(self.print_cards(1 + self.count, MODULE))
        print(f"with the module: {more} KiB more on {memory} KiB (at most {own} KiB and 2 %)")
        self.assertLessEqual(more, own + 0.02 * memory, "memory grows")
        self.assertLessEqual(files, 0, "file descriptors are left")
        self.assertLessEqual(threads, 0, "threads are left")


if __name__ == "__main__":
    if len(sys.argv) > 1:
        SoakTestCase.count = int(sys.argv.pop(1))
    unittest.main(defaultTest="SoakTestCase")
