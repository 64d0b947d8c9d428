"""What tests of the page Card in GTK's print dialogs have in common."""

import os
import pathlib
import re
import subprocess
import unittest

import atspi_driver as user
from print_dialog import criticals
from print_server import PrintServer

SOURCE = pathlib.Path(os.environ["CARDPANELS_SOURCE_DIR"])
BUILD = pathlib.Path(os.environ["CARDPANELS_BUILD_DIR"])
CARD_PPD = SOURCE / "resources" / "ppd" / "card-duplex.ppd"
SANITIZED = "CARDPANELS_SANITIZE:BOOL=ON" in (BUILD / "CMakeCache.txt").read_text()

ORDINARY_PPD = """\
*PPD-Adobe: "4.3"
*FormatVersion: "4.3"
*FileVersion: "1.0"
*LanguageVersion: English
*LanguageEncoding: UTF-8
*PCFileName: "PLAIN.PPD"
*Manufacturer: "Example"
*Product: "(Example Plain)"
*ModelName: "Example Plain"
*ShortNickName: "Example Plain"
*NickName: "Example Plain"
*PSVersion: "(3010.000) 0"
*LanguageLevel: "3"
*ColorDevice: True
*DefaultColorSpace: RGB
*cupsFilter2: "application/vnd.cups-pdf application/pdf 0 -"
*OpenUI *PageSize/Paper: PickOne
*DefaultPageSize: A4
*PageSize A4/A4: ""
*CloseUI: *PageSize
*OpenUI *PageRegion/Paper: PickOne
*DefaultPageRegion: A4
*PageRegion A4/A4: ""
*CloseUI: *PageRegion
*DefaultImageableArea: A4
*ImageableArea A4/A4: "0 0 595 842"
*DefaultPaperDimension: A4
*PaperDimension A4/A4: "595 842"
*OpenUI *Toner/Toner: PickOne
*DefaultToner: Much
*Toner Much/Much: ""
*Toner Little/Little: ""
*CloseUI: *Toner
"""
# An option that no panel claims, in conflict with the laminate: only turning that off resolves it.
COATING = """\
*cupsUIConstraints Coating: "*coating Gloss *cardLaminate"
*cupsUIResolver Coating: "*cardLaminate None"
*cupsUIConstraints: "*coating Matte *frontRotation Rotate180 *backRotation Rotate180"
*OpenUI *coating/Coating: PickOne
*Defaultcoating: None
*coating None/No Coating: ""
*coating Gloss/Glossy: ""
*coating Matte/Matt: ""
*CloseUI: *coating
"""
# Our functions, libraries and sources in a stack of the sanitizers; not the folder of the checkout.
OWN_FRAME = re.compile(
    r"#\d+ .*( in cardpanels|cardpanels::|libcardpanels|cardpanels\.so|apps/gtk[34]?-module/)"
)


def sanitizer():
    """The library that another's program needs when a sanitized module is loaded into it."""
    command = ["clang", "-print-file-name=libclang_rt.asan-x86_64.so"]
    return subprocess.run(command, capture_output=True, text=True, check=True).stdout.strip()


def defaults(ppd):
    """The PPD's default choices by keyword."""
    return dict(re.findall(r"^\*Default(\w+): (\w+)$", pathlib.Path(ppd).read_text(), re.MULTILINE))


class PrintDialogCase(unittest.TestCase):
    """With a print server that has the queues `card`, `coated` and `plain`, and a desktop."""

    def setUp(self):
        self.server = self.enterContext(PrintServer())
        self.desktop = self.enterContext(user.Desktop())
        self.server.add_queue("card", CARD_PPD)
        self.server.add_queue("coated", self.write("coated.ppd", CARD_PPD.read_text() + COATING))
        self.server.add_queue("plain", self.write("plain.ppd", ORDINARY_PPD))
        self.commands = os.path.join(self.desktop.home, "commands")
        os.mkfifo(self.commands)
        self.program = None

    def tearDown(self):
        if self.program is not None:
            self.check_end()

    def write(self, name, text):
        path = os.path.join(self.desktop.home, name)
        pathlib.Path(path).parent.mkdir(parents=True, exist_ok=True)
        pathlib.Path(path).write_text(text)
        return path

    def send(self, command):
        with open(self.commands, "w", encoding="utf-8") as pipe:
            pipe.write(command + "\n")

    def job(self, number=1, state="completed", server=None):
        """The job of `server`, that of this machine without, once it is in that state."""
        server = server or self.server

        def job():
            found = server.job(number)
            return found if found and found["job-state"] == state else None

        return user.wait_for(job, lambda: f"job {number} is not {state}: {server.job(number)}")

    def check_end(self):
        """The program still runs, or ended well, and nothing critical was said."""
        status, errors = self.program.end()
        self.program = None
        self.assertIn(status, (0, -15), errors)
        self.assertEqual(criticals(errors), [], errors)
        self.assertNotIn("ERROR: AddressSanitizer", errors)
        self.assertNotIn("runtime error", errors)
        self.assertNotRegex(errors, OWN_FRAME)

    def check_that_an_area_is_drawn_moved_and_printed(self):
        """With `draw(dialog)`, which draws an area on the page and answers its texts."""
        dialog = self.start_demo()
        dialog.select_printer("card")
        dialog.open_card()
        dialog.choose("Front Resin", "Defined Areas")
        drawn = self.draw(dialog)
        dialog.press("Print")
        area = "Custom." + " ".join(drawn)
        self.assert_job(self.job(), frontResin="DefinedAreas", frontResinInclude1=area)

    def assert_job(self, job, ppd=CARD_PPD, **chosen):
        """The job carries `chosen`, and the PPD's defaults for all else that it carries."""
        expected = {key: value for key, value in defaults(ppd).items() if key in job} | chosen
        self.assertEqual({key: job.get(key) for key in expected}, expected)

    def assert_has(self, job, **chosen):
        """The job carries `chosen`, whatever paper and other options the program has."""
        self.assertEqual({key: job.get(key) for key in chosen}, chosen)

    def maps(self, library):
        with open(f"/proc/{self.program.pid}/maps", encoding="utf-8") as file:
            return library in file.read()
