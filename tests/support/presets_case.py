"""What presets do on the page Card of GTK's print dialogs."""

import pathlib
import subprocess

import atspi_driver as user
from print_dialog_case import PrintDialogCase

AREA = ("0.1234567890123456in", "5mm", "2.125in", "040px")


class PresetsCase(PrintDialogCase):
    """With `start_demo`, which answers the dialog of a program that prints, and `draw`, which draws
    an area on its page."""

    def open(self, queue="card"):
        dialog = self.start_demo()
        dialog.select_printer(queue)
        dialog.open_card()
        return dialog

    def lp(self, queue):
        file = self.write("badge.txt", "a badge\n")
        env = {**self.desktop.env, **self.server.env}
        command = ["lp", "-H", "hold", "-d", queue, file]
        subprocess.run(command, env=env, check=True, capture_output=True)

    def saved(self):
        return pathlib.Path(self.desktop.home, ".cups", "lpoptions").read_text()

    def check_that_one_is_saved_printed_read_by_lp_chosen_again_and_deleted(self):
        dialog = self.open()
        dialog.choose("Front Resin", "Defined Areas")
        drawn = self.draw(dialog)
        dialog.type_area("Front Resin Area 2", *AREA)
        dialog.open_panel("Thermal Laminate")
        dialog.choose("Thermal Laminate", "Back Side")
        dialog.set_copies(2)
        dialog.open_card()
        dialog.save_preset("visitors")
        chosen = {
            "frontResin": "DefinedAreas",
            "frontResinInclude1": "Custom." + " ".join(drawn),
            "frontResinInclude2": "Custom." + " ".join(AREA),
            "cardLaminate": "Back",
        }
        dialog.press("Print")
        self.assert_job(self.job(1), **chosen)
        self.check_end()

        self.lp("card/visitors")
        self.assert_job(self.job(2, "held"), copies="\0\0\0\2", **chosen)

        dialog = self.open()
        dialog.wait_for_preset("Standard")
        dialog.choose_preset("visitors")
        user.wait_for(lambda: dialog.copies() == 2, "not 2 copies")
        dialog.press("Print")
        self.assert_job(self.job(3), **chosen)
        self.check_end()

        dialog = self.open()
        dialog.choose_preset("visitors")
        dialog.delete_preset()
        self.assertNotIn("visitors", self.saved())
        dialog.press("Print")
        self.assert_job(self.job(4), **chosen)

    def check_that_a_deleted_one_comes_back(self):
        lines = 'Dest card/visitors cardLaminate="Back"\n'
        self.write(".cups/lpoptions", lines)
        dialog = self.open()
        dialog.choose_preset("visitors")
        dialog.delete_preset()
        dialog.wait_for_text("The preset visitors was deleted.")
        dialog.press("Undo")
        dialog.wait_for_preset("visitors")
        self.assertEqual(self.saved(), lines)

    def check_that_one_sets_the_controls_of_the_dialog_itself(self):
        self.write(
            ".cups/lpoptions",
            "Dest coated/shiny coating=Gloss PageSize=CR79 cardLaminate=None copies=3\n",
        )
        dialog = self.open("coated")
        dialog.choose_preset("shiny")
        user.wait_for(lambda: dialog.copies() == 3, "not 3 copies")
        dialog.open_tab("Advanced")
        self.assertEqual(dialog.chosen_own("Coating:"), "Glossy")
        dialog.open_tab("Page Setup")
        self.assertIn("CR79", dialog.paper_size())
        dialog.press("Print")
        job = self.job()
        self.assertEqual((job["coating"], job["PageSize"]), ("Gloss", "CR79"))
