"""What the page Card in GTK's print dialogs does for queues of another print server."""

import time

import atspi_driver as user
from print_dialog_case import CARD_PPD, ORDINARY_PPD, PrintDialogCase, defaults
from print_server import PrintServer

# Only another card size would resolve it, which no rule changes.
WITHOUT_FRONT = '*cupsUIConstraints: "*PageSize CR80 *cardLaminate Front"\n'
AREA = ("0.1234567890123456in", "5mm", "2.125in", "040px")
SAVED = 'cardLaminate=Back frontResin=DefinedAreas frontResinInclude1="Custom.1in 1in 2in 2in"'


class ElsewhereCase(PrintDialogCase):
    """With a second server, `there`, and queues here that pass their jobs on to its queues:
    `client`, which is driverless, and `raw` to one for cards, `sheets` to an ordinary one.

    To be used with `start_demo` and `start_program`, which answer the dialog of a program, and
    `page`, the name of the library with the page."""

    page = ""

    def setUp(self):
        super().setUp()
        self.there = self.enterContext(PrintServer(is_remote=True))
        card = self.write("there.ppd", CARD_PPD.read_text() + WITHOUT_FRONT)
        plain = self.write("plain.ppd", ORDINARY_PPD)
        self.there.add_queue("card", card)
        self.there.add_queue("plain", plain)
        self.server.add_queue("client", plain, self.there.uri("card"))
        self.server.add_queue("raw", None, self.there.uri("card"))
        self.server.add_queue("sheets", plain, self.there.uri("plain"))

    def open(self, queue, dialog=None):
        dialog = dialog or self.start_demo()
        dialog.select_printer(queue)
        dialog.open_card()
        return dialog

    def assert_there(self, job, **chosen):
        """The other server's job carries `chosen`, and the defaults of its PPD for all else but the
        page size, which is the dialog's."""
        expected = {key: value for key, value in defaults(CARD_PPD).items()
                    if key in job and key not in ("PageSize", "PageRegion")}
        self.assertIn("cardLaminate", expected)
        self.assert_has(job, **(expected | chosen))

    def check_that_choices_reach_the_other_server(self, queue):
        dialog = self.open(queue)
        dialog.choose("Back Ribbon", "Color and Black Resin (YMCK)")
        dialog.choose("Front Resin", "Defined Areas")
        dialog.type_area("Front Resin Area 1", "1in", "0.5in", "2in", "1in")
        dialog.type_area("Front Resin Area 2", *AREA)
        dialog.open_panel("Thermal Laminate")
        dialog.choose("Thermal Laminate", "Both Sides")
        dialog.press("Print")
        self.assert_there(
            self.job(server=self.there),
            backRibbon="YMCK",
            frontResin="DefinedAreas",
            frontResinInclude1="Custom.1in 0.5in 2in 1in",
            frontResinInclude2="Custom." + " ".join(AREA),
            cardLaminate="Both",
        )

    def check_that_cancel_forgets(self):
        dialog = self.open("client", self.start_program("operation"))
        dialog.choose("Front Resin", "Defined Areas")
        dialog.press("Cancel")
        self.wait_until_closed(dialog)
        self.send("operation")
        self.open("client", dialog)
        self.assertEqual(dialog.chosen("Front Resin"), "Black Text")
        dialog.press("Print")
        self.assert_there(self.job(server=self.there))

    def check_that_the_page_goes_and_comes_with_the_printer(self):
        dialog = self.open("client")
        dialog.choose("Front Ribbon", "Metallic Silver")
        dialog.open_tab("General")
        dialog.select_printer("plain")
        user.wait_for(lambda: not dialog.has_tab("Card"), "the page stays")
        self.open("raw", dialog)
        self.assertNotEqual(dialog.chosen("Front Ribbon"), "Metallic Silver")
        dialog.open_tab("General")
        dialog.select_printer("plain")
        dialog.press("Print")
        job = self.job()
        self.assertEqual(job["Toner"], "Much")
        self.assertNotIn("frontRibbon", job)

    def check_that_an_ordinary_printer_there_has_no_page(self):
        dialog = self.start_demo()
        dialog.select_printer("sheets")
        # The log comes with the answer.
        user.wait_for(lambda: "GET /printers/plain.ppd" in self.there.accesses(), "nobody asks")
        time.sleep(1)
        self.assertFalse(dialog.has_tab("Card"))
        dialog.open_tab("General")
        dialog.select_printer("plain")
        self.assertFalse(self.maps(self.page))
        dialog.press("Print")
        self.assertEqual(self.job()["Toner"], "Much")

    def check_that_a_silent_server_holds_nothing(self):
        dialog = self.start_demo()
        dialog.select_printer("plain")
        with self.there.standing_still():
            start = time.monotonic()
            dialog.select_printer("client")
            dialog.open_tab("Advanced")
            self.assertLess(time.monotonic() - start, 6)
            self.assertFalse(dialog.has_tab("Card"))
            dialog.press("Print")
            self.wait_until_closed(dialog)
        job = self.job(server=self.there)
        self.assertNotIn("cardLaminate", job)
        self.assertFalse(self.maps(self.page))

    def check_that_an_answer_of_another_printers_is_none(self):
        dialog = self.start_program("dialog", **self.dialog_title)
        dialog.select_printer("plain")
        with self.there.standing_still():
            dialog.select_printer("client")
            self.open("card", dialog)
            dialog.choose("Front Ribbon", "Metallic Silver")
        time.sleep(3)
        self.assertEqual(dialog.chosen("Front Ribbon"), "Metallic Silver")
        self.assertEqual(dialog.chosen("Preset"), "Standard")
        dialog.open_tab("General")
        dialog.select_printer("plain")
        user.wait_for(lambda: not dialog.has_tab("Card"), "the page stays")

    def check_that_a_dialog_may_go_while_it_asks(self):
        dialog = self.start_program("dialog", **self.dialog_title)
        dialog.select_printer("plain")
        with self.there.standing_still():
            dialog.select_printer("client")
            self.send("destroy")
            self.wait_until_closed(dialog)
        self.send("dialog")
        self.open("client", dialog)
        dialog.choose("Front Ribbon", "Metallic Silver")
        dialog.press("Cancel")

    def check_that_a_conflict_is_refused(self):
        dialog = self.open("client")
        dialog.open_panel("Thermal Laminate")
        dialog.try_to_choose("Thermal Laminate", "Front Side")
        dialog.wait_for_text("“Thermal Laminate” cannot be “Front Side” while “Card Size” is")
        dialog.press("Print")
        self.assert_there(self.job(server=self.there), cardLaminate="None")

    def check_that_saved_options_and_presets_are_the_first_values(self):
        presets = "Dest client/visitors cardLaminate=Both coating=Gloss\n"
        self.write(".cups/lpoptions", f"Dest client {SAVED}\n{presets}")
        dialog = self.open("client")
        self.assertEqual(dialog.text_of("Front Resin Area 1, width"), "2in")
        dialog.open_panel("Thermal Laminate")
        self.assertEqual(dialog.chosen("Thermal Laminate"), "Back Side")
        dialog.choose_preset("visitors")
        self.assertEqual(dialog.chosen("Thermal Laminate"), "Both Sides")
        dialog.choose_preset("Standard")
        dialog.press("Print")
        self.assert_there(
            self.job(server=self.there),
            cardLaminate="Back",
            frontResin="DefinedAreas",
            frontResinInclude1="Custom.1in 1in 2in 2in",
        )
