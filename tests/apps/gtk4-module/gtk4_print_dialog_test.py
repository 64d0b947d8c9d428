"""The page Card in GTK 4's print dialog of unmodified programs, used as a person would."""

import os
import pathlib
import re
import subprocess
import unittest

import atspi_driver as user
from gtk4_print_dialog_case import FRONT, Gtk4DialogCase
from print_dialog import criticals
from print_dialog_case import BUILD, SANITIZED

MODULE = BUILD / "lib" / "libcardpanels-gtk4-module.so"


class PanelsTestCase(Gtk4DialogCase):
    def test_two_areas_and_a_laminate_reach_the_job(self):
        dialog = self.start_demo()
        dialog.select_printer("card")
        dialog.open_card()
        dialog.choose("Front Resin", "Defined Areas")
        dialog.type_area("Front Resin Area 2", "1in", "1in", "2.125in", "1.0625in")
        dialog.choose("Back Ribbon", "Color and Black Resin (YMCK)")
        dialog.choose("Back Resin", "Defined Areas")
        dialog.type_area("Back Resin Area 1", "1in", "0.5in", "2in", "1in")
        dialog.open_panel("Thermal Laminate")
        dialog.choose("Thermal Laminate", "Back Side")
        dialog.press("Print")
        self.assert_job(
            self.job(),
            frontResin="DefinedAreas",
            frontResinInclude2="Custom.1in 1in 2.125in 1.0625in",
            backRibbon="YMCK",
            backResin="DefinedAreas",
            backResinInclude1="Custom.1in 0.5in 2in 1in",
            cardLaminate="Back",
        )

    def test_an_area_is_drawn_nudged_and_printed(self):
        self.check_that_an_area_is_drawn_moved_and_printed()

    def test_a_screen_reader_is_told_an_area_while_keys_move_it(self):
        area = 'frontResinInclude1="Custom.12mm 5mm 25mm 8mm"'
        self.write(".cups/lpoptions", f"Dest card frontResin=DefinedAreas {area}\n")
        dialog = self.start_demo()
        dialog.select_printer("card")
        dialog.open_card()
        picture = dialog.picture(FRONT)

        def wait_for_areas(*expected):
            user.wait_for(
                lambda: dialog.areas(picture) == list(expected),
                lambda: f"the picture has {dialog.areas(picture)}",
            )

        name = "Include area 1, 12 mm from left, 5 mm from top, 25 by 8 mm"
        wait_for_areas((name, False))
        dialog.click(picture)  # beside the area
        dialog.keys("Right")
        wait_for_areas((name, True))
        dialog.wait_for_focus("image", name)
        dialog.keys("Right", "shift+Down", "ctrl+Left")
        name = "Include area 1, 12.9 mm from left, 5 mm from top, 25 by 9 mm"
        wait_for_areas((name, True))
        dialog.wait_for_focus("image", name)
        dialog.keys("Insert", "ctrl+shift+Left")
        second = "Include area 2, 38 mm from left, 22 mm from top, 9.9 by 10 mm"
        wait_for_areas((name, False), (second, True))
        dialog.keys("Delete")
        wait_for_areas((name, False))
        dialog.press("Print")
        self.assert_job(
            self.job(),
            frontResin="DefinedAreas",
            frontResinInclude1="Custom.12.9mm 5mm 25mm 9mm",
        )

    def test_saved_options_are_shown_and_printed(self):
        saved = "cardLaminate=Back frontResin=DefinedAreas coating=Gloss"
        area = 'frontResinInclude1="Custom.1in 1in 2in 2in"'
        self.write(".cups/lpoptions", f"Dest card {saved} {area} frontRotation=Rotate180\n")
        dialog = self.start_demo()
        dialog.select_printer("card")
        dialog.open_card()
        self.assertEqual(dialog.text_of("Front Resin Area 1, width"), "2in")
        dialog.open_panel("Card Handling")
        dialog.choose("Front Rotation", "No Rotation")
        dialog.press("Print")
        self.assert_job(
            self.job(),
            cardLaminate="Back",
            frontResin="DefinedAreas",
            frontResinInclude1="Custom.1in 1in 2in 2in",
            frontRotation="None",
        )

    def test_cancel_prints_nothing_and_the_next_dialog_starts_anew(self):
        dialog = self.start_program("operation")
        dialog.select_printer("card")
        dialog.open_card()
        dialog.choose("Front Resin", "Defined Areas")
        dialog.press("Cancel")
        user.wait_for(lambda: not dialog.is_open(), "the dialog stays")
        self.send("operation")
        dialog.select_printer("card")
        dialog.open_card()
        self.assertEqual(dialog.chosen("Front Resin"), "Black Text")
        dialog.press("Print")
        self.assert_job(self.job(1))

    def test_a_program_that_reads_the_settings_on_print_gets_all(self):
        dialog = self.start_program("dialog", "Dialog 1")
        dialog.select_printer("card")
        dialog.open_card()
        dialog.choose("Front Resin", "Defined Areas")
        for name in ("X", "Y", "width", "height"):
            dialog.type(f"Front Resin Area 3, {name}", "1in")
        dialog.press("Print")
        user.wait_for(lambda: not dialog.is_open(), "the dialog stays")
        self.send("quit")
        _, out, errors = self.program.finish()
        self.program = None
        self.assertEqual(criticals(errors), [])
        self.assertIn("cups-frontResin=DefinedAreas", out.splitlines())
        self.assertIn("cups-frontResinInclude3=Custom.1in 1in 1in 1in", out.splitlines())

    def test_the_keyboard_reaches_the_page(self):
        dialog = self.start_demo()
        dialog.select_printer("card")
        dialog.open_card()
        rows = dialog.find("list", "Card options")
        dialog.click(dialog.find("list item", "Ribbon and Resin", rows))
        dialog.keys("Down", "Down", "Down", "Tab")
        dialog.wait_for_focus("push button", "Thermal Laminate")
        dialog.keys("ctrl+Prior")
        dialog.wait_for_focus("push button", "Front Peel-Off")
        dialog.keys("F1")
        dialog.wait_for_text("Peel-Off")
        dialog.keys("Escape")
        dialog.press("Cancel")


class DialogsTestCase(Gtk4DialogCase):
    def test_an_ordinary_printer_has_no_page(self):
        dialog = self.start_demo()
        dialog.select_printer("plain")
        self.assertFalse(dialog.has_tab("Card"))
        self.assertFalse(self.maps("libcardpanels-gtk4-page"))
        self.assertTrue(self.maps("libcardpanels-gtk4-module"))
        dialog.press("Print")
        self.assertEqual(self.job()["Toner"], "Much")

    def test_the_page_goes_and_comes_with_the_printer(self):
        dialog = self.start_program("dialog", "Dialog 1")
        for _ in range(2):
            dialog.select_printer("card")
            dialog.open_card()
            user.wait_for(lambda: not dialog.has_tab("Advanced"), "Advanced stays")
            dialog.open_tab("General")
            dialog.select_printer("plain")
            user.wait_for(lambda: not dialog.has_tab("Card"), "the page stays")
            self.assertTrue(dialog.has_tab("Advanced"))
        dialog.select_printer("coated")
        dialog.open_card()
        dialog.open_tab("Advanced")
        dialog.wait_for_text("Coating:")

    def test_dialogs_hide_and_show_and_go_at_any_time(self):
        dialog = self.start_program("dialog", "Dialog 1")
        dialog.select_printer("card")
        dialog.open_card()
        dialog.choose("Front Resin", "Defined Areas")
        self.send("hide")
        user.wait_for(lambda: not dialog.is_open(), "the dialog stays")
        self.send("show")
        user.wait_for(dialog.is_open, "the dialog does not come back")
        self.assertEqual(dialog.chosen("Front Resin"), "Defined Areas")
        self.send("destroy")
        user.wait_for(lambda: not dialog.is_open(), "the dialog stays")
        self.send("dialog")
        dialog.select_printer("card")
        dialog.open_card()
        self.assertEqual(dialog.chosen("Front Resin"), "Black Text")
        self.send("quit")
        user.wait_for(lambda: not self.program.runs(), "the program does not end")

    def test_a_text_that_is_no_measurement_keeps_print_and_preview_back(self):
        dialog = self.start_program("dialog", "Dialog 1")
        dialog.select_printer("card")
        dialog.open_card()
        dialog.choose("Front Resin", "Defined Areas")
        dialog.type("Front Resin Area 1, X", "abc")
        dialog.wait_for_presses("Print", False)
        dialog.wait_for_presses("Preview", False)
        dialog.open_tab("General")
        dialog.wait_for_text("“Front Resin Area 1, X” is no measurement: “abc”")
        dialog.press("Show")
        dialog.type_area("Front Resin Area 1", "1in", "1in", "1in", "1in")
        dialog.wait_for_presses("Print")
        dialog.wait_for_presses("Preview")


class ConflictsTestCase(Gtk4DialogCase):
    def test_a_change_on_the_advanced_page_changes_the_page_and_is_told_and_undone(self):
        dialog = self.start_demo()
        dialog.select_printer("coated")
        dialog.open_card()
        dialog.open_panel("Thermal Laminate")
        dialog.choose("Thermal Laminate", "Both Sides")
        dialog.open_tab("Advanced")
        dialog.choose_own("Coating:", "Glossy")
        dialog.open_card()
        self.assertEqual(
            dialog.wait_for_text("was changed"),
            "“Thermal Laminate” was changed from “Both Sides” to “No Laminate”, because “Coating” "
            "is now “Glossy”.",
        )
        self.assertEqual(dialog.chosen("Thermal Laminate"), "No Laminate")
        dialog.open_tab("Advanced")
        dialog.choose_own("Coating:", "No Coating")
        dialog.open_card()
        dialog.press("Undo")
        user.wait_for(lambda: dialog.chosen("Thermal Laminate") == "Both Sides", "it stays undone")
        dialog.press("Print")
        self.assert_job(self.job(), coating="None", cardLaminate="Both")

    def test_a_conflict_on_the_page_is_resolved_and_printed(self):
        dialog = self.start_demo()
        dialog.select_printer("coated")
        dialog.open_card()
        dialog.open_panel("Peel-Off")
        dialog.choose("Front Peel-Off", "Chip")
        dialog.open_panel("Thermal Laminate")
        dialog.choose("Thermal Laminate", "Both Sides")
        dialog.wait_for_text("“Front Peel-Off” was changed from “Chip” to “No Peel-Off”")
        dialog.press("Print")
        self.assert_job(self.job(), cardLaminate="Both", frontPO="None")


class InstalledTestCase(Gtk4DialogCase):
    def test_what_is_installed_works_from_its_folder(self):
        prefix = os.path.join(self.desktop.home, "installed")
        install = ["cmake", "--install", str(BUILD), "--prefix", prefix]
        subprocess.run(install, check=True, capture_output=True)
        backends = next(pathlib.Path(prefix).glob("lib/**/gtk-4.0/4.0.0/printbackends"))
        if not SANITIZED:
            cache = (backends / "giomodule.cache").read_text()
            self.assertIn("libcardpanels-gtk4-module.so: gtk-print-backend", cache)
        dialog = self.start_demo(modules=backends.parents[1])
        dialog.select_printer("card")
        dialog.open_card()
        self.assertTrue(self.maps(f"{prefix}/lib/cardpanels/libcardpanels-gtk4-page.so"))
        self.assertFalse(self.maps(f"{BUILD}/lib"))
        dialog.choose("Front Ribbon", "Metallic Silver")
        dialog.press("Print")
        self.assert_job(self.job(), frontRibbon="Silver")

    @unittest.skipIf(SANITIZED, "without the cache GTK opens the module at each start")
    def test_a_program_that_never_prints_loads_nothing(self):
        self.start(["gnome-text-editor", "--standalone"])
        self.program.root
        self.assertFalse(self.maps("cardpanels"))
        self.program.end()  # and says what it says without the module
        self.program = None


class ModuleTestCase(unittest.TestCase):
    @unittest.skipIf(SANITIZED, "the sanitizers bring libraries of their own")
    def test_the_module_needs_nothing_that_a_gtk_program_has_not(self):
        dynamic = subprocess.run(["readelf", "-d", MODULE], capture_output=True, text=True).stdout
        needed = re.findall(r"NEEDED.*\[(.*)\]", dynamic)
        self.assertIn("libgtk-4.so.1", needed)
        allowed = r"libgtk-4|libgio-2\.0|libgobject-2\.0|libglib-2\.0|libc\."
        self.assertEqual([each for each in needed if not re.match(allowed, each)], [])

    @unittest.skipIf(SANITIZED, "a sanitized library cannot be loaded into Python")
    def test_the_module_refuses_a_process_with_gtk_3(self):
        load = "import ctypes, sys; [ctypes.CDLL(each) for each in sys.argv[2:]]; " \
               "ctypes.CDLL(sys.argv[1]).g_io_module_load(None)"
        said = []
        for libraries in ([], ["libgtk-3.so.0"]):
            command = ["/usr/bin/python3", "-c", load, str(MODULE), *libraries]
            done = subprocess.run(command, capture_output=True, text=True, check=True)
            said.append((done.stdout + done.stderr).count("no page Card"))
        self.assertEqual(said, [0, 1])


if __name__ == "__main__":
    unittest.main()
