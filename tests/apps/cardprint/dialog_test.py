"""cardprint's dialog, used as a person would."""

import os
import pathlib
import unittest

import atspi_driver as user

ROOT = pathlib.Path(os.environ["CARDPANELS_SOURCE_DIR"])
CARDPRINT = str(pathlib.Path(os.environ["CARDPANELS_BUILD_DIR"]) / "bin" / "cardprint")


class DialogTestCase(unittest.TestCase):
    def setUp(self):
        self.desktop = self.enterContext(user.Desktop())

    def enterContext(self, context):
        """As in Python 3.11's unittest, also where that is older."""
        value = context.__enter__()
        self.addCleanup(context.__exit__, None, None, None)
        return value

    def start(self, *arguments, sample="card-laminate"):
        ppd = str(ROOT / "resources" / "ppd" / f"{sample}.ppd")
        return self.desktop.start(
            [CARDPRINT, "--ppd", ppd, *arguments], G_DEBUG="fatal-criticals", GDK_GL="disable"
        )

    def test_print_answers_what_was_chosen(self):
        program = self.start()
        user.choose(program.find("combo box", "Laminate"), "Both Sides")
        user.press(program.find("push button", "Print"))
        status, out, _ = program.finish()
        self.assertEqual(status, 0)
        self.assertEqual(
            out, "Thermal Laminate\n    Thermal Laminate: Both Sides\n-o cardLaminate=Both\n"
        )

    def test_cancel_answers_nothing(self):
        program = self.start()
        user.choose(program.find("combo box", "Laminate"), "Both Sides")
        user.press(program.find("push button", "Cancel"))
        status, out, _ = program.finish()
        self.assertEqual((status, out), (1, ""))

    def test_the_dialog_starts_from_the_options_of_the_command_line(self):
        program = self.start("-o", "cardLaminate=Back")
        self.assertEqual(user.chosen(program.find("combo box", "Laminate")), "Back Side")
        user.press(program.find("push button", "Cancel"))
        program.finish()

    def test_the_title_names_the_printer(self):
        program = self.start()
        self.assertIn("Example Card Laminate", program.window().get_name())
        user.press(program.find("push button", "Cancel"))
        program.finish()

    def test_the_summary_follows_a_choice(self):
        program = self.start()
        user.choose(program.find("combo box", "Laminate"), "Front Side")
        user.select_row(program.window(), "Summary")
        program.find("label", "Front Side")
        user.press(program.find("push button", "Cancel"))
        program.finish()

    def test_a_panel_is_left_for_another_and_found_again_as_it_was(self):
        program = self.start(sample="card-duplex")
        window = program.window()
        user.select_row(window, "Thermal Laminate")
        user.choose(program.find("combo box", "Laminate"), "Front Side")
        user.select_row(window, "Card Handling")
        user.select_row(window, "Thermal Laminate")
        self.assertEqual(user.chosen(program.find("combo box", "Laminate")), "Front Side")
        user.press(program.find("push button", "Cancel"))
        self.assertEqual(program.finish()[0], 1)

    def test_a_conflict_is_told_on_the_page(self):
        program = self.start("-o", "frontPO=Chip", sample="card-duplex")
        user.select_row(program.window(), "Thermal Laminate")
        user.choose(program.find("combo box", "Laminate"), "Front Side")
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
            user.type_text(program.find("text", f"Front include area 1, {column}"), text)
        field = program.find("text", "Front include area 1, Y")

        user.press(program.find("push button", "Print"))
        bar = program.find("info bar")
        told = "“Front include area 1, Y” is no measurement: “a little”"
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
        field = program.find("text", "Front include area 1, X")
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


if __name__ == "__main__":
    unittest.main()
