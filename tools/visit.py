#!/usr/bin/python3
"""Plays a short visit to cardprint on a display in memory: chooses a laminate and presses
Print. Arguments go to cardprint; what it says and shows is told."""

import pathlib
import sys

ROOT = pathlib.Path(__file__).resolve().parents[1]
sys.path.insert(0, str(ROOT / "tests" / "support"))
import atspi_driver as user  # noqa: E402 (found by the path)

PICTURE = ROOT / "build" / "visit.png"
PPD = ROOT / "resources" / "ppd" / "card-duplex.ppd"


def visit(arguments):
    with user.Desktop(theme="Adwaita") as desktop:
        program = desktop.start(
            [str(ROOT / "build" / "bin" / "cardprint"), "--ppd", str(PPD), *arguments]
        )
        window = program.window()
        user.select_row(window, "Thermal Laminate")
        print("choosing: Thermal Laminate, Both Sides")
        user.choose(program.find("combo box", "Thermal Laminate"), "Both Sides")
        desktop.picture(str(PICTURE), window)
        print(f"screenshot: {PICTURE}")

        print("pressing: Print")
        user.press(program.find("push button", "Print"))
        status, out, err = program.finish()
    print(f"summary, and options of the job:\n{out}", end="")
    print(err, end="", file=sys.stderr)
    return status


if __name__ == "__main__":
    sys.exit(visit(sys.argv[1:]))
