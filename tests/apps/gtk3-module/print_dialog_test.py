"""The page Card in the print dialog of unmodified programs, used as a person would."""

import os
import pathlib
import re
import shutil
import subprocess
import unittest

import atspi_driver as user
from keyboard import Keyboard
from mouse import Mouse, draw_an_area
from print_dialog import PrintDialog, criticals
from print_dialog_case import BUILD, SANITIZED, PrintDialogCase, sanitizer
from slow_server import SlowServer

MODULE = BUILD / "lib" / "libcardpanels-gtk3-module.so"
PROGRAM = BUILD / "tests" / "print-program"
# What differs between any two jobs.
OF_ONE_JOB = re.compile("time|date|uuid|job-id|job-k-octets|job-state|job-name")


class PrintDialogTestCase(PrintDialogCase):
    def start(self, command, module=MODULE, **env):
        """Starts a program that prints; answers its dialog."""
        env = {**self.server.env, **env}
        if module:
            env["GTK_MODULES"] = str(module)
        if SANITIZED:
            # Programs and GTK have leaks of their own; ours are looked for in the report.
            env["LSAN_OPTIONS"] = "exitcode=0"
        self.program = self.desktop.start(command, **env)
        return PrintDialog(self.program)

    def start_demo(self, module=MODULE, **env):
        """Starts GTK's own example of printing, unmodified; answers its dialog."""
        if SANITIZED:  # gtk3-demo hangs inside gettext when the sanitizer is loaded before it
            return self.start_program("operation", module=module, **env)
        return self.start(["gtk3-demo", "--run=printing"], module, **env)

    def draw(self, _dialog):
        picture = self.program.find("grouping", "Front of the card, 85.6 by 54 mm")
        return draw_an_area(
            Mouse(self.desktop, picture),
            Keyboard(self.desktop, self.program.find("dialog")).press,
            lambda name: user.text_of(self.program.find("text", name)),
        )

    def start_program(self, *commands, **env):
        """Starts the tests' own program; answers its dialog after `commands`."""
        dialog = self.start([str(PROGRAM), self.commands], **env)
        for each in commands:
            self.send(each)
        return dialog


class PanelsTestCase(PrintDialogTestCase):
    def test_choices_on_all_five_panels_and_two_areas_reach_the_job(self):
        dialog = self.start_demo()
        dialog.select_printer("card")
        dialog.open_card()
        self.assertFalse(dialog.has_tab("Advanced"))
        dialog.choose("Front Ribbon", "Color and UV (YMCF)")
        dialog.choose("Back Ribbon", "Color and Black Resin (YMCK)")
        dialog.choose("Back Resin", "Defined Areas")
        for name, text in (("X", "1in"), ("Y", "0.5in"), ("width", "2in"), ("height", "1in")):
            dialog.type(f"Back Resin Area 1, {name}", text)
        dialog.open_panel("Ultraviolet")
        dialog.choose("Front UV", "Whole Card")
        dialog.open_panel("Peel-Off")
        dialog.choose("Front Peel-Off", "Defined Areas")
        for name, text in (("X", "0in"), ("Y", "0in"), ("width", "10mm"), ("height", "10mm")):
            dialog.type(f"Front Peel-Off Area 1, {name}", text)
        dialog.open_panel("Thermal Laminate")
        dialog.choose("Thermal Laminate", "Back Side")
        dialog.open_panel("Card Handling")
        dialog.choose("Front Rotation", "180 Degrees")
        dialog.press("Print")
        self.assert_job(
            self.job(),
            frontRibbon="YMCF",
            backRibbon="YMCK",
            backResin="DefinedAreas",
            backResinInclude1="Custom.1in 0.5in 2in 1in",
            frontUV="WholeCard",
            frontPO="DefinedAreas",
            CustomfrontPeelOff1="Custom.0in 0in 10mm 10mm",
            cardLaminate="Back",
            frontRotation="Rotate180",
        )

    def test_an_area_that_is_still_being_typed_reaches_the_job(self):
        dialog = self.start_demo()
        dialog.select_printer("card")
        dialog.open_card()
        dialog.choose("Front Resin", "Defined Areas")
        for name, text in (("X", "1in"), ("Y", "1in"), ("width", "2.125in"), ("height", "1.0625in")):
            dialog.type(f"Front Resin Area 2, {name}", text)
        dialog.press("Print")
        self.assert_job(
            self.job(),
            frontResin="DefinedAreas",
            frontResinInclude2="Custom.1in 1in 2.125in 1.0625in",
        )

    def test_an_area_is_drawn_nudged_and_printed(self):
        self.check_that_an_area_is_drawn_moved_and_printed()

    def test_a_module_with_a_relative_path_finds_its_page_from_another_folder(self):
        modules = pathlib.Path(self.desktop.home, "modules")
        modules.mkdir()
        (modules / MODULE.name).symlink_to(MODULE)
        there = f'cd "{modules.parent}" && exec "{PROGRAM}" "{self.commands}"'
        # GTK takes no relative path of a module itself, but one of the folder above "modules".
        dialog = self.start(["sh", "-c", there], MODULE.name, GTK_PATH=".")
        for each in ("leave", "dialog"):
            self.send(each)
        dialog.select_printer("card")
        dialog.open_card()
        dialog.choose("Front Ribbon", "Color and UV (YMCF)")

    def test_a_module_without_its_libraries_tells_so_and_leaves_the_dialog_as_it_is(self):
        alone = shutil.copy(MODULE, self.desktop.home)
        dialog = self.start_demo(module=alone)
        dialog.select_printer("plain")
        dialog.select_printer("card")
        dialog.open_tab("Advanced")
        self.assertFalse(dialog.has_tab("Card"))
        dialog.press("Print")
        self.assert_job(self.job())
        _, errors = self.program.end()
        self.program = None
        for library in ("libcardpanels-gtk3-page.so", "libcardpanels-host.so.0"):
            self.assertRegex(errors, f"cardpanels: .*{library}: cannot open shared object file")

    def test_saved_options_are_shown_and_printed(self):
        saved = "cardLaminate=Back frontResin=DefinedAreas coating=Gloss"
        area = 'frontResinInclude1="Custom.1in 1in 2in 2in"'
        self.write(".cups/lpoptions", f"Dest card {saved} {area} frontRotation=Rotate180\n")
        dialog = self.start_demo()
        dialog.select_printer("card")
        dialog.open_card()
        field = dialog.program.find("text", "Front Resin Area 1, width")
        self.assertEqual(user.text_of(field), "2in")
        dialog.open_panel("Card Handling")
        dialog.choose("Front Rotation", "No Rotation")
        dialog.open_panel("Thermal Laminate")
        self.assertEqual(user.chosen(dialog.combo("Thermal Laminate")), "Back Side")
        dialog.press("Print")
        self.assert_job(
            self.job(),
            cardLaminate="Back",
            frontResin="DefinedAreas",
            frontResinInclude1="Custom.1in 1in 2in 2in",
            frontRotation="None",
        )

    def test_a_second_print_starts_from_the_settings_of_the_first(self):
        dialog = self.start_program("operation")
        dialog.select_printer("card")
        dialog.open_card()
        dialog.choose("Front Resin", "Defined Areas")
        dialog.type("Front Resin Area 1, X", "1in")
        dialog.type("Front Resin Area 1, Y", "1in")
        dialog.type("Front Resin Area 1, width", "1in")
        dialog.type("Front Resin Area 1, height", "1in")
        dialog.open_panel("Thermal Laminate")
        dialog.choose("Thermal Laminate", "Both Sides")
        dialog.press("Print")
        self.assert_job(
            self.job(1),
            cardLaminate="Both",
            frontResin="DefinedAreas",
            frontResinInclude1="Custom.1in 1in 1in 1in",
        )
        self.send("operation")
        dialog.select_printer("card")
        dialog.open_card()
        field = dialog.program.find("text", "Front Resin Area 1, height")
        self.assertEqual(user.text_of(field), "1in")
        dialog.choose("Front Resin", "Black Text")
        dialog.press("Print")
        area = "Custom.1in 1in 1in 1in"
        self.assert_job(self.job(2), cardLaminate="Both", frontResinInclude1=area)

    def settings_after(self, button):
        """What a program reads from the dialog when an area was typed and `button` pressed."""
        dialog = self.start_program("dialog")
        dialog.select_printer("card")
        dialog.open_card()
        dialog.choose("Front Resin", "Defined Areas")
        for name in ("X", "Y", "width", "height"):
            dialog.type(f"Front Resin Area 3, {name}", "1in")
        dialog.press(button)
        self.send("quit")
        _, out, errors = self.program.finish()
        self.program = None
        self.assertEqual(criticals(errors), [])
        return out.splitlines()

    def test_a_program_that_reads_the_settings_on_print_gets_all(self):
        settings = self.settings_after("Print")
        self.assertIn("cups-frontResin=DefinedAreas", settings)
        self.assertIn("cups-frontResinInclude3=Custom.1in 1in 1in 1in", settings)

    def test_a_program_that_reads_the_settings_on_preview_gets_all(self):
        settings = self.settings_after("Preview")
        self.assertIn("cups-frontResin=DefinedAreas", settings)
        self.assertIn("cups-frontResinInclude3=Custom.1in 1in 1in 1in", settings)

    def test_cancel_prints_nothing(self):
        dialog = self.start_program("operation")
        dialog.select_printer("card")
        dialog.open_card()
        dialog.choose("Front Resin", "Defined Areas")
        dialog.type("Front Resin Area 1, X", "1in")
        dialog.press("Cancel")
        self.send("operation")
        dialog.select_printer("card")
        dialog.open_card()
        self.assertEqual(user.chosen(dialog.combo("Front Resin")), "Black Text")
        dialog.press("Print")
        self.assert_job(self.job(1))


class KeysTestCase(PrintDialogTestCase):
    def start_card(self):
        """The page Card of a dialog, and a keyboard with the focus in its sidebar."""
        dialog = self.start_program("dialog")
        dialog.select_printer("card")
        page = dialog.open_card()
        keyboard = Keyboard(self.desktop, self.program.find("dialog"))
        row = user.find(page, "list item", "Ribbon and Resin")
        row.get_component_iface().grab_focus()
        keyboard.wait_for_focus("list item", "Ribbon and Resin")
        return dialog, keyboard

    def test_tab_goes_from_the_sidebar_into_the_panel_and_to_the_buttons(self):
        dialog, keyboard = self.start_card()
        keyboard.press("Down", "Down", "Down")
        keyboard.wait_for_focus("list item", "Thermal Laminate")
        keyboard.press("Tab")
        keyboard.wait_for_focus("toggle button", "Thermal Laminate")
        keyboard.press("Tab")
        keyboard.wait_for_focus("toggle button", "Help")
        keyboard.press("Tab")
        user.wait_for(lambda: keyboard.focus()[0] == "push button", keyboard.focus)
        self.assertIn(keyboard.focus()[1], ("Preview", "Cancel"))
        keyboard.press("shift+Tab", "shift+Tab", "shift+Tab")
        keyboard.wait_for_focus("list item", "Thermal Laminate")
        dialog.press("Cancel")

    def test_control_and_page_keys_are_the_panels_inside_the_page_and_the_dialogs_outside(self):
        dialog, keyboard = self.start_card()
        keyboard.press("Tab")
        keyboard.wait_for_focus("toggle button", "Front Ribbon")
        keyboard.press("ctrl+Next")
        keyboard.wait_for_focus("toggle button", "Front UV")
        keyboard.press("ctrl+Prior")
        keyboard.wait_for_focus("toggle button", "Front Ribbon")
        keyboard.press(*["shift+Tab"] * 4)  # over the row of presets
        user.wait_for(lambda: keyboard.focus()[0] == "page tab list", keyboard.focus)
        keyboard.press("ctrl+Prior")
        user.wait_for(
            lambda: user.find_now(self.program.root, "list box", "Card options") is None,
            "the dialog stays on the page Card",
        )
        dialog.press("Cancel")

    def test_f1_opens_the_help_of_the_panel(self):
        dialog, keyboard = self.start_card()
        keyboard.press("F1")
        keyboard.wait_for_focus_in("Ribbon and Resin\n")
        keyboard.press("Escape")
        keyboard.wait_for_focus("list item", "Ribbon and Resin")
        keyboard.press(*["shift+Tab"] * 3)
        user.wait_for(lambda: keyboard.focus()[0] == "page tab list", keyboard.focus)
        keyboard.press("F1")
        keyboard.wait_for_focus_in("Ribbon and Resin\n")
        keyboard.press("Escape")
        dialog.press("Cancel")


class PrintersTestCase(PrintDialogTestCase):
    def plain_job(self, module):
        dialog = self.start_demo(MODULE if module else None)
        dialog.select_printer("plain")
        dialog.open_tab("Advanced")
        self.assertFalse(dialog.has_tab("Card"))
        self.assertFalse(self.maps("libcardpanels-gtk3-page"))
        self.assertEqual(self.maps("libcardpanels-gtk3-module"), module)
        dialog.press("Print")
        number = 2 if module else 1
        job = self.job(number)
        self.check_end()
        return {key: value for key, value in job.items() if not OF_ONE_JOB.search(key)}

    def test_an_ordinary_printer_has_no_page_and_gets_the_same_job(self):
        without = self.plain_job(module=False)
        self.assertEqual(self.plain_job(module=True), without)
        self.assertEqual(without["Toner"], "Much")

    def test_the_page_goes_and_comes_with_the_printer(self):
        dialog = self.start_program("dialog")
        for _ in range(2):
            dialog.select_printer("card")
            dialog.open_card()
            user.wait_for(lambda: not dialog.has_tab("Advanced"), "Advanced stays")
            dialog.open_tab("General")
            dialog.select_printer("plain")
            user.wait_for(lambda: not dialog.has_tab("Card"), "the page stays")
            dialog.open_tab("Advanced")
            self.assertEqual(user.chosen(dialog.combo("Toner:")), "Much")
            dialog.open_tab("General")
        dialog.select_printer("coated")
        dialog.open_card()
        dialog.open_tab("Advanced")
        dialog.combo("Coating:")
        self.assertIsNone(user.find_now(dialog.program.root, "combo box", "Thermal Laminate:"))


class InstalledTestCase(PrintDialogTestCase):
    def test_what_is_installed_works_from_the_settings_file(self):
        prefix = os.path.join(self.desktop.home, "installed")
        install = ["cmake", "--install", str(BUILD), "--prefix", prefix]
        subprocess.run(install, check=True, capture_output=True)
        settings = pathlib.Path(self.desktop.home, ".config", "gtk-3.0", "settings.ini")
        with settings.open("a", encoding="utf-8") as file:
            file.write(f"gtk-modules={prefix}/lib/cardpanels/libcardpanels-gtk3-module.so\n")
        dialog = self.start_demo(module=False)
        dialog.select_printer("card")
        dialog.open_card()
        for library in ("libcardpanels-gtk3-page.so", "cardpanels.bundle/cardpanels.so"):
            self.assertTrue(self.maps(f"{prefix}/lib/cardpanels/{library}"), library)
        self.assertFalse(self.maps(f"{BUILD}/lib"))
        dialog.choose("Front Ribbon", "Metallic Silver")
        dialog.press("Print")
        self.assert_job(self.job(), frontRibbon="Silver")

    def test_the_page_works_on_wayland(self):
        display = self.enterContext(self.desktop.wayland())
        dialog = self.start_demo(WAYLAND_DISPLAY=display, GDK_BACKEND="wayland")
        dialog.select_printer("card")
        dialog.open_card()
        dialog.choose("Front Resin", "Defined Areas")
        for name in ("X", "Y", "width", "height"):
            dialog.type(f"Front Resin Area 1, {name}", "1in")
        dialog.press("Print")
        area = "Custom.1in 1in 1in 1in"
        self.assert_job(self.job(), frontResin="DefinedAreas", frontResinInclude1=area)


class ModuleTestCase(unittest.TestCase):
    @unittest.skipIf(SANITIZED, "the sanitizers bring libraries of their own")
    def test_the_module_needs_nothing_that_a_gtk_program_has_not(self):
        dynamic = subprocess.run(["readelf", "-d", MODULE], capture_output=True, text=True).stdout
        needed = re.findall(r"NEEDED.*\[(.*)\]", dynamic)
        self.assertIn("libgtk-3.so.0", needed)
        allowed = r"libgtk-3|libgobject-2\.0|libgmodule-2\.0|libglib-2\.0|libc\."
        self.assertEqual([each for each in needed if not re.match(allowed, each)], [])

    def test_the_module_stays_when_a_setting_lets_it_go(self):
        script = (
            "import ctypes, sys; "
            "glib = ctypes.CDLL('libgmodule-2.0.so.0'); "
            "glib.g_module_open.restype = ctypes.c_void_p; "
            "module = ctypes.c_void_p(glib.g_module_open(sys.argv[1].encode(), 0)); "
            "glib.g_module_close(module); print('gtk3-module' in open('/proc/self/maps').read())"
        )
        command = ["/usr/bin/python3", "-c", script, str(MODULE)]
        env = {**os.environ, "LSAN_OPTIONS": "exitcode=0"}
        if SANITIZED:
            env["LD_PRELOAD"] = sanitizer()
        done = subprocess.run(command, env=env, capture_output=True, text=True)
        self.assertEqual(done.stdout, "True\n", done.stderr)


class ConflictsTestCase(PrintDialogTestCase):
    def test_a_conflicting_change_on_the_advanced_page_is_resolved_and_told(self):
        dialog = self.start_demo()
        dialog.select_printer("coated")
        dialog.open_card()
        dialog.open_panel("Thermal Laminate")
        dialog.choose("Thermal Laminate", "Both Sides")
        dialog.open_tab("Advanced")
        dialog.choose("Coating:", "Glossy")
        dialog.open_tab("Card")
        self.assertEqual(
            dialog.wait_for_text("was changed"),
            "“Thermal Laminate” was changed from “Both Sides” to “No Laminate”, because “Coating” "
            "is now “Glossy”.",
        )
        self.assertEqual(user.chosen(dialog.combo("Thermal Laminate")), "No Laminate")
        sign = "Some of the settings in the dialog conflict"
        self.assertIsNone(user.find_now(dialog.program.root, "label", sign))
        dialog.press("Print")
        self.assert_job(self.job(), coating="Gloss", cardLaminate="None")

    def test_a_conflict_on_the_page_changes_the_advanced_page(self):
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


class HeedTestCase(PrintDialogTestCase):
    """What the user must know before they print, whatever page they look at."""

    def wait_for_bar(self, dialog, part):
        """Waits until a bar of the dialog tells `part`; answers the text whole."""

        def told():
            bars = [each for each in user.descendants(dialog.program.root)
                    if each.get_role_name() == "info bar" and user.is_showing(each)]
            texts = [user.text_of(each) for bar in bars for each in user.descendants(bar)]
            return next((text for text in texts if part in text), None)

        return user.wait_for(told, lambda: f"{part!r} is not told")

    def takes_presses(self, dialog, button):
        sensitive = user.Atspi.StateType.SENSITIVE
        return dialog.button(button).get_state_set().contains(sensitive)

    def wait_for_presses(self, dialog, button, expected):
        user.wait_for(
            lambda: self.takes_presses(dialog, button) == expected,
            f"{button} is {'in' if expected else ''}sensitive",
        )

    def test_what_a_rule_changed_stays_told_until_it_is_undone(self):
        dialog = self.start_demo()
        dialog.select_printer("coated")
        dialog.open_card()
        dialog.open_panel("Thermal Laminate")
        dialog.choose("Thermal Laminate", "Both Sides")
        dialog.open_tab("Advanced")
        dialog.choose("Coating:", "Glossy")
        told = self.wait_for_bar(dialog, "was changed")
        dialog.choose("Coating:", "No Coating")
        dialog.open_tab("Card")
        self.assertEqual(self.wait_for_bar(dialog, "was changed"), told)
        dialog.open_panel("Peel-Off")
        self.assertEqual(self.wait_for_bar(dialog, "was changed"), told)
        dialog.press("Undo")
        user.wait_for(
            lambda: not any("was changed" in text for text in dialog.texts()), "it stays told"
        )
        dialog.press("Print")
        self.assert_job(self.job(), coating="None", cardLaminate="Both")

    @unittest.skipIf(SANITIZED, "the tests' own program lets nobody choose the paper")
    def test_a_paper_size_that_takes_the_laminate_away_is_told_before_print(self):
        dialog = self.start_demo()
        dialog.select_printer("card")
        dialog.open_card()
        dialog.open_panel("Thermal Laminate")
        dialog.choose("Thermal Laminate", "Both Sides")
        dialog.open_tab("Page Setup")
        # Without opening the list, which the dialog may close while it looks at the printer.
        dialog.combo("Paper size:").get_selection_iface().select_child(1)
        told = self.wait_for_bar(dialog, "was changed")
        self.assertIn("“Thermal Laminate” was changed from “Both Sides” to “No Laminate”", told)
        self.assertEqual(dialog.tab("Card").get_description(), told)
        dialog.press("Show")
        dialog.wait_for_text("was changed")

    def test_what_keeps_the_printer_from_printing_is_told_and_refuses_nothing(self):
        dialog = self.start_demo()
        dialog.select_printer("card")
        dialog.open_card()
        self.server.disable("card", "Out of cards")
        told = "Printer stopped: Out of cards"
        self.assertEqual(self.wait_for_bar(dialog, told), told)
        dialog.open_tab("General")
        self.assertEqual(self.wait_for_bar(dialog, told), told)
        self.server.enable("card")
        user.wait_for(
            lambda: not any(told in text for text in dialog.texts()), "it stays told"
        )
        self.server.disable("card", "Out of cards")
        self.wait_for_bar(dialog, told)
        dialog.press("Print")
        self.assert_job(self.job(state="pending"))
        self.server.enable("card")
        self.assert_job(self.job())

    def test_a_wrong_text_keeps_print_and_preview_back(self):
        dialog = self.start_program("dialog")
        dialog.select_printer("card")
        dialog.open_card()
        dialog.choose("Front Resin", "Defined Areas")
        dialog.type("Front Resin Area 1, X", "abc")
        self.wait_for_presses(dialog, "Print", False)
        self.assertFalse(self.takes_presses(dialog, "Preview"))
        self.assertEqual(
            self.wait_for_bar(dialog, "no measurement"),
            "“Front Resin Area 1, X” is no measurement: “abc”",
        )
        for name in ("X", "Y", "width", "height"):
            dialog.type(f"Front Resin Area 1, {name}", "1in")
        self.wait_for_presses(dialog, "Print", True)
        self.assertTrue(self.takes_presses(dialog, "Preview"))

    def test_a_printer_that_rejects_jobs_and_a_wrong_text_keep_apart(self):
        dialog = self.start_program("dialog")
        dialog.select_printer("card")
        dialog.open_card()
        dialog.choose("Front Resin", "Defined Areas")
        dialog.type("Front Resin Area 1, X", "abc")
        self.wait_for_presses(dialog, "Print", False)
        self.server.reject("card")
        self.server.accept("card")
        dialog.type("Front Resin Area 1, Y", "1in")
        self.assertFalse(self.takes_presses(dialog, "Print"))
        self.server.reject("card")
        dialog.type("Front Resin Area 1, X", "1in")
        self.wait_for_presses(dialog, "Print", False)
        self.server.accept("card")
        self.wait_for_presses(dialog, "Print", True)

    def test_what_was_set_at_the_last_print_is_told(self):
        dialog = self.start_program("operation")
        dialog.select_printer("card")
        dialog.open_card()
        dialog.open_panel("Thermal Laminate")
        dialog.choose("Thermal Laminate", "Both Sides")
        dialog.press("Print")
        self.assert_job(self.job(1), cardLaminate="Both")
        self.send("operation")
        dialog.select_printer("card")
        dialog.open_card()
        self.assertEqual(
            dialog.wait_for_text("Set from your last print"),
            "Set from your last print: “Thermal Laminate” is “Both Sides”.",
        )
        dialog.press("Reset to Defaults")
        dialog.press("Print")
        self.assert_job(self.job(2), cardLaminate="None")

    def test_saved_options_that_conflict_are_told(self):
        self.write(".cups/lpoptions", "Dest coated cardLaminate=Both coating=Gloss\n")
        dialog = self.start_demo()
        dialog.select_printer("coated")
        told = self.wait_for_bar(dialog, "cannot be")
        self.assertIn("“Coating”", told)
        self.assertIn("“Thermal Laminate”", told)


class TroubleTestCase(PrintDialogTestCase):
    def slow_server(self):
        door = SlowServer(self.server.address, self.desktop.home, "GET /printers/card.ppd")
        self.addCleanup(door.release)
        return door

    def reading(self, *commands):
        """A dialog whose page waits for the print server, and the server's door."""
        door = self.slow_server()
        dialog = self.start_program(*commands, CUPS_SERVER=door.address)
        cell = dialog.program.find("table cell", "card")
        self.assertTrue(cell)
        door.hold.set()
        # GTK's own request comes first.
        table = cell.get_parent().get_table_iface()
        table.add_row_selection(table.get_row_at_index(cell.get_index_in_parent()))
        user.wait_for(door.asked.is_set, "GTK asks for no PPD")
        door.asked.clear()
        door.pass_one()
        user.wait_for(door.asked.is_set, "the page asks for no PPD")
        dialog.open_tab("Card")
        dialog.wait_for_text("Reading the printer's options…")
        return dialog, door

    def test_a_server_that_does_not_answer_leaves_the_dialog_usable(self):
        dialog, door = self.reading("dialog")
        dialog.open_tab("Advanced")
        dialog.choose("Front Ribbon:", "Metallic Silver")
        door.release()
        dialog.open_card()
        self.assertEqual(user.chosen(dialog.combo("Front Ribbon")), "Metallic Silver")
        self.assertFalse(dialog.has_tab("Advanced"))

    def test_the_page_gives_up_on_a_silent_server(self):
        dialog, door = self.reading("dialog")
        told = dialog.wait_for_text("cannot be asked")
        self.assertEqual(
            told,
            f"The print server {door.address} cannot be asked: "
            "It gave no complete answer within 10 s.",
        )
        dialog.open_tab("Advanced")
        dialog.combo("Front Ribbon:")

    def test_the_dialog_is_destroyed_while_the_ppd_is_fetched(self):
        _, door = self.reading("dialog")
        self.send("destroy")
        door.release()
        self.send("dialog")
        self.program.find("table cell", "plain")
        self.send("quit")
        user.wait_for(lambda: not self.program.runs(), "the program does not end")

    def test_the_program_ends_while_the_ppd_is_fetched(self):
        self.reading("dialog")
        self.send("quit")
        user.wait_for(lambda: not self.program.runs(), "the program does not end")

    def test_a_server_that_stops_before_printing_harms_nobody(self):
        dialog = self.start_demo()
        dialog.select_printer("card")
        dialog.open_card()
        dialog.choose("Front Resin", "Defined Areas")
        self.server.stop()
        dialog.press("Print")
        user.wait_for(lambda: not dialog.has_tab("Card"), "the dialog stays")
        self.assertTrue(self.program.runs())
        self.assertIsNone(self.server.job(1))

    def test_dialogs_hide_and_show_and_go_at_any_time(self):
        dialog = self.start_program("dialog")
        dialog.select_printer("card")
        dialog.open_card()
        dialog.choose("Front Resin", "Defined Areas")
        dialog.type("Front Resin Area 1, X", "1in")
        self.send("hide")
        user.wait_for(lambda: not dialog.has_tab("Card"), "the dialog stays")
        self.send("show")
        self.assertEqual(user.chosen(dialog.combo("Front Resin")), "Defined Areas")
        self.send("destroy")
        user.wait_for(lambda: not dialog.has_tab("Card"), "the dialog stays")
        self.send("dialog")
        dialog.select_printer("card")
        dialog.open_card()
        self.assertEqual(user.chosen(dialog.combo("Front Resin")), "Black Text")
        self.send("quit")
        user.wait_for(lambda: not self.program.runs(), "the program does not end")

    def test_two_dialogs_at_once_keep_apart(self):
        first = self.start_program("dialog")
        first.select_printer("card")
        first.open_card()
        first.choose("Front Resin", "Defined Areas")
        second = self.second_dialog()
        second.select_printer("card")
        second.open_card()
        self.assertEqual(user.chosen(second.combo("Front Resin")), "Black Text")
        second.choose("Front Resin", "Bar Codes")
        self.send("destroy")
        user.wait_for(
            lambda: user.find_now(self.program.root, "dialog", "Dialog 2") is None, "it stays"
        )
        self.assertEqual(user.chosen(first.combo("Front Resin")), "Defined Areas")

    def second_dialog(self):
        self.send("dialog")
        return PrintDialog(user.Part(self.program.find("dialog", "Dialog 2")))


if __name__ == "__main__":
    unittest.main()
