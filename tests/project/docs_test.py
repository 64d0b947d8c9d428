"""What the pages in docs/ and the manuals tell to type works, and every PPD in them is right.

Blocks of `sh` run as they stand, those of `console` need root or a desktop and do not."""

import os
import pathlib
import re
import shutil
import subprocess
import tempfile
import unittest

from print_server import PrintServer

ROOT = pathlib.Path(os.environ["CARDPANELS_SOURCE_DIR"])
BUILD = pathlib.Path(os.environ["CARDPANELS_BUILD_DIR"])
SAMPLE = ROOT / "resources" / "ppd" / "card-duplex.ppd"
DOCUMENT = "/usr/share/cups/data/default-testpage.pdf"
SANITIZERS = {name: value for name, value in os.environ.items() if name.endswith("SAN_OPTIONS")}
PAGES = ("printing-cards.md", "setting-up.md", "writing-a-ppd.md")


def blocks(page, language):
    text = (ROOT / "docs" / page).read_text(encoding="utf-8")
    return re.findall(rf"^```{language}\n(.*?)^```", text, re.M | re.S)


def examples(page):
    """The commands in a manual's EXAMPLES, as a reader sees them."""
    text = (ROOT / "resources" / "man" / page).read_text(encoding="utf-8")
    text = text[text.index(".SH EXAMPLES") :]
    found = re.findall(r"^\.EX\n(.*?)^\.EE", text, re.M | re.S)
    return [each.replace("\\-", "-").replace("\\e", "\\") for each in found]


def run(command, folder, **env):
    path = f"{BUILD}/bin:/usr/sbin:/usr/bin:/sbin:/bin"
    env = {"PATH": path, "HOME": str(folder), "LC_ALL": "C.UTF-8", **SANITIZERS, **env}
    command = ["sh", "-eu", "-c", command]
    return subprocess.run(
        command, cwd=folder, env=env, capture_output=True, text=True, check=False
    )


class Folder(unittest.TestCase):
    def setUp(self):
        self.folder = pathlib.Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.folder)


class PPDs(Folder):
    def ppds(self):
        """The complete PPD, and with each of the pieces that go behind it."""
        complete, *pieces = blocks("writing-a-ppd.md", "ppd")
        self.assertGreaterEqual(len(pieces), 4)
        return [complete, *(complete + each for each in pieces)]

    def test_pass_both_checks(self):
        for number, text in enumerate(self.ppds()):
            path = self.folder / f"{number}.ppd"
            path.write_text(text, encoding="utf-8")
            for command in (f"cardprint --check {path}", f"cupstestppd -q {path}"):
                with self.subTest(command=command):
                    done = run(command, self.folder)
                    self.assertEqual(done.returncode, 0, done.stdout + done.stderr)

    def test_show_all_that_they_are_about(self):
        told = ""
        for number, text in enumerate(self.ppds()):
            (self.folder / f"{number}.ppd").write_text(text, encoding="utf-8")
            told += run(f"cardprint --check {number}.ppd", self.folder).stdout
        for part in ("Choice 4 of frontRibbon", "Choice 12 of frontResin", "Choice 13 of frontPO"):
            self.assertIn(part, told)


class Commands(Folder):
    """On a print server of the test's own, with the queue `badges`."""

    def setUp(self):
        super().setUp()
        self.server = PrintServer()
        self.server.__enter__()
        self.addCleanup(self.server.__exit__)
        self.server.add_queue("badges", SAMPLE)
        shutil.copy(DOCUMENT, self.folder / "card.pdf")
        for name in ("ada.png", "grace.png"):
            subprocess.run(["convert", "-size", "100x60", "xc:red", self.folder / name], check=True)
        shutil.copy(SAMPLE, self.folder / "printer.ppd")

    def check(self, commands):
        saved = ("lpoptions -p badges/visitors -o cardLaminate=Back",)
        for command in (*saved, *commands):
            with self.subTest(command=command):
                done = run(command, self.folder, **self.server.env)
                self.assertEqual(done.returncode, 0, done.stdout + done.stderr)

    def test_of_the_pages_work(self):
        for page in PAGES:
            commands = blocks(page, "sh")
            self.assertTrue(commands, page)
            self.check(commands)

    def test_of_the_manuals_work(self):
        for page in ("cardprint.1", "pde-drive.1"):
            commands = examples(page)
            self.assertGreater(len(commands), 1, page)
            shown = [each for each in commands if each == "cardprint -d badges card.pdf\n"]
            self.assertEqual(len(shown), 1 if page == "cardprint.1" else 0)
            self.check([each for each in commands if each not in shown])


if __name__ == "__main__":
    unittest.main()
