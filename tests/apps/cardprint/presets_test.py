"""Presets in cardprint's dialog, used as a person would, and what lp makes of them."""

import os
import pathlib
import re
import subprocess
import unittest

import atspi_driver as user
import presets
from keyboard import Keyboard
from mouse import Mouse, draw_an_area
from print_server import PrintServer

ROOT = pathlib.Path(os.environ["CARDPANELS_SOURCE_DIR"])
CARDPRINT = str(pathlib.Path(os.environ["CARDPANELS_BUILD_DIR"]) / "bin" / "cardprint")
PPD = ROOT / "resources" / "ppd" / "card-duplex.ppd"
DEFAULTS = dict(re.findall(r"^\*Default(\w+): (\w+)$", PPD.read_text(), re.MULTILINE))
AREA = ("0.1234567890123456in", "5mm", "2.125in", "040px")


class PresetsTestCase(unittest.TestCase):
    def setUp(self):
        self.server = self.enterContext(PrintServer())
        self.desktop = self.enterContext(user.Desktop())
        self.server.add_queue("card", PPD)
        self.file = os.path.join(self.desktop.home, "badge.txt")
        pathlib.Path(self.file).write_text("a badge\n")
        self.saved = pathlib.Path(self.desktop.home, ".cups", "lpoptions")

    def enterContext(self, context):
        """As in Python 3.11's unittest, also where that is older."""
        value = context.__enter__()
        self.addCleanup(context.__exit__, None, None, None)
        return value

    def start(self, queue, *arguments):
        command = [CARDPRINT, "-d", queue, *arguments, self.file]
        return self.desktop.start(
            command, G_DEBUG="fatal-criticals", GDK_GL="disable", **self.server.env
        )

    def write_saved(self, lines):
        self.saved.parent.mkdir(exist_ok=True)
        self.saved.write_text(lines)

    def finish(self, program, button):
        user.press(program.find("push button", button))
        status, _, errors = program.finish()
        self.assertEqual(status, 0 if button == "Print" else 1, errors)

    def draw(self, program):
        picture = program.find("grouping", "Front of the card, 85.6 by 54 mm")
        return draw_an_area(
            Mouse(self.desktop, picture),
            Keyboard(self.desktop, program.window()).press,
            lambda name: user.text_of(program.find("text", name)),
        )

    def lp(self, queue):
        env = {**self.desktop.env, **self.server.env}
        subprocess.run(["lp", "-d", queue, self.file], env=env, check=True, capture_output=True)

    def options(self, number):
        """What the job asks of the printer: its options, the printer's defaults, and the copies."""
        job = user.wait_for(lambda: self.server.job(number), f"there is no job {number}")
        return {key: job.get(key, value) for key, value in DEFAULTS.items()} | {
            "copies": ord(job.get("copies", "\1")[-1])  # a number of IPP
        }

    def test_a_preset_is_saved_printed_read_by_lp_chosen_again_and_deleted(self):
        self.write_saved("# mine\nDest card/others a='b  c'\n")
        program = self.start("card", "-n", "2")
        presets.wait_until_chosen(program, "Standard", modified=True)  # the copies
        user.choose(program.find("combo box", "Front Resin"), "Defined Areas")
        drawn = self.draw(program)
        for name, text in zip(("X", "Y", "width", "height"), AREA):
            user.type_text(program.find("text", f"Front Resin Area 2, {name}"), text)
        user.select_row(program.window(), "Thermal Laminate")
        user.choose(program.find("combo box", "Thermal Laminate"), "Back Side")
        presets.save_as(program, "visitors")
        self.finish(program, "Print")
        first = self.options(1)
        self.assertEqual(first["frontResinInclude1"], "Custom." + " ".join(drawn))
        self.assertEqual(first["frontResinInclude2"], "Custom." + " ".join(AREA))
        self.assertEqual((first["cardLaminate"], first["copies"]), ("Back", 2))

        self.lp("card/visitors")
        self.assertEqual(self.options(2), first)

        program = self.start("card")
        presets.wait_until_chosen(program, "Standard")
        presets.choose(program, "visitors")
        self.assertEqual(user.text_of(program.find("text", "Front Resin Area 2, X")), AREA[0])
        self.finish(program, "Print")
        self.assertEqual(self.options(3), first)

        program = self.start("card/visitors")
        presets.wait_until_chosen(program, "visitors")
        user.select_row(program.window(), "Thermal Laminate")
        user.choose(program.find("combo box", "Thermal Laminate"), "No Laminate")
        presets.wait_until_chosen(program, "visitors", modified=True)
        presets.open_menu(program, "Save")
        presets.wait_until_chosen(program, "visitors")
        self.finish(program, "Cancel")
        self.lp("card/visitors")
        self.assertEqual(self.options(4), first | {"cardLaminate": "None"})

        program = self.start("card/visitors")
        presets.wait_until_chosen(program, "visitors")
        presets.delete(program)
        self.finish(program, "Print")
        self.assertEqual(self.options(5), first | {"cardLaminate": "None"})
        self.assertEqual(self.saved.read_text(), "# mine\nDest card/others a='b  c'\n")

    def test_a_name_beyond_the_rules_is_told_and_not_saved(self):
        program = self.start("card")
        presets.wait_until_chosen(program, "Standard")
        presets.open_menu(program, "Save As…")
        name = program.find("text", "Name")
        save = program.find("push button", "Save")
        for text, told in (
            ("two words", "A preset's name cannot have spaces."),
            ("a/b", "A preset's name cannot have the character /."),
            ("a#b", "A preset's name cannot have the character #."),
        ):
            user.type_text(name, text)
            program.find("label", told)
            self.assertFalse(save.get_state_set().contains(user.Atspi.StateType.SENSITIVE))
        user.press(program.find("push button", "Cancel"))
        self.assertFalse(self.saved.exists())

    def test_one_of_the_administrators_has_a_lock_and_stays(self):
        pathlib.Path(self.server.root, "lpoptions").write_text("Dest card/staff cardLaminate=Both\n")
        program = self.start("card")
        presets.choose(program, "staff (for everybody)")
        user.press(program.find("toggle button", presets.MENU))
        for item in ("Save", "Delete"):
            state = program.find("menu item", item).get_state_set()
            self.assertFalse(state.contains(user.Atspi.StateType.SENSITIVE), item)

    def test_a_home_that_takes_nothing_is_told(self):
        program = self.start("card")
        presets.wait_until_chosen(program, "Standard")
        self.saved.parent.write_text("in the place of the folder")
        presets.open_menu(program, "Save As…")
        user.type_text(program.find("text", "Name"), "visitors")
        user.press(program.find("push button", "Save"))
        bar = program.find("info bar")
        user.wait_for(
            lambda: any("cannot be saved: Not a directory" in user.text_of(each)
                        for each in user.descendants(bar)),
            lambda: user.outline(bar),
        )
        self.finish(program, "Cancel")

    def test_the_row_is_before_the_panels_and_the_focus_starts_at_their_list(self):
        program = self.start("card")
        presets.wait_until_chosen(program, "Standard")
        keyboard = Keyboard(self.desktop, program.window())
        keyboard.wait_for_focus("list item", "Ribbon and Resin")
        for role, name in (("toggle button", presets.MENU), ("toggle button", "Preset")):
            keyboard.press("shift+Tab")
            keyboard.wait_for_focus(role, name)
        keyboard.press("Tab", "Tab")
        keyboard.wait_for_focus("list item", "Ribbon and Resin")
        keyboard.press("alt+e")
        keyboard.wait_for_focus("toggle button", "Preset")


if __name__ == "__main__":
    unittest.main()
