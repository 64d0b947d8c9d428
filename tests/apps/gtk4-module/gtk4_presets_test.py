"""Presets on the page Card of GTK 4's print dialog, used as a person would."""

import unittest

from gtk4_print_dialog_case import Gtk4DialogCase
from presets_case import PresetsCase
from print_dialog_case import SANITIZED


class PresetsTestCase(Gtk4DialogCase, PresetsCase):
    def test_a_preset_is_saved_printed_read_by_lp_chosen_again_and_deleted(self):
        self.check_that_one_is_saved_printed_read_by_lp_chosen_again_and_deleted()

    def test_a_deleted_preset_comes_back(self):
        self.check_that_a_deleted_one_comes_back()

    @unittest.skipIf(SANITIZED, "the tests' own program lets nobody choose the paper")
    def test_a_preset_sets_the_controls_of_the_dialog_itself(self):
        self.check_that_one_sets_the_controls_of_the_dialog_itself()

    def test_the_row_is_before_the_panels(self):
        self.write(".cups/lpoptions", "Dest card/visitors cardLaminate=Back\n")
        dialog = self.open()
        dialog.wait_for_preset("Standard")
        dialog.click(dialog.find("list item", "Ribbon and Resin"))
        for role, name in (("push button", "Save or delete presets"), ("push button", "Preset")):
            dialog.keys("shift+Tab")
            dialog.wait_for_focus(role, name)
        dialog.keys("Tab", "Tab")
        dialog.wait_for_focus("list item", "Ribbon and Resin")
        dialog.keys("alt+e")
        dialog.pick("Preset", "visitors")
        dialog.wait_for_preset("visitors")


if __name__ == "__main__":
    unittest.main()
