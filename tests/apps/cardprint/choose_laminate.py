#!/usr/bin/python3
"""choose_laminate.py PROGRAM LAMINATE ARGUMENT...: starts the program with the arguments, chooses the
laminate in its dialog and presses Print. Answers as the program does."""

import os
import pathlib
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "support"))
import atspi_driver as user  # noqa: E402 (found by the path)

SERVER = ("CUPS_SERVER", "CUPS_SERVERROOT")


def choose_laminate(program, laminate, arguments):
    server = {name: os.environ[name] for name in SERVER if name in os.environ}
    with user.Desktop() as desktop:
        dialog = desktop.start([program, *arguments], G_DEBUG="fatal-criticals", GDK_GL="disable", **server)
        user.select_row(dialog.window(), "Thermal Laminate")
        user.choose(dialog.find("combo box", "Thermal Laminate"), laminate)
        user.press(dialog.find("push button", "Print"))
        return dialog.finish()


if __name__ == "__main__":
    status, out, err = choose_laminate(sys.argv[1], sys.argv[2], sys.argv[3:])
    print(out, end="")
    print(err, end="", file=sys.stderr)
    sys.exit(status)
