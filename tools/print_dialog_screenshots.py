#!/usr/bin/python3
"""print_dialog_screenshots.py [FOLDER]: takes the pictures print-dialog.png,
print-dialog-conflict.png and print-dialog-gtk4.png of the print dialogs of GTK 3 and GTK 4 with the
page Card, and leaves them in FOLDER (build/screenshots). CARDPANELS_BUILD_DIR names another build
than build. Needs what ./dev setup installs."""

import os
import pathlib
import sys

ROOT = pathlib.Path(__file__).resolve().parents[1]
sys.path.insert(0, str(ROOT / "tests" / "support"))
import atspi_driver as user  # noqa: E402 (found by the path)
from gtk4_print_dialog import Gtk4PrintDialog  # noqa: E402
from print_dialog import PrintDialog  # noqa: E402
from print_server import PrintServer  # noqa: E402

BUILD = pathlib.Path(os.environ.get("CARDPANELS_BUILD_DIR", ROOT / "build"))
MODULE = BUILD / "lib" / "libcardpanels-gtk3-module.so"
MODULES = BUILD / "lib" / "gtk-4.0"
PPD = ROOT / "resources" / "ppd" / "card-duplex.ppd"


def main(folder):
    folder.mkdir(parents=True, exist_ok=True)
    with PrintServer() as server, user.Desktop(theme="Adwaita") as desktop:
        server.add_queue("Badges", PPD)
        command = ["gtk3-demo", "--run=printing"]
        program = desktop.start(command, GTK_MODULES=str(MODULE), **server.env)
        dialog = PrintDialog(program)
        dialog.select_printer("Badges")
        window = program.find("dialog")

        def picture(name):
            desktop.picture(str(folder / name), window)
            print(folder / name)

        dialog.open_card()
        dialog.choose("Front Resin", "Defined Areas")
        for name, text in (("X", "0.5in"), ("Y", "0.25in"), ("width", "2in"), ("height", "1in")):
            dialog.type(f"Front Resin Area 1, {name}", text)
        picture("print-dialog.png")
        dialog.open_panel("Peel-Off")
        dialog.choose("Front Peel-Off", "Chip")
        dialog.open_panel("Thermal Laminate")
        dialog.choose("Thermal Laminate", "Both Sides")
        dialog.wait_for_text("was changed")
        picture("print-dialog-conflict.png")
        dialog.press("Cancel")
        program.end()
        take_of_gtk4(folder, server, desktop)


def take_of_gtk4(folder, server, desktop):
    command = ["gtk4-demo", "--run=printing"]
    program = desktop.start(command, GTK_PATH=str(MODULES), **server.env)
    dialog = Gtk4PrintDialog(desktop, program)
    dialog.select_printer("Badges")
    dialog.open_card(size=(1060, 720))
    dialog.choose("Front Resin", "Defined Areas")
    dialog.type_area("Front Resin Area 1", "0.5in", "0.25in", "2in", "1in")
    dialog.leave_alone()
    desktop.picture(str(folder / "print-dialog-gtk4.png"), dialog.root)
    print(folder / "print-dialog-gtk4.png")
    program.end()


if __name__ == "__main__":
    main(pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else BUILD / "screenshots"))
