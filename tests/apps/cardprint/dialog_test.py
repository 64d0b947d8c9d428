"""cardprint's dialog, used as a person would."""

import os
import pathlib
import subprocess
import unittest

import atspi_driver as user
from keyboard import Keyboard

ROOT = pathlib.Path(os.environ["CARDPANELS_SOURCE_DIR"])
BUILD = pathlib.Path(os.environ["CARDPANELS_BUILD_DIR"])
CARDPRINT = str(BUILD / "bin" / "cardprint")

# Where Tab stops above the panels; a spin button and a combo box go by the labels that caption them.
HEADER = [
    ("spin button", ""),
    ("toggle button", ""),
    ("toggle button", ""),
    ("check box", "Fit to whole card"),
]


class DialogTestCase(unittest.TestCase):
    def setUp(self):
        self.desktop = self.enterContext(user.Desktop())

    def enterContext(self, context):
        """As in Python 3.11's unittest, also where that is older."""
        value = context.__enter__()
        self.addCleanup(context.__exit__, None, None, None)
        return value

    def start(self, *arguments, sample="card-laminate", cardprint=CARDPRINT):
        ppd = str(ROOT / "resources" / "ppd" / f"{sample}.ppd")
        return self.desktop.start(
            [cardprint, "--ppd", ppd, *arguments], G_DEBUG="fatal-criticals", GDK_GL="disable"
        )

    def test_print_answers_what_was_chosen(self):
        program = self.start()
        user.choose(program.find("combo box", "Thermal Laminate"), "Both Sides")
        user.press(program.find("push button", "Print"))
        status, out, _ = program.finish()
        self.assertEqual(status, 0)
        self.assertEqual(
            out, "Thermal Laminate\n    Thermal Laminate: Both Sides\n-o cardLaminate=Both\n"
        )

    def test_an_installed_program_opens_the_dialog_that_lies_beside_it(self):
        prefix = os.path.join(self.desktop.home, "installed")
        install = ["cmake", "--install", str(BUILD), "--prefix", prefix]
        subprocess.run(install, check=True, capture_output=True)
        program = self.start(cardprint=f"{prefix}/bin/cardprint")
        program.find("push button", "Cancel")
        maps = pathlib.Path(f"/proc/{program.pid}/maps").read_text(encoding="utf-8")
        self.assertIn(f"{prefix}/lib/cardpanels/libcardprint-dialog.so", maps)
        self.assertNotIn(f"{BUILD}/", maps)
        user.press(program.find("push button", "Cancel"))
        program.finish()

    def test_cancel_answers_nothing(self):
        program = self.start()
        user.choose(program.find("combo box", "Thermal Laminate"), "Both Sides")
        user.press(program.find("push button", "Cancel"))
        status, out, _ = program.finish()
        self.assertEqual((status, out), (1, ""))

    def test_the_dialog_starts_from_the_options_of_the_command_line(self):
        program = self.start("-o", "cardLaminate=Back")
        self.assertEqual(user.chosen(program.find("combo box", "Thermal Laminate")), "Back Side")
        user.press(program.find("push button", "Cancel"))
        program.finish()

    def test_the_title_names_the_printer(self):
        program = self.start()
        self.assertIn("Example Card Laminate", program.window().get_name())
        user.press(program.find("push button", "Cancel"))
        program.finish()

    def test_the_summary_follows_a_choice(self):
        program = self.start()
        user.choose(program.find("combo box", "Thermal Laminate"), "Front Side")
        user.select_row(program.window(), "Summary")
        program.find("label", "Front Side")
        user.press(program.find("push button", "Cancel"))
        program.finish()

    def test_a_panel_is_left_for_another_and_found_again_as_it_was(self):
        program = self.start(sample="card-duplex")
        window = program.window()
        user.select_row(window, "Thermal Laminate")
        user.choose(program.find("combo box", "Thermal Laminate"), "Front Side")
        user.select_row(window, "Card Handling")
        user.select_row(window, "Thermal Laminate")
        self.assertEqual(user.chosen(program.find("combo box", "Thermal Laminate")), "Front Side")
        user.press(program.find("push button", "Cancel"))
        self.assertEqual(program.finish()[0], 1)

    def test_a_conflict_is_told_on_the_page(self):
        program = self.start("-o", "frontPO=Chip", sample="card-duplex")
        user.select_row(program.window(), "Thermal Laminate")
        user.choose(program.find("combo box", "Thermal Laminate"), "Front Side")
        bar = program.find("info bar")
        user.wait_for(
            lambda: any("Peel-Off" in user.text_of(each) for each in user.descendants(bar)),
            lambda: user.outline(bar),
        )
        user.press(program.find("push button", "Cancel"))
        program.finish()

    def test_a_text_that_is_no_measurement_is_told_kept_and_not_printed(self):
        program = self.start(
            "-o", "frontRibbon=YMCK", "-o", "frontResin=DefinedAreas", sample="card-single"
        )
        window = program.window()
        for column, text in (("X", "1in"), ("Y", "a little"), ("width", "2in"), ("height", "1in")):
            user.type_text(program.find("text", f"Front Resin Area 1, {column}"), text)
        field = program.find("text", "Front Resin Area 1, Y")

        user.press(program.find("push button", "Print"))
        bar = program.find("info bar")
        told = "“Front Resin Area 1, Y” is no measurement: “a little”"
        user.wait_for(
            lambda: any(user.text_of(each) == told for each in user.descendants(bar)),
            lambda: user.outline(bar),
        )
        self.assertEqual(user.text_of(field), "a little")

        user.type_text(field, "0.5in")
        user.press(program.find("push button", "Print"))
        status, out, _ = program.finish()
        self.assertEqual(status, 0)
        self.assertIn("-o 'frontResinInclude1=\"Custom.1in 0.5in 2in 1in\"'", out)
        self.assertFalse(user.is_showing(window))

    def test_a_panel_with_a_text_that_is_no_measurement_is_not_left(self):
        program = self.start(
            "-o", "frontRibbon=YMCK", "-o", "frontResin=DefinedAreas", sample="card-single"
        )
        field = program.find("text", "Front Resin Area 1, X")
        user.type_text(field, "1inch")
        sections = program.find("list box", "Card options")
        sections.get_selection_iface().select_child(sections.get_child_count() - 1)
        program.find("info bar")
        self.assertEqual(user.text_of(field), "1inch")
        user.type_text(field, "1in")
        user.select_row(program.window(), "Summary")
        program.find("label", "Defined Areas")
        user.press(program.find("push button", "Cancel"))
        program.finish()

    def assert_tab_leads_to(self, keyboard, *stops, key="Tab"):
        for role, name in stops:
            keyboard.press(key)
            keyboard.wait_for_focus(role, name)

    def test_tab_goes_from_the_sidebar_through_the_panel_to_the_buttons(self):
        program = self.start()
        program.find("push button", "Print")
        keyboard = Keyboard(self.desktop, program.window())
        keyboard.wait_for_focus("list item", "Thermal Laminate")
        stops = [
            ("toggle button", "Thermal Laminate"),
            ("toggle button", "Help"),
            ("push button", "Cancel"),
            ("push button", "Print"),
            *HEADER,
            ("list item", "Thermal Laminate"),
        ]
        self.assert_tab_leads_to(keyboard, *stops)
        self.assert_tab_leads_to(keyboard, *stops[-2::-1], stops[-1], key="shift+Tab")
        keyboard.press("Down")
        keyboard.wait_for_focus("list item", "Summary")
        program.find("label", "No Laminate")
        keyboard.press("Up")
        keyboard.wait_for_focus("list item", "Thermal Laminate")
        keyboard.press("Escape")
        self.assertEqual(program.finish()[0], 1)

    def test_tab_reaches_the_message_after_the_panel(self):
        program = self.start("-o", "frontPO=Chip", sample="card-duplex")
        user.select_row(program.window(), "Thermal Laminate")
        user.choose(program.find("combo box", "Thermal Laminate"), "Front Side")
        program.find("info bar")
        program.find("toggle button", "Help").get_component_iface().grab_focus()
        keyboard = Keyboard(self.desktop, program.window())
        stops = [("toggle button", "Help")]
        keyboard.wait_for_focus(*stops[0])
        while stops[-1] != ("push button", "Cancel") and len(stops) < 20:
            before = keyboard.focus()
            keyboard.press("Tab")
            user.wait_for(lambda: keyboard.focus() != before, f"{before} keeps the focus")
            stops.append(keyboard.focus())
        self.assertIn(("push button", "Close"), stops)
        keyboard.press("Escape")
        program.finish()

    def start_in_first_area(self):
        """The dialog with areas open, and a keyboard whose focus is the first area's first field."""
        program = self.start(
            "-o", "frontRibbon=YMCK", "-o", "frontResin=DefinedAreas", sample="card-duplex"
        )
        field = program.find("text", "Front Resin Area 1, X")
        field.get_component_iface().grab_focus()
        keyboard = Keyboard(self.desktop, program.window())
        keyboard.wait_for_focus("text", "Front Resin Area 1, X")
        return program, keyboard

    def test_control_and_page_keys_change_the_panel_from_anywhere(self):
        program, keyboard = self.start_in_first_area()
        for text in ("1in", "0.5in", "2in", "1in"):
            keyboard.type(text)
            keyboard.press("Tab")
        keyboard.press("ctrl+Next")
        keyboard.wait_for_focus("toggle button", "Front UV")
        program.find("push button", "Cancel").get_component_iface().grab_focus()
        keyboard.wait_for_focus("push button", "Cancel")
        keyboard.press("ctrl+Next")
        program.find("combo box", "Front Peel-Off")
        self.assertEqual(keyboard.focus(), ("push button", "Cancel"))
        stops = [("push button", "Print"), *HEADER, ("list item", "Peel-Off")]
        self.assert_tab_leads_to(keyboard, *stops)
        self.assert_tab_leads_to(keyboard, ("list item", "Thermal Laminate"), key="ctrl+Next")
        self.assert_tab_leads_to(keyboard, ("list item", "Peel-Off"), key="ctrl+Prior")
        user.press(program.find("push button", "Print"))
        _, out, _ = program.finish()
        self.assertIn("-o 'frontResinInclude1=\"Custom.1in 0.5in 2in 1in\"'", out)

    def test_a_key_keeps_what_is_being_typed(self):
        program, keyboard = self.start_in_first_area()
        for text in ("1in", "0.5in", "2in"):
            keyboard.type(text)
            keyboard.press("Tab")
        keyboard.type("1in")
        keyboard.press("ctrl+Next")
        keyboard.wait_for_focus("toggle button", "Front UV")
        keyboard.press("ctrl+Prior")
        field = program.find("text", "Front Resin Area 1, height")
        user.wait_for(lambda: user.text_of(field) == "1in", lambda: user.text_of(field))
        user.press(program.find("push button", "Print"))
        _, out, _ = program.finish()
        self.assertIn("-o 'frontResinInclude1=\"Custom.1in 0.5in 2in 1in\"'", out)

    def test_keys_do_not_leave_a_text_that_is_no_measurement(self):
        program, keyboard = self.start_in_first_area()
        keyboard.type("abc")
        keyboard.press("ctrl+Next")
        program.find("info bar")
        keyboard.press("End")
        keyboard.type("d")
        field = program.find("text", "Front Resin Area 1, X")
        user.wait_for(lambda: user.text_of(field) == "abcd", lambda: user.text_of(field))
        keyboard.press("Escape")
        program.finish()

    def test_arrows_do_not_leave_a_text_that_is_no_measurement_either(self):
        program, keyboard = self.start_in_first_area()
        keyboard.type("abc")
        row = program.find("list item", "Ribbon and Resin")
        row.get_component_iface().grab_focus()
        keyboard.wait_for_focus("list item", "Ribbon and Resin")
        keyboard.press("Down")
        keyboard.wait_for_focus("text", "Front Resin Area 1, X")
        self.assertTrue(user.is_showing(program.find("combo box", "Front Ribbon")))
        keyboard.press("Escape")
        program.finish()

    def test_help_opens_from_anywhere_and_gives_the_focus_back(self):
        program, keyboard = self.start_in_first_area()
        keyboard.press("F1")
        keyboard.wait_for_focus_in("Ribbon and Resin\n")
        self.assertIn("in, cm, mm, px", keyboard.focus()[1])
        keyboard.press("Escape")
        keyboard.wait_for_focus("text", "Front Resin Area 1, X")
        keyboard.press("ctrl+Next", "F1")
        keyboard.wait_for_focus_in("Ultraviolet\n")
        keyboard.press("F1")
        keyboard.wait_for_focus("toggle button", "Front UV")
        program.find("toggle button", "Help").get_component_iface().grab_focus()
        keyboard.wait_for_focus("toggle button", "Help")
        keyboard.press("space")
        keyboard.wait_for_focus_in("Ultraviolet\n")
        keyboard.press("Escape")
        keyboard.wait_for_focus("toggle button", "Help")
        keyboard.press("Escape")
        self.assertEqual(program.finish()[0], 1)


if __name__ == "__main__":
    unittest.main()
