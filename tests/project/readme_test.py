"""README and the map of rooms tell the truth about packages and folders."""

import os
import pathlib
import re
import subprocess
import sys
import unittest

ROOT = pathlib.Path(os.environ["CARDPANELS_SOURCE_DIR"])
README = ROOT / "README.md"
HOUSE = ROOT / "docs" / "house.md"
sys.path.insert(0, str(ROOT / "tools" / "lint"))
import sources  # noqa: E402 (found by the path)

ROW = re.compile(r"^\| (.+?) \|", re.MULTILINE)


def names_in_first_columns(page):
    """What stands in backticks in the first column of any table."""
    cells = ROW.findall(page.read_text(encoding="utf-8"))
    return {name for cell in cells for name in re.findall(r"`([^`]+)`", cell)}


def source_folders():
    """Top-level folders that hold something; for ports and apps each folder in them."""
    for path in sources.own_files(ROOT):
        parts = path.split("/")
        if len(parts) > 2 and parts[0] in ("ports", "apps"):
            yield f"{parts[0]}/{parts[1]}/"
        elif len(parts) > 1 and not parts[0].startswith("."):
            yield f"{parts[0]}/"


def packages(group=None):
    for line in (ROOT / "tools" / "packages.txt").read_text().splitlines():
        if line and not line.startswith("#") and group in (None, line.split()[0]):
            yield line.split()[1]


class House(unittest.TestCase):
    def test_maps_every_folder(self):
        self.assertEqual(sorted(set(source_folders()) - names_in_first_columns(HOUSE)), [])

    def test_maps_no_folder_that_is_not_there(self):
        folders = {each for each in names_in_first_columns(HOUSE) if each.endswith("/")}
        self.assertTrue(folders)
        self.assertEqual(sorted(each for each in folders if not (ROOT / each).is_dir()), [])


class Readme(unittest.TestCase):
    def test_lists_every_package(self):
        self.assertEqual(sorted(set(packages()) - names_in_first_columns(README)), [])

    def test_its_script_for_pde_drive_runs(self):
        blocks = re.findall(r"^```sh\n(.*?)^```", README.read_text(encoding="utf-8"), re.M | re.S)
        block = next(each for each in blocks if "pde-drive --ppd" in each)
        command = block.replace("build/bin/", os.environ["CARDPANELS_BUILD_DIR"] + "/bin/")
        done = subprocess.run(
            ["sh", "-c", command], cwd=ROOT, capture_output=True, text=True, check=False
        )
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        self.assertIn("\n= cardLaminate=Front granted\n", done.stdout)


class DebianPackages(unittest.TestCase):
    def test_are_built_with_what_the_programs_need(self):
        control = (ROOT / "debian" / "control").read_text()
        field = re.search(r"^Build-Depends:\n((?: .*\n)+)", control, re.MULTILINE).group(1)
        named = set(re.findall(r"^ ([\w.+-]+)", field, re.MULTILINE)) - {"debhelper-compat"}
        self.assertEqual(named | {"g++"}, set(packages("build")))  # Debian always has the compiler


if __name__ == "__main__":
    unittest.main()
