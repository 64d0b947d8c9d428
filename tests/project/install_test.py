"""What is installed works, wherever it is put."""

import os
import pathlib
import re
import shutil
import subprocess
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
BUILD = pathlib.Path(os.environ["CARDPANELS_BUILD_DIR"])
SANITIZERS = {name: value for name, value in os.environ.items() if name.endswith("SAN_OPTIONS")}


class Installed(unittest.TestCase):
    def setUp(self):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="in stalled-"))
        self.addCleanup(shutil.rmtree, self.folder)

    def install(self, prefix, **env):
        command = ["cmake", "--install", BUILD, "--prefix", prefix]
        subprocess.run(command, check=True, capture_output=True, env={**os.environ, **env})

    def run_program(self, name, *arguments, given=None):
        program = self.folder / "moved" / "bin" / name
        return subprocess.run(
            [program, *arguments], capture_output=True, text=True, check=False, input=given,
            env={"LC_ALL": "de_DE.UTF-8", **SANITIZERS},
        )

    def test_programs_find_all_that_is_theirs_after_a_move(self):
        self.install(self.folder / "first")
        (self.folder / "first").rename(self.folder / "moved")
        ppd = self.folder / "moved" / "share" / "cardpanels" / "ppd" / "card-laminate.ppd"
        job = ("--ppd", ppd, "--no-dialog", "-o", "cardLaminate=Front")
        done = self.run_program("cardprint", *job)
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        self.assertEqual(done.stdout.splitlines()[-1], "-o cardLaminate=Front")
        self.assertTrue(done.stdout.startswith("Thermolaminat\n"), done.stdout)
        done = self.run_program("pde-drive", "--ppd", ppd, given="panels\n")
        self.assertIn("ThermalLaminatePDE", done.stdout)

    def test_nothing_lies_where_others_look_for_libraries(self):
        self.install("/usr", DESTDIR=str(self.folder))
        libraries = [each for each in self.folder.rglob("*.so*") if each.is_file()]
        self.assertTrue(libraries)
        real = {each.resolve() for each in libraries}  # a link leads GTK 4 to its module
        self.assertEqual([each for each in real if "cardpanels" not in each.parts], [])
        link = next(self.folder.rglob("cardpanels.bundle/resources/locale"))
        self.assertTrue((link / "de" / "LC_MESSAGES" / "cardpanels.mo").is_file())
        self.assertFalse(link.readlink().is_absolute())

    def test_programs_and_papers_tell_the_version_of_the_packages(self):
        self.install(self.folder / "moved")
        changelog = (ROOT / "debian" / "changelog").read_text(encoding="utf-8")
        version = re.match(r"cardpanels \(([^~)]+)", changelog).group(1)
        for name in ("cardprint", "pde-drive"):
            self.assertEqual(self.run_program(name, "--version").stdout, f"{name} {version}\n")
        metainfo = next((self.folder / "moved").rglob("*.metainfo.xml"))
        releases = re.findall('<release version="([^"]*)"', metainfo.read_text(encoding="utf-8"))
        self.assertEqual(releases[0], version)


if __name__ == "__main__":
    unittest.main()
