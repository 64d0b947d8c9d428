"""What the built binaries show to the dynamic linker."""

import os
import pathlib
import re
import subprocess
import unittest

BUILD = pathlib.Path(os.environ["CARDPANELS_BUILD_DIR"])
PLUG_IN = BUILD / "lib" / "cardpanels.bundle" / "cardpanels.so"
PLATFORM = BUILD / "lib" / "libcardpanels-platform.so"
MODULE = BUILD / "lib" / "libcardpanels-gtk3-module.so"
PAGE = BUILD / "lib" / "libcardpanels-gtk3-page.so"
HOST = BUILD / "lib" / "libcardpanels-host.so"
DIALOG = BUILD / "lib" / "libcardprint-dialog.so"
PROGRAMS = (BUILD / "bin" / "cardprint", BUILD / "bin" / "pde-drive")

RUNTIME = {"libc.so.6", "libm.so.6", "libstdc++.so.6", "libgcc_s.so.1", "ld-linux-x86-64.so.2"}


def libraries(binary):
    """What a binary names as needed, besides the runtime of the language."""
    listed = subprocess.run(
        ["readelf", "--dynamic", "--wide", binary], check=True, capture_output=True, text=True
    ).stdout
    return set(re.findall(r"\(NEEDED\).*\[(.+)\]", listed)) - RUNTIME


def all_libraries(binary):
    """The names of all libraries that the binary's start loads."""
    listed = subprocess.run(["ldd", binary], check=True, capture_output=True, text=True).stdout
    return set(re.findall(r"^\s*(?:\S*/)?(\S+)", listed, re.MULTILINE))


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


class TheOtherBinaries(unittest.TestCase):
    def test_the_page_library_exports_one_symbol(self):
        self.assertEqual(symbols(PAGE, "defined"), ["cardpanelsShowPrinter"])

    def test_the_module_exports_what_gtk_asks_it_for(self):
        self.assertEqual(
            sorted(symbols(MODULE, "defined")), ["g_module_check_init", "gtk_module_init"]
        )

    def test_the_dialogs_library_exports_one_symbol(self):
        self.assertEqual(symbols(DIALOG, "defined"), ["cardprintOpenWindows"])

    def test_shared_rooms_export_their_own_and_the_records_of_their_types(self):
        # By these names what programs load asks the host, without linking it.
        asked = ["cardpanelsAskElsewhere", "cardpanelsStopAsking"]
        for library, room, example, others in (
            (PLATFORM, "platform", "PrintPanel", []),
            (HOST, "host", "PanelHost", asked),
        ):
            with self.subTest(library=library.name):
                defined = symbols(library, "defined")
                own = re.compile(
                    r"((typeinfo|typeinfo name|vtable) for |non-virtual thunk to )?"
                    rf"cardpanels::{room}::"
                )
                self.assertEqual([each for each in defined if not own.match(each)], others)
                for record in ("typeinfo", "typeinfo name", "vtable"):
                    self.assertIn(f"{record} for cardpanels::{room}::{example}", defined)

    def test_the_host_needs_cups_the_platform_and_no_toolkit(self):
        self.assertEqual(libraries(HOST), {"libcups.so.2", "libcardpanels-platform.so.0"})

    def test_a_program_and_the_dialog_that_it_opens_share_one_host(self):
        for binary in (DIALOG, PAGE, *PROGRAMS):
            with self.subTest(binary=binary.name):
                self.assertIn("libcardpanels-host.so.0", libraries(binary))
                wanted = symbols(binary, "undefined")
                self.assertTrue([each for each in wanted if "host::PanelHost::" in each])

    def test_programs_start_without_a_toolkit(self):
        toolkit = re.compile(r"lib(gtk|gdk|g(lib|object|io|module)-2|cairo|pango|atk|sigc|X11)")
        self.assertTrue(list(filter(toolkit.match, all_libraries(DIALOG))))
        for program in PROGRAMS:
            with self.subTest(program=program.name):
                self.assertEqual(list(filter(toolkit.match, all_libraries(program))), [])

    def test_programs_export_nothing_of_ours(self):
        for program in PROGRAMS:
            with self.subTest(program=program.name):
                defined = symbols(program, "defined")
                self.assertEqual([each for each in defined if "cardpanels" in each], [])

    def test_type_records_of_the_platform_are_shared(self):
        """Each other binary takes them from the platform library, and has none of its own."""
        for binary in (PLUG_IN, HOST, PAGE, DIALOG, *PROGRAMS):
            with self.subTest(binary=binary.name):
                shared = [each for each in symbols(binary, "undefined")
                          if each.startswith("typeinfo for cardpanels::platform::")]
                self.assertTrue(shared)


if __name__ == "__main__":
    unittest.main()
