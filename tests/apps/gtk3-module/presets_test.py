"""Presets on the page Card of GTK 3's print dialog, used as a person would."""

import unittest

from presets_case import PresetsCase
from print_dialog_case import SANITIZED
from print_dialog_test import PrintDialogTestCase


class PresetsTestCase(PrintDialogTestCase, PresetsCase):
    def test_a_preset_is_saved_printed_read_by_lp_chosen_again_and_deleted(self):
        self.check_that_one_is_saved_printed_read_by_lp_chosen_again_and_deleted()

    def test_a_deleted_preset_comes_back(self):
        self.check_that_a_deleted_one_comes_back()

    @unittest.skipIf(SANITIZED, "the tests' own program lets nobody choose the paper")
    def test_a_preset_sets_the_controls_of_the_dialog_itself(self):
        self.check_that_one_sets_the_controls_of_the_dialog_itself()


if __name__ == "__main__":
    unittest.main()
