#!/usr/bin/python3
"""lose_file.py PROGRAM QUEUE FILE: opens the dialog to print the file, removes the file, presses Print,
prints what the dialog then tells, and cancels. Answers as the program does."""

import os
import pathlib
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "support"))
import atspi_driver as user  # noqa: E402 (found by the path)


def told(bar):
    """The text that shows in the bar."""
    labels = [each for each in user.descendants(bar) if each.get_role_name() == "label"]
    return " ".join(filter(None, map(user.text_of, labels)))


def lose_file(program, queue, file):
    server = {name: os.environ[name] for name in ("CUPS_SERVER", "CUPS_SERVERROOT")}
    with user.Desktop() as desktop:
        dialog = desktop.start(
            [program, "-d", queue, file], G_DEBUG="fatal-criticals", GDK_GL="disable", **server
        )
        button = dialog.find("push button", "Print")
        os.remove(file)
        user.press(button)
        bar = dialog.find("info bar")
        print(user.wait_for(lambda: told(bar), "the bar tells nothing"))
        user.press(dialog.find("push button", "Cancel"))
        return dialog.finish()


if __name__ == "__main__":
    status, out, err = lose_file(*sys.argv[1:])
    print(out, end="")
    print(err, end="", file=sys.stderr)
    sys.exit(status)
