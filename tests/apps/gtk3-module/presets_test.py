"""Presets on the page Card of GTK's print dialog, used as a person would."""

import pathlib
import subprocess
import unittest

import atspi_driver as user
import presets
from print_dialog_test import SANITIZED, PrintDialogTestCase

AREA = ("0.1234567890123456in", "5mm", "2.125in", "040px")


class PresetsTestCase(PrintDialogTestCase):
    def open(self):
        dialog = self.start_demo()
        dialog.select_printer("card")
        dialog.open_card()
        return dialog

    def copies(self, dialog):
        dialog.open_tab("General")
        return dialog.program.find("spin button", "Copies:")

    def lp(self, queue):
        file = self.write("badge.txt", "a badge\n")
        env = {**self.desktop.env, **self.server.env}
        subprocess.run(["lp", "-H", "hold", "-d", queue, file], env=env, check=True, capture_output=True)

    def test_a_preset_is_saved_printed_read_by_lp_chosen_again_and_deleted(self):
        dialog = self.open()
        program = dialog.program
        dialog.choose("Front Resin", "Defined Areas")
        for name, text in zip(("X", "Y", "width", "height"), AREA):
            dialog.type(f"Front Resin Area 1, {name}", text)
        dialog.open_panel("Thermal Laminate")
        dialog.choose("Thermal Laminate", "Back Side")
        self.copies(dialog).get_value_iface().set_current_value(2)
        dialog.open_card()
        presets.save_as(program, "visitors")
        chosen = {
            "frontResin": "DefinedAreas",
            "frontResinInclude1": "Custom." + " ".join(AREA),
            "cardLaminate": "Back",
        }
        dialog.press("Print")
        self.assert_job(self.job(1), **chosen)
        self.check_end()

        self.lp("card/visitors")
        self.assert_job(self.job(2, "held"), copies="\0\0\0\2", **chosen)

        dialog = self.open()
        program = dialog.program
        presets.wait_until_chosen(program, "Standard")
        presets.choose(program, "visitors")
        copies = self.copies(dialog)
        user.wait_for(lambda: copies.get_value_iface().get_current_value() == 2, "not 2 copies")
        dialog.press("Print")
        self.assert_job(self.job(3), **chosen)
        self.check_end()

        dialog = self.open()
        presets.choose(dialog.program, "visitors")
        presets.delete(dialog.program)
        saved = pathlib.Path(self.desktop.home, ".cups", "lpoptions")
        self.assertNotIn("visitors", saved.read_text())
        dialog.press("Print")
        self.assert_job(self.job(4), **chosen)

    @unittest.skipIf(SANITIZED, "the tests' own program lets nobody choose the paper")
    def test_a_preset_sets_the_controls_of_the_dialog_itself(self):
        self.write(
            ".cups/lpoptions", "Dest coated/shiny coating=Gloss PageSize=CR79 cardLaminate=None\n"
        )
        dialog = self.start_demo()
        dialog.select_printer("coated")
        dialog.open_card()
        presets.choose(dialog.program, "shiny")
        dialog.open_tab("Advanced")
        self.assertEqual(user.chosen(dialog.combo("Coating:")), "Glossy")
        dialog.press("Print")
        job = self.job()
        self.assertEqual((job["coating"], job["PageSize"]), ("Gloss", "CR79"))


if __name__ == "__main__":
    unittest.main()
