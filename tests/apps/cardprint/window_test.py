"""cardprint's window, used as a person would, on a print server of the test's own."""

import os
import pathlib
import re
import subprocess
import time
import unittest

import atspi_driver as user
from keyboard import Keyboard
from gi.repository import Gio, GLib
from mouse import Mouse
from print_server import PrintServer

ROOT = pathlib.Path(os.environ["CARDPANELS_SOURCE_DIR"])
BUILD = pathlib.Path(os.environ["CARDPANELS_BUILD_DIR"])
CARDPRINT = str(BUILD / "bin" / "cardprint")
SAMPLES = ROOT / "resources" / "ppd"

FAILED, NOT_PRINTED = 2, 4  # exit statuses
WAITING_SECONDS = 2  # until somebody who waits for nothing would be gone
MANY_SECONDS = 150  # for many jobs, on a machine that has other things to do

OTHER_OPTION = """\
*OpenUI *Polish/Polish: PickOne
*DefaultPolish: None
*Polish None/None: ""
*Polish Gloss/High Gloss: ""
*CloseUI: *Polish
"""


OWN_OPTIONS = """\
*OpenUI *Serial/Serial Number: PickOne
*DefaultSerial: None
*Serial None/None: ""
*CloseUI: *Serial
*CustomSerial True: "pop"
*ParamCustomSerial Value/Number: 1 int 1 9999
*OpenUI *Mark/Watermark: PickOne
*DefaultMark: None
*Mark None/None: ""
*CloseUI: *Mark
*CustomMark True/Own Mark: "pop pop"
*ParamCustomMark Text/Text: 1 string 1 20
*ParamCustomMark Size/Size: 2 points 6 72
*OpenUI *Pin/Release Code: PickOne
*DefaultPin: None
*Pin None/None: ""
*CloseUI: *Pin
*CustomPin True: "pop"
*ParamCustomPin Code/Code: 1 passcode 4 6
"""


class Notifications:
    """The desktop's notifications, and what they tell."""

    INTERFACE = """<node><interface name="org.freedesktop.Notifications"><method name="Notify">
        <arg type="s" direction="in"/><arg type="u" direction="in"/><arg type="s" direction="in"/>
        <arg type="s" direction="in"/><arg type="s" direction="in"/><arg type="as" direction="in"/>
        <arg type="a{sv}" direction="in"/><arg type="i" direction="in"/>
        <arg type="u" direction="out"/></method></interface></node>"""

    def __init__(self, desktop):
        flags = (
            Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT
            | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION
        )
        address = desktop.env["DBUS_SESSION_BUS_ADDRESS"]
        self._bus = Gio.DBusConnection.new_for_address_sync(address, flags, None, None)
        self._told = []

    def __enter__(self):
        node = Gio.DBusNodeInfo.new_for_xml(self.INTERFACE)
        self._bus.register_object(
            "/org/freedesktop/Notifications", node.interfaces[0], self._called, None, None
        )
        Gio.bus_own_name_on_connection(
            self._bus, "org.freedesktop.Notifications", Gio.BusNameOwnerFlags.NONE, None, None
        )
        return self

    def __exit__(self, *_):
        self._bus.close_sync(None)

    def _called(self, _bus, _sender, _path, _interface, _method, parameters, invocation):
        self._told.append(parameters.unpack()[3:5])
        invocation.return_value(GLib.Variant("(u)", (len(self._told),)))

    def all(self):
        return self._told

    def wait_for(self, title, text):
        user.wait_for(
            lambda: any(each[0] == title and each[1].startswith(text) for each in self._told),
            lambda: f"{(title, text)} is not told in {self._told}",
        )


class WindowTestCase(unittest.TestCase):
    def setUp(self):
        self.server = self.enterContext(PrintServer())
        self.desktop = self.enterContext(user.Desktop())
        self.folder = pathlib.Path(self.desktop.home)

    def enterContext(self, context):
        """As in Python 3.11's unittest, also where that is older."""
        value = context.__enter__()
        self.addCleanup(context.__exit__, None, None, None)
        return value

    def add_queue(self, name="card", sample="card-laminate", more="", stopped=False):
        """A queue that prints text as it is, so that many jobs are done soon."""
        text = (SAMPLES / f"{sample}.ppd").read_text(encoding="utf-8")
        ppd = self.folder / f"{name}.ppd"
        ppd.write_text(f'{text}\n*cupsFilter: "text/plain 0 -"\n{more}', encoding="utf-8")
        self.server.add_queue(name, ppd)
        if stopped:
            self.server.disable(name, "Cleaning")

    def files(self, *names):
        paths = [self.folder / name for name in names]
        for each in paths:
            each.write_text("Ada Lovelace\n", encoding="utf-8")
        return [str(each) for each in paths]

    def start(self, *arguments):
        return self.desktop.start(
            [CARDPRINT, *arguments], G_DEBUG="fatal-criticals", GDK_GL="disable", **self.server.env
        )

    def press(self, program, name, role="push button"):
        user.press(program.find(role, name))

    def wait_for_told(self, program, text):
        bar = program.find("info bar")
        user.wait_for(
            lambda: any(text in each.get_name() for each in user.descendants(bar)),
            lambda: f"{text!r} is not told in:\n{user.outline(bar)}",
        )

    def window(self, program, name):
        root = program.root
        windows = [root.get_child_at_index(i) for i in range(root.get_child_count())]
        return next(each for each in windows if each.get_name() == name)

    def windows_on_screen(self):
        """How many there are, of which accessibility does not tell those that are tips."""
        command = ["xdotool", "search", "--onlyvisible", "--class", "cardprint"]
        found = subprocess.run(command, env=self.desktop.env, capture_output=True, text=True)
        return len(found.stdout.split())

    def jobs(self, program):
        """The list of jobs: a file, a job's number and a state each."""
        cells = [each.get_name() for each in user.showing(program.find("table", "Jobs"), "table cell")]
        return list(zip(cells[0::3], cells[1::3], cells[2::3]))

    def wait_for_jobs(self, program, *expected):
        """Waits until the list has these; a state is a pattern."""

        def are_there():
            jobs = self.jobs(program)
            return len(jobs) == len(expected) and all(
                (file, number) == job[:2] and re.search(state, job[2])
                for (file, number, state), job in zip(expected, jobs)
            )

        user.wait_for(are_there, lambda: f"{self.jobs(program)}, not {expected}")

    def wait_for_line(self, program, pattern, limit=user.LIMIT_SECONDS):
        """Waits for the line that tells how far sending is."""

        def is_there():
            return any(
                re.search(pattern, each.get_name()) for each in user.showing(program.root, "label")
            )

        missing = f"no line is {pattern!r}"
        user.wait_for(is_there, lambda: f"{missing} in:\n{user.outline(program.root)}", limit)

    def wait_for_jobs_at_server(self, count):
        """Waits until the server has that many whole; does not ask it."""
        last = pathlib.Path(self.server.root, "spool", f"d{count:05}-001")
        user.wait_for(last.exists, f"there are no {count} jobs")

    def names_of_jobs(self):
        """What the server's jobs that can print are called, as its files have it."""
        spool = pathlib.Path(self.server.root, "spool")
        jobs = [self.server.job(int(each.name[1:6])) for each in spool.glob("d*-001")]
        return sorted(each["job-name"] for each in jobs if each.get("job-state") != "canceled")

    def test_another_printer_keeps_what_fits_and_tells_what_does_not(self):
        self.add_queue("card", "card-duplex")
        self.add_queue("badges")
        self.server.add_queue("office", None)
        options = ["-o", "cardLaminate=Both", "-o", "frontRotation=Rotate180"]
        program = self.start("-d", "card", *options, *self.files("ada.txt"))
        printers = program.find("combo box", "Printer")
        user.wait_for(
            lambda: [each for each in user.items(printers) if each] == ["badges", "card", "office"],
            lambda: str(user.items(printers)),
        )
        user.press(printers)
        user.press(user.find(printers, "menu item", "badges"))
        user.wait_for(
            lambda: program.window().get_name() == "Print on badges", "the title stays"
        )
        self.assertEqual(user.chosen(program.find("combo box", "Thermal Laminate")), "Both Sides")
        self.wait_for_told(program, "frontRotation=Rotate180 was left out")
        self.press(program, "Print")
        self.assertEqual(program.finish()[0], 0)
        self.assertTrue(self.server.job(1)["job-printer-uri"].endswith("/badges"))
        self.assertEqual(self.server.job(1)["cardLaminate"], "Both")

    def test_a_printer_that_cannot_be_had_leaves_the_one_before(self):
        self.add_queue()
        self.server.add_queue("office", None)
        program = self.start("-d", "card", *self.files("ada.txt"))
        printers = program.find("combo box", "Printer")
        user.wait_for(lambda: "office" in user.items(printers), lambda: str(user.items(printers)))
        user.press(printers)
        user.press(user.find(printers, "menu item", "office"))
        self.wait_for_told(program, "The queue office has no PPD.")
        user.wait_for(lambda: user.chosen(printers) == "card", lambda: user.chosen(printers))
        self.press(program, "Print")
        self.assertEqual(program.finish()[0], 0)
        self.assertTrue(self.server.job(1)["job-printer-uri"].endswith("/card"))

    def test_without_a_default_queue_the_first_one_for_cards_is_shown(self):
        self.server.add_queue("a-office", None)
        self.add_queue("badges", stopped=True)
        program = self.start()
        self.wait_for_told(program, "There is no default queue")
        printers = program.find("combo box", "Printer")
        told = "badges · Printer stopped: Cleaning"
        user.wait_for(lambda: user.chosen(printers) == told, lambda: str(user.items(printers)))
        self.press(program, "Cancel")
        self.assertEqual(program.finish()[0], 1)

    def test_without_a_file_print_has_one_chosen(self):
        self.add_queue()
        (path,) = self.files("ada.txt")
        program = self.start("-d", "card")
        self.press(program, "Choose File…")
        program.find("push button", "Add")
        chooser = self.window(program, "Add Files")
        keyboard = Keyboard(self.desktop, chooser)
        keyboard.press("ctrl+l")
        place = user.find(chooser, "text")
        keyboard.type(path)
        user.wait_for(lambda: user.text_of(place) == path, lambda: user.text_of(place))

        def is_added():
            """The chooser adds nothing while it reads the folder; Return would print once it went."""
            listed = user.showing(program.find("table", "Files"), "table cell")
            add = None if listed else user.find_now(chooser, "push button", "Add")
            if add is not None:
                add.get_action_iface().do_action(0)
            return listed

        user.wait_for(is_added, lambda: f"the file is not in the list:\n{user.outline(chooser)}")
        self.press(program, "Print")
        status, out, err = program.finish()
        self.assertEqual((status, out.splitlines()[-1]), (0, "request id is card-1 (1 file(s))"), err)
        self.assertEqual(self.server.job(1)["job-name"], "ada.txt")

    def drag(self, program, *uris):
        """Drags from another program's window onto this one's."""
        source = pathlib.Path(__file__).with_name("drag_source.py")
        place = program.window().get_component_iface().get_extents(user.Atspi.CoordType.SCREEN)
        left = place.x + place.width + 20
        other = self.desktop.start(["/usr/bin/python3", str(source), str(left), "20", *uris])
        other.window()
        steps = ["mousemove", left + 50, 70, "mousedown", 1]
        for x in range(left + 40, place.x + 100, -40):
            steps += ["sleep", 0.02, "mousemove", x, 90]
        steps += ["sleep", 0.3, "mouseup", 1]
        command = ["xdotool", *map(str, steps)]
        subprocess.run(command, env=self.desktop.env, check=True, capture_output=True)

    def test_files_are_dropped_onto_the_window(self):
        self.add_queue()
        ada, letter = self.files("ada lovelace.txt", "letter.docx")
        program = self.start("-d", "card")
        # What the printer takes is known once the printers are.
        printers = program.find("combo box", "Printer")
        user.wait_for(lambda: "card" in user.items(printers), lambda: str(user.items(printers)))
        uris = [pathlib.Path(each).as_uri() for each in (ada, letter)]
        self.drag(program, *uris, "smb://server/grace.png")
        program.find("table cell", "ada lovelace.txt")
        self.wait_for_told(program, "no files of this kind: letter.docx")
        self.wait_for_told(program, "no file of this computer: smb://server/grace.png")
        self.press(program, "Print")
        self.assertEqual(program.finish()[0], 0)
        self.assertEqual(self.names_of_jobs(), ["ada lovelace.txt"])

    def test_delete_takes_a_file_out(self):
        self.add_queue()
        program = self.start("-d", "card", *self.files("ada.txt", "bea.txt"))
        program.find("table", "Files").get_component_iface().grab_focus()
        keyboard = Keyboard(self.desktop, program.window())
        keyboard.wait_for_focus("table", "Files")
        keyboard.press("Home", "Delete")
        user.wait_for(
            lambda: not user.find_now(program.window(), "table cell", "ada.txt"), "it stays"
        )
        self.press(program, "Print")
        self.assertEqual(program.finish()[0], 0)
        self.assertEqual(self.names_of_jobs(), ["bea.txt"])

    def test_copies_size_orientation_and_fit_go_with_the_job(self):
        self.add_queue(sample="card-duplex")
        program = self.start("-d", "card", *self.files("ada.txt"))
        copies = program.find("spin button", "Copies")
        copies.get_value_iface().set_current_value(3)
        sizes = program.find("combo box", "Card size")
        size = next(each for each in user.items(sizes) if each != user.chosen(sizes))
        user.choose(sizes, size)
        user.choose(program.find("combo box", "Orientation"), "Landscape")
        self.press(program, "Fit to whole card", "check box")
        self.press(program, "Print")
        self.assertEqual(program.finish()[0], 0)
        job = self.server.job(1)
        self.assertIn("PageSize", job)
        self.assertEqual(job["fit-to-page"], "\x01")
        self.assertEqual((job["copies"], job["orientation-requested"]), ("\0\0\0\3", "\0\0\0\4"))

    def test_other_options_are_those_that_no_panel_has(self):
        self.add_queue(more=OTHER_OPTION)
        program = self.start("-d", "card", *self.files("ada.txt"))
        self.press(program, "Other Options…")
        user.choose(program.find("combo box", "Polish"), "High Gloss")
        self.press(program, "Close")
        self.press(program, "Print")
        self.assertEqual(program.finish()[0], 0)
        self.assertEqual(self.server.job(1)["Polish"], "Gloss")

    def test_a_value_of_ones_own_is_typed_where_it_is_wrong_told_and_sent(self):
        self.add_queue(more=OWN_OPTIONS)
        program = self.start("-d", "card", "-o", "Serial=17", *self.files("ada.txt"))
        self.press(program, "Other Options…")
        serial = program.find("text", "Serial Number: Number")
        self.assertEqual(user.text_of(serial), "17")
        keyboard = Keyboard(self.desktop, self.window(program, "Other Options"))
        user.choose(program.find("combo box", "Release Code"), "Custom…")
        user.type_text(program.find("password text", "Release Code: Code"), "0427")
        user.choose(program.find("combo box", "Watermark"), "Own Mark")
        keyboard.wait_for_focus("text", "Watermark: Text")
        keyboard.type('Ada "L"')
        keyboard.press("Tab")
        keyboard.wait_for_focus("text", "Watermark: Size")
        keyboard.type("2yd")
        self.press(program, "Close")
        told = "“Watermark: Size” must be a length from 6 to 72 points"
        size = program.find("text", "Watermark: Size")
        user.wait_for(lambda: size.get_description().startswith(told), size.get_description)
        self.wait_for_line(program, f"^{told}")
        keyboard.wait_for_focus("text", "Watermark: Size")
        user.type_text(size, "12pt")
        user.press(size)
        user.wait_for(lambda: not size.get_description(), size.get_description)
        self.press(program, "Close")
        self.press(program, "Print")
        status, _, err = program.finish()
        self.assertEqual(status, 0, err)
        job = self.server.job(1)
        self.assertEqual((job["Serial"], job["Pin"]), ("Custom.17", "Custom.0427"))
        self.assertEqual(job["Mark"], '{Text="Ada \\"L\\"" Size=12pt}')

    def test_escape_leaves_what_was_there_before_a_value_was_typed(self):
        self.add_queue(more=OWN_OPTIONS)
        program = self.start("-d", "card", "-o", "Serial=17", *self.files("ada.txt"))
        self.press(program, "Other Options…")
        user.type_text(program.find("text", "Serial Number: Number"), "10000")
        keyboard = Keyboard(self.desktop, self.window(program, "Other Options"))
        keyboard.press("Escape")
        self.press(program, "Other Options…")
        self.assertEqual(user.text_of(program.find("text", "Serial Number: Number")), "17")
        self.press(program, "Close")
        self.press(program, "Print")
        self.assertEqual(program.finish()[0], 0)
        self.assertEqual(self.server.job(1)["Serial"], "Custom.17")

    def test_two_files_are_two_jobs_that_are_followed(self):
        self.add_queue(stopped=True)
        program = self.start("-d", "card", *self.files("ada.txt", "bea.txt"))
        self.press(program, "Print")
        self.wait_for_jobs(
            program, ("ada.txt", "card-1", "^Waiting"), ("bea.txt", "card-2", "^Waiting")
        )
        self.wait_for_line(program, "^Printer stopped: Cleaning")
        self.server.enable("card")
        self.wait_for_jobs(
            program, ("ada.txt", "card-1", "^Printed$"), ("bea.txt", "card-2", "^Printed$")
        )
        self.press(program, "Close")
        status, out, _ = program.finish()
        lines = [f"request id is card-{each} (1 file(s))" for each in (1, 2)]
        self.assertEqual((status, out.splitlines()[-2:]), (0, lines))

    def test_two_files_are_one_job_where_that_is_wanted(self):
        self.add_queue()
        program = self.start("-d", "card", *self.files("ada.txt", "bea.txt"))
        self.press(program, "One job a file", "check box")
        self.press(program, "Print")
        status, out, _ = program.finish()
        self.assertEqual(status, 0)
        self.assertEqual(out.splitlines()[-1], "request id is card-1 (2 file(s))")

    def test_what_was_sent_in_silence_was_not_cancelled(self):
        self.add_queue()
        for number, names in ((1, ["ada.txt"]), (3, ["bea.txt", "cora.txt"])):
            program = self.start("-d", "card", "-s", *self.files(*names))
            self.press(program, "Print")
            if len(names) > 1:
                self.press(program, "Close")
            status, out, err = program.finish()
            self.assertEqual((status, out), (0, ""), err)
            self.assertIsNotNone(self.server.job(number))

    def start_with_missing_file(self, *arguments, stopped=False):
        """Sends three files, the second of which is not there any more."""
        self.add_queue(stopped=stopped)
        paths = self.files("ada.txt", "bea.txt", "cora.txt")
        program = self.start("-d", "card", *arguments, *paths)
        program.find("push button", "Print")
        os.unlink(paths[1])
        return program

    def test_a_file_that_fails_is_tried_again_alone(self):
        program = self.start_with_missing_file()
        self.press(program, "Print")
        self.wait_for_jobs(
            program,
            ("ada.txt", "card-1", "^Printed$"),
            ("bea.txt", "", "bea.txt: No such file or directory$"),
            ("cora.txt", "card-2", "^Printed$"),
        )
        state = user.showing(program.find("table", "Jobs"), "table cell")[5]
        without_tip = self.windows_on_screen()
        Mouse(self.desktop, state).rest()
        user.wait_for(
            lambda: self.windows_on_screen() > without_tip, "what was cut is not told at the mouse"
        )
        self.files("bea.txt")
        self.press(program, "Try Again")
        self.wait_for_jobs(
            program,
            ("ada.txt", "card-1", "^Printed$"),
            ("bea.txt", "card-3", "^Printed$"),
            ("cora.txt", "card-2", "^Printed$"),
        )
        self.press(program, "Close")
        self.assertEqual(program.finish()[0], 0)
        self.assertEqual(self.names_of_jobs(), ["ada.txt", "bea.txt", "cora.txt"])

    def test_it_stops_at_the_first_failure_where_that_is_wanted(self):
        program = self.start_with_missing_file()
        self.press(program, "Stop at the first failure", "check box")
        self.press(program, "Print")
        self.wait_for_jobs(
            program,
            ("ada.txt", "card-1", "^Printed$"),
            ("bea.txt", "", "No such file"),
            ("cora.txt", "", "^Not sent$"),
        )
        self.press(program, "Close")
        self.wait_for_told(program, "1 of 3 sent · 1 failed")
        names = [each.get_name() for each in user.showing(program.find("table", "Files"), "table cell")]
        self.assertEqual(names, ["bea.txt", "cora.txt"])
        self.press(program, "Cancel")
        status, out, _ = program.finish()
        self.assertEqual((status, out.splitlines()[-1]), (2, "request id is card-1 (1 file(s))"))

    def start_with_many(self, count=500):
        self.add_queue(stopped=True)
        names = [f"{number:03}.txt" for number in range(count)]
        program = self.start("-d", "card", *self.files(*names))
        self.press(program, "Print")
        return program, names

    def test_cancel_in_the_middle_sends_no_more_and_knows_what_was_sent(self):
        program, names = self.start_with_many()
        self.wait_for_jobs_at_server(20)
        with self.server.standing_still():
            self.wait_for_line(program, "^[0-9]{2,3} of 500 sent")
            user.press(user.find(self.window(program, "Printing on card"), "push button", "Cancel"))
        program.find("push button", "Try Again")
        sent = [number for _, number, _ in self.jobs(program) if number]
        self.assertLess(len(sent), len(names))
        self.assertEqual(len(self.names_of_jobs()), len(sent))
        self.press(program, "Try Again")
        self.wait_for_line(program, "^500 of 500 sent", MANY_SECONDS)
        self.press(program, "Close")
        self.assertEqual(program.finish()[0], 0)
        self.assertEqual(self.names_of_jobs(), names)

    def test_many_are_printed_by_a_printer_that_stops_in_the_middle(self):
        program, names = self.start_with_many()
        self.server.enable("card")
        self.wait_for_jobs_at_server(20)
        self.server.disable("card", "Ribbon")
        self.wait_for_line(program, "^500 of 500 sent", MANY_SECONDS)
        self.wait_for_line(program, "^Printer stopped")
        self.server.enable("card")
        user.wait_for(
            lambda: {state for _, _, state in self.jobs(program)} == {"Printed"},
            lambda: str(self.jobs(program)),
            limit=MANY_SECONDS,
        )
        self.press(program, "Close")
        self.assertEqual(program.finish()[0], 0)
        self.assertEqual(self.names_of_jobs(), names)

    def test_many_are_sent_once_each_by_a_server_that_is_lost_in_the_middle(self):
        program, names = self.start_with_many()
        self.wait_for_jobs_at_server(20)
        self.server.stop()
        self.wait_for_line(program, "^[0-9]+ of 500 sent · 1 failed")
        self.server.start()
        self.press(program, "Try Again")
        self.wait_for_line(program, "^500 of 500 sent$", MANY_SECONDS)
        self.press(program, "Close")
        self.assertEqual(program.finish()[0], 0)
        self.assertEqual(self.names_of_jobs(), names)

    def test_what_becomes_of_jobs_is_told_when_the_window_is_closed(self):
        self.add_queue(stopped=True)
        told = self.enterContext(Notifications(self.desktop))
        program = self.start("-d", "card", *self.files("ada.txt", "bea.txt"))
        self.press(program, "Print")
        self.wait_for_jobs(
            program, ("ada.txt", "card-1", "^Waiting"), ("bea.txt", "card-2", "^Waiting")
        )
        self.press(program, "Close")
        self.assertEqual(program.finish()[0], 0)
        told.wait_for("card", "Printer stopped: Cleaning")
        self.server.cancel(2)
        self.server.enable("card")
        told.wait_for("card: 1 of 2 jobs printed", "card-2: Job cancelled")

    def test_waiting_ends_with_the_job_and_tells_what_stops_it(self):
        self.add_queue(stopped=True)
        program = self.start("-d", "card", "--wait", *self.files("ada.txt"))
        self.press(program, "Print")
        user.wait_for(lambda: self.server.job(1), "there is no job")
        time.sleep(WAITING_SECONDS)
        self.assertTrue(program.runs())
        self.server.enable("card")
        status, _, err = program.finish()
        self.assertEqual((status, err), (0, "cardprint: card: Printer stopped: Cleaning\n"))
        self.assertEqual(self.server.job(1)["job-state"], "completed")

    def test_waiting_for_a_job_that_is_cancelled_is_told_by_the_exit_status(self):
        self.add_queue(stopped=True)
        program = self.start("-d", "card", "--wait", *self.files("ada.txt"))
        self.press(program, "Print")
        user.wait_for(lambda: self.server.job(1), "there is no job")
        self.server.cancel(1)
        status, _, err = program.finish()
        self.assertEqual(status, NOT_PRINTED)
        self.assertIn("cardprint: card-1: Job cancelled\n", err)

    def test_waiting_for_many_tells_the_one_that_cannot_be_printed(self):
        self.add_queue()
        ada, broken, cora = self.files("ada.txt", "broken.pdf", "cora.txt")
        pathlib.Path(broken).write_text("%PDF-1.4\nno PDF\n", encoding="utf-8")
        program = self.start("-d", "card", "--wait", ada, broken, cora)
        self.press(program, "Print")
        self.wait_for_jobs(
            program,
            ("ada.txt", "card-1", "^Printed$"),
            ("broken.pdf", "card-2", "^Job stopped"),
            ("cora.txt", "card-3", "^Printed$"),
        )
        self.press(program, "Close")
        status, out, err = program.finish()
        self.assertEqual(status, NOT_PRINTED, err)
        self.assertRegex(err, "^cardprint: card-2: Job stopped · .*\n$")
        lines = [f"request id is card-{each} (1 file(s))" for each in (1, 2, 3)]
        self.assertEqual(out.splitlines()[-3:], lines)

    def test_waiting_is_for_what_was_sent_to_another_printer_before_too(self):
        self.add_queue("card", stopped=True)
        self.add_queue("badges")
        told = self.enterContext(Notifications(self.desktop))
        ada, bea = self.files("ada.txt", "bea.txt")
        program = self.start("-d", "card", "--wait", ada, bea)
        program.find("push button", "Print")
        os.unlink(bea)
        self.press(program, "Print")
        self.wait_for_jobs(program, ("ada.txt", "card-1", "^Waiting"), ("bea.txt", "", "No such"))
        self.press(program, "Close")
        self.wait_for_told(program, "1 of 2 sent · 1 failed")
        self.files("bea.txt")
        printers = program.find("combo box", "Printer")
        user.wait_for(lambda: "badges" in user.items(printers), lambda: str(user.items(printers)))
        user.press(printers)
        user.press(user.find(printers, "menu item", "badges"))
        user.wait_for(
            lambda: program.window().get_name() == "Print on badges", "the title stays"
        )
        self.press(program, "Print")
        user.wait_for(lambda: self.server.job(2), "there is no second job")
        time.sleep(WAITING_SECONDS)
        self.assertTrue(program.runs())
        self.server.cancel(1)
        status, _, err = program.finish()
        self.assertEqual(status, NOT_PRINTED, err)
        self.assertIn("cardprint: card-1: Job cancelled\n", err)
        self.assertNotIn("badges-2", err)
        self.assertEqual(told.all(), [])

    def test_what_was_not_sent_counts_for_more_than_what_was_not_printed(self):
        program = self.start_with_missing_file("--wait", stopped=True)
        self.press(program, "Print")
        self.wait_for_jobs(
            program,
            ("ada.txt", "card-1", "^Waiting"),
            ("bea.txt", "", "No such file"),
            ("cora.txt", "card-2", "^Waiting"),
        )
        self.press(program, "Close")
        self.wait_for_told(program, "2 of 3 sent · 1 failed")
        self.press(program, "Cancel")
        self.server.cancel(1)
        self.server.enable("card")
        status, _, err = program.finish()
        self.assertEqual(status, FAILED, err)
        self.assertIn("cardprint: card-1: Job cancelled\n", err)

    def test_who_waits_no_longer_does_not_know_whether_it_is_printed(self):
        self.add_queue(stopped=True)
        program = self.start("-d", "card", "--wait", *self.files("ada.txt"))
        self.press(program, "Print")
        user.wait_for(lambda: self.server.job(1), "there is no job")
        time.sleep(WAITING_SECONDS)
        with self.server.standing_still():
            program.find("label", "Waiting for the printer…")
            self.press(program, "Cancel")
            status, _, err = program.finish()
        self.assertEqual(status, NOT_PRINTED, err)
        self.assertEqual(self.server.job(1)["job-state"], "pending")

    def test_its_window_is_that_of_the_desktop_file(self):
        self.add_queue()
        program = self.start("-d", "card")
        program.find("push button", "Choose File…")
        entry = (ROOT / "resources/desktop/org.cardpanels.cardprint.desktop").read_text("utf-8")
        name = re.search("^StartupWMClass=(.*)$", entry, re.MULTILINE)[1]
        command = ["xdotool", "search", "--onlyvisible", "--class", f"^{name}$"]
        subprocess.run(command, env=self.desktop.env, check=True, capture_output=True)
        self.press(program, "Cancel")
        program.finish()

    def test_an_error_that_ends_it_is_a_window(self):
        self.add_queue()
        program = self.start("-d", "nowhere")
        program.find("label", f"The print server {self.server.address} has no queue nowhere.")
        self.press(program, "Close")
        status, _, err = program.finish()
        self.assertEqual(status, 2)
        self.assertIn("has no queue nowhere", err)


if __name__ == "__main__":
    unittest.main()
