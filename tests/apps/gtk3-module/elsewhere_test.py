"""Queues of another print server in GTK 3's print dialog, used as a person would."""

import unittest

import atspi_driver as user
from elsewhere_case import ElsewhereCase
from print_dialog_test import PrintDialogTestCase


class ElsewhereTestCase(PrintDialogTestCase, ElsewhereCase):
    page = "libcardpanels-gtk3-page"
    dialog_title = {}

    def wait_until_closed(self, dialog):
        user.wait_for(lambda: not dialog.has_tab("Page Setup"), "the dialog stays")

    def test_choices_reach_the_other_server_from_a_driverless_queue(self):
        self.check_that_choices_reach_the_other_server("client")

    def test_choices_reach_the_other_server_from_a_raw_queue(self):
        self.check_that_choices_reach_the_other_server("raw")

    def test_cancel_forgets(self):
        self.check_that_cancel_forgets()

    def test_the_page_goes_and_comes_with_the_printer(self):
        self.check_that_the_page_goes_and_comes_with_the_printer()

    def test_an_ordinary_printer_there_has_no_page(self):
        self.check_that_an_ordinary_printer_there_has_no_page()

    def test_a_silent_server_holds_nothing(self):
        self.check_that_a_silent_server_holds_nothing()

    def test_an_answer_of_another_printers_is_none(self):
        self.check_that_an_answer_of_another_printers_is_none()

    def test_a_dialog_may_go_while_it_asks(self):
        self.check_that_a_dialog_may_go_while_it_asks()

    def test_a_conflict_is_refused(self):
        self.check_that_a_conflict_is_refused()

    def test_saved_options_and_presets_are_the_first_values(self):
        self.check_that_saved_options_and_presets_are_the_first_values()


if __name__ == "__main__":
    unittest.main()
