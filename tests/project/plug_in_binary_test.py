"""What the built plug-in shows to the dynamic linker."""

import os
import pathlib
import re
import subprocess
import unittest

BUILD = pathlib.Path(os.environ["CARDPANELS_BUILD_DIR"])
PLUG_IN = BUILD / "lib" / "cardpanels.bundle" / "cardpanels.so"
PLATFORM = BUILD / "lib" / "libcardpanels-platform.so"

RUNTIME = {"libc.so.6", "libm.so.6", "libstdc++.so.6", "libgcc_s.so.1", "ld-linux-x86-64.so.2"}
SANITIZERS = re.compile(r"lib(asan|ubsan)\.so\.\d+")


def libraries(binary):
    """What a binary names as needed, besides the runtimes of the language and the sanitizers."""
    listed = subprocess.run(
        ["readelf", "--dynamic", "--wide", binary], check=True, capture_output=True, text=True
    ).stdout
    names = set(re.findall(r"\(NEEDED\).*\[(.+)\]", listed)) - RUNTIME
    return {each for each in names if not SANITIZERS.fullmatch(each)}


def symbols(binary, which):
    """The dynamic symbols that a binary defines ("defined") or wants ("undefined")."""
    listed = subprocess.run(
        ["nm", "--dynamic", "--demangle", "--format=posix", f"--{which}-only", binary],
        check=True,
        capture_output=True,
        text=True,
    ).stdout
    return [re.split(r" [A-Za-z](?: |$)", line)[0] for line in listed.splitlines()]


class ThePlugIn(unittest.TestCase):
    def test_exports_one_symbol(self):
        self.assertEqual(symbols(PLUG_IN, "defined"), ["cardpanelsCreatePlugIn"])

    def test_needs_cups_the_platform_and_no_toolkit(self):
        self.assertEqual(libraries(PLUG_IN), {"libcups.so.2", "libcardpanels-platform.so.0"})

    def test_writes_to_the_log_that_it_shares_with_the_host(self):
        shared = set(symbols(PLUG_IN, "undefined")) & set(symbols(PLATFORM, "defined"))
        self.assertTrue([each for each in shared if "::NSLogv(" in each], sorted(shared))

    def test_comes_with_a_platform_that_needs_no_toolkit(self):
        self.assertLessEqual(libraries(PLATFORM), {"libcups.so.2", "libsystemd.so.0"})


if __name__ == "__main__":
    unittest.main()
