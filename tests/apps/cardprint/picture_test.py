"""The picture of the card in cardprint's dialog, used with mouse, keys and a screen reader."""

import os
import pathlib
import unittest

import atspi_driver as user
from keyboard import Keyboard
from mouse import Mouse
from print_server import PrintServer

ROOT = pathlib.Path(os.environ["CARDPANELS_SOURCE_DIR"])
BUILD = pathlib.Path(os.environ["CARDPANELS_BUILD_DIR"])
PPD = ROOT / "resources" / "ppd" / "card-duplex.ppd"
OPTIONS = ("-o", "frontRibbon=YMCK", "-o", "frontResin=DefinedAreas")
FRONT = "Front of the card, 85.6 by 54 mm"
COLUMNS = ("X", "Y", "width", "height")


class PictureTestCase(unittest.TestCase):
    def setUp(self):
        self.desktop = user.Desktop()
        self.desktop.__enter__()
        self.addCleanup(self.desktop.__exit__, None, None, None)

    def start(self, *arguments, **env):
        command = [str(BUILD / "bin" / "cardprint"), *arguments, *OPTIONS]
        self.program = self.desktop.start(
            command, G_DEBUG="fatal-criticals", GDK_GL="disable", **env
        )
        self.picture = self.program.find("grouping", FRONT)

    def cancel(self):
        user.press(self.program.find("push button", "Cancel"))
        self.program.finish()

    def texts(self, area="Front Resin Area 1"):
        return [
            user.text_of(self.program.find("text", f"{area}, {column}")) for column in COLUMNS
        ]

    def wait_for_texts(self, *texts):
        user.wait_for(
            lambda: self.texts() == list(texts), lambda: f"the fields have {self.texts()}"
        )

    def areas(self):
        """What a screen reader says of the areas."""
        return [each.get_name() for each in user.showing(self.picture, "icon")]

    def wait_for_areas(self, *names):
        user.wait_for(
            lambda: self.areas() == list(names), lambda: f"the picture has {self.areas()}"
        )

    def middle(self):
        box = self.picture.get_component_iface().get_extents(user.Atspi.CoordType.SCREEN)
        return box.width // 2, box.height // 2

    def test_a_screen_reader_is_told_an_area_while_keys_move_it(self):
        area = "frontResinInclude1=12mm 5mm 25mm 8mm"
        self.start("--ppd", str(PPD), "-o", area)
        name = "Include area 1, 12 mm from left, 5 mm from top, 25 by 8 mm"
        self.wait_for_areas(name)
        keyboard = Keyboard(self.desktop, self.program.window())
        self.picture.get_component_iface().grab_focus()
        keyboard.press("Right", "Right", "shift+Down", "ctrl+Left")
        name = "Include area 1, 12.9 mm from left, 5 mm from top, 25 by 9 mm"
        self.wait_for_areas(name)
        node = user.showing(self.picture, "icon")[0]
        states = node.get_state_set()
        for state in ("FOCUSABLE", "FOCUSED", "SELECTED", "SHOWING"):
            self.assertTrue(states.contains(getattr(user.Atspi.StateType, state)), state)
        self.wait_for_texts("12.9mm", "5mm", "25mm", "9mm")
        keyboard.press(*["ctrl+shift+Right"] * 3, "Page_Down", "Down")
        self.wait_for_texts("12.9mm", "6mm", "25.3mm", "9mm")
        box = node.get_component_iface().get_extents(user.Atspi.CoordType.SCREEN)
        self.assertGreater(box.width, box.height)
        self.cancel()

    def test_a_screen_reader_is_told_what_is_wrong_and_goes_to_the_fields(self):
        self.start("--ppd", str(PPD), "-o", "frontResinInclude1=63.6mm 5mm 25mm 8mm")
        place = "Include area 1, 63.6 mm from left, 5 mm from top, 25 by 8 mm"
        self.wait_for_areas(f"{place}; 3 mm outside on the right")
        node = user.showing(self.picture, "icon")[0]
        self.assertEqual(
            node.get_description(),
            "“Front Resin Area 1” is 3 mm outside the card on the right.",
        )
        actions = node.get_action_iface()
        names = [actions.get_action_name(i) for i in range(actions.get_n_actions())]
        self.assertEqual(names, ["edit", "clear"])
        keyboard = Keyboard(self.desktop, self.program.window())
        actions.do_action(0)
        keyboard.wait_for_focus("text", "Front Resin Area 1, X")
        actions.do_action(1)
        self.wait_for_areas()
        self.wait_for_texts("", "", "", "")
        self.cancel()

    def test_an_area_is_drawn_nudged_and_printed(self):
        server = PrintServer()
        server.__enter__()
        self.addCleanup(server.__exit__, None, None, None)
        server.add_queue("badges", PPD)
        card = pathlib.Path(server.root) / "card.pdf"
        card.write_bytes(b"%PDF-1.4\n%%EOF\n")
        self.start("-d", "badges", str(card), **server.env)
        x, y = self.middle()
        Mouse(self.desktop, self.picture).drag((x - 40, y - 30), (x + 20, y + 10))
        user.wait_for(lambda: all(self.texts()), lambda: f"the fields have {self.texts()}")
        drawn = self.texts()
        for text in drawn:
            self.assertRegex(text, r"^[0-9]+(\.5)?mm$")
        keyboard = Keyboard(self.desktop, self.program.window())
        keyboard.press("Right", "shift+Up")
        lengths = [float(text[:-2]) for text in drawn]
        lengths[0] += 1
        lengths[3] -= 1
        nudged = [f"{length:g}mm" for length in lengths]
        self.wait_for_texts(*nudged)
        user.press(self.program.find("push button", "Print"))
        status, _, err = self.program.finish()
        self.assertEqual((status, err), (0, ""))
        job = user.wait_for(lambda: server.job(1), server.log)
        self.assertEqual(job["frontResinInclude1"], "Custom." + " ".join(nudged))

    def test_a_choice_that_the_printer_tells_the_place_of_is_shown(self):
        self.start("--ppd", str(PPD))
        user.choose(self.program.find("combo box", "Front Resin"), "Top Half")
        description = "Top Half, 0 mm from left, 0 mm from top, 85.6 by 27 mm"
        user.wait_for(
            lambda: self.program.find("grouping", FRONT).get_description() == description,
            lambda: self.picture.get_description(),
        )
        user.choose(self.program.find("combo box", "Front Resin"), "Whole Card")
        user.wait_for(
            lambda: not user.find_now(self.program.window(), "grouping", FRONT),
            "the picture stays",
        )
        self.cancel()

    def test_the_picture_stands_beside_the_fields_or_above_them(self):
        self.start("--ppd", str(PPD))
        field = self.program.find("text", "Front Resin Area 1, X")
        keyboard = Keyboard(self.desktop, self.program.window())

        def places():
            kind = user.Atspi.CoordType.SCREEN
            nodes = (self.picture, field)
            return [each.get_component_iface().get_extents(kind) for each in nodes]

        picture, entry = places()
        self.assertGreater(picture.x, entry.x)
        self.assertLess(picture.y, entry.y)
        self.assertGreater(picture.y + picture.height, entry.y)
        keyboard.resize(720, 600)
        user.wait_for(
            lambda: places()[0].y + places()[0].height < places()[1].y,
            lambda: f"picture and field are at {places()}",
        )
        self.cancel()

    def test_the_document_is_read_and_what_is_none_is_told(self):
        server = PrintServer()
        server.__enter__()
        self.addCleanup(server.__exit__, None, None, None)
        server.add_queue("badges", PPD)
        note = pathlib.Path(server.root) / "note.txt"
        note.write_text("Some text.\n", encoding="utf-8")
        self.start("-d", "badges", str(note), **server.env)
        why = "The document cannot be shown: it is neither PDF nor an image"
        user.wait_for(
            lambda: why in self.program.find("grouping", FRONT).get_description(),
            lambda: repr(self.picture.get_description()),
        )
        self.cancel()


if __name__ == "__main__":
    unittest.main()
