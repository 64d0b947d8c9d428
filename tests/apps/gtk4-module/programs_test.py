"""The page Card where unmodified programs meet GTK 4's print dialog: in a program of GNOME, on
Wayland and in the portal through which programs in a sandbox print."""

import subprocess
import unittest

import atspi_driver as user
from elsewhere_case import ElsewhereCase
from gi.repository import Gio, GLib
from gtk4_print_dialog import Gtk4PrintDialog
from gtk4_print_dialog_case import Gtk4DialogCase
from print_dialog_case import SANITIZED

DOCUMENT = "/usr/share/cups/data/default-testpage.pdf"
PORTAL = "org.freedesktop.impl.portal.desktop.gnome"


def compositor_fills_screen_with_dialogs():
    """Whether it does although the program has another window: else nothing tells where they are."""
    told = subprocess.run(["weston", "--version"], capture_output=True, text=True, check=True)
    return int(told.stdout.split()[1].partition(".")[0]) < 13


class ProgramsTestCase(Gtk4DialogCase):
    def start_editor(self, **options):
        """Opens a document in a text editor, and there the print dialog; answers that."""
        document = self.write("badge.txt", "Ada Lovelace\n")
        command = ["gnome-text-editor", "--standalone", document]
        editor = self.start(command, "badge.txt .*", **options)
        user.wait_for(editor.is_open, "there is no window")
        dialog = Gtk4PrintDialog(self.desktop, self.program)

        def opens():
            editor.keys("ctrl+p")
            return dialog.is_open()

        user.wait_for(opens, "there is no print dialog")
        return dialog

    @unittest.skipIf(SANITIZED, "a sanitized module cannot be loaded into an unmodified program")
    def test_two_options_reach_the_job_of_a_text_editor(self):
        own_warnings = self.print_without_page(self.start_editor(modules=None))
        dialog = self.start_editor()
        dialog.select_printer("card")
        dialog.open_card()
        dialog.choose("Front Ribbon", "Metallic Silver")
        dialog.open_panel("Thermal Laminate")
        dialog.choose("Thermal Laminate", "Both Sides")
        dialog.press("Print")
        self.assert_has(self.job(2), frontRibbon="Silver", cardLaminate="Both")
        self.assertEqual(self.warnings_at_the_end() - own_warnings, set())

    @unittest.skipIf(SANITIZED, "a sanitized module cannot be loaded into an unmodified program")
    def test_a_demo_warns_of_nothing_new_when_all_of_the_page_is_used(self):
        own_warnings = self.print_without_page(self.start_demo(modules=None))
        dialog = self.start_demo()
        dialog.select_printer("coated")
        dialog.open_card()
        dialog.choose("Front Resin", "Defined Areas")
        dialog.type("Front Resin Area 1, X", "abc")
        dialog.wait_for_presses("Print", False)
        dialog.type_area("Front Resin Area 1", "1in", "1in", "1in", "1in")
        dialog.wait_for_presses("Print")
        for panel in ("Ultraviolet", "Peel-Off", "Thermal Laminate", "Card Handling", "Summary"):
            dialog.open_panel(panel)
        dialog.open_panel("Peel-Off")
        dialog.choose("Front Peel-Off", "Chip")
        dialog.open_panel("Thermal Laminate")
        dialog.choose("Thermal Laminate", "Both Sides")
        dialog.wait_for_text("“Front Peel-Off” was changed from “Chip” to “No Peel-Off”")
        dialog.press("Undo")
        dialog.press("Reset to Defaults")
        dialog.open_tab("General")
        dialog.select_printer("card")
        dialog.open_card()
        dialog.press("Print")
        self.assert_job(self.job(2))
        self.assertEqual(self.warnings_at_the_end() - own_warnings, set())

    @unittest.skipUnless(compositor_fills_screen_with_dialogs(), "clicks would miss the dialog")
    def test_two_areas_and_a_laminate_reach_the_job_on_wayland(self):
        display = self.enterContext(self.desktop.wayland(fills_screen=True))
        dialog = self.start_demo(WAYLAND_DISPLAY=display, GDK_BACKEND="wayland")
        dialog.select_printer("card")
        dialog.open_card()
        dialog.choose("Front Resin", "Defined Areas")
        dialog.type_area("Front Resin Area 1", "1in", "1in", "1in", "1in")
        dialog.type_area("Front Resin Area 2", "1in", "1in", "2.125in", "1.0625in")
        dialog.open_panel("Thermal Laminate")
        dialog.choose("Thermal Laminate", "Back Side")
        dialog.press("Print")
        self.assert_job(
            self.job(),
            frontResin="DefinedAreas",
            frontResinInclude1="Custom.1in 1in 1in 1in",
            frontResinInclude2="Custom.1in 1in 2.125in 1.0625in",
            cardLaminate="Back",
        )


@unittest.skipIf(SANITIZED, "a sanitized module cannot be loaded into an unmodified program")
class PortalTestCase(Gtk4DialogCase):
    """GNOME's portal, called as the desktop's portal calls it for a program."""

    def setUp(self):
        super().setUp()
        self.dialog = None
        self.bus = Gio.DBusConnection.new_for_address_sync(
            self.desktop.env["DBUS_SESSION_BUS_ADDRESS"],
            Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT
            | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION,
        )

    def start_portal(self, **options):
        command = ["/usr/libexec/xdg-desktop-portal-gnome"]
        # Debian 13's shows dialogs only in a kind of session that it knows.
        self.dialog = self.start(command, XDG_SESSION_TYPE="x11", **options)
        user.wait_for(self.has_come, "there is no portal")

    def has_come(self):
        self.assertTrue(self.program.runs())
        bus = "org.freedesktop.DBus"
        name = GLib.Variant("(s)", (PORTAL,))
        return self.bus.call_sync(
            bus, "/" + bus.replace(".", "/"), bus, "NameHasOwner", name, None, 0, -1
        ).unpack()[0]

    def ask(self, method, types, *arguments, files=None):
        """Asks the portal to print; answers a list that will have its answer."""
        request = "/org/freedesktop/portal/desktop/request/test"
        values = GLib.Variant(f"(osss{types})", (request, "org.test", "", "Print", *arguments))
        answers = []
        self.bus.call_with_unix_fd_list(
            PORTAL, "/org/freedesktop/portal/desktop", "org.freedesktop.impl.portal.Print", method,
            values, None, 0, GLib.MAXINT32, files, None,  # a user takes their time
            lambda bus, result: answers.append(
                bus.call_with_unix_fd_list_finish(result)[0].unpack()
            ),
        )
        return answers

    def print_document(self, **options):
        with open(DOCUMENT, "rb") as document:
            files = Gio.UnixFDList()
            handle = files.append(document.fileno())
            return self.ask("Print", "ha{sv}", handle, options, files=files)

    def answer(self, answers):
        response, values = user.wait_for(lambda: answers, "the portal answers nothing")[0]
        self.assertEqual(response, 0)
        return values

    def choose(self, queue="card"):
        self.dialog.select_printer(queue)
        self.dialog.open_card()
        self.dialog.choose("Front Resin", "Defined Areas")
        self.dialog.type_area("Front Resin Area 1", "1in", "1in", "2.125in", "1.0625in")
        self.dialog.open_panel("Thermal Laminate")
        self.dialog.choose("Thermal Laminate", "Back Side")
        self.dialog.press("Print")

    def assert_printed(self, number, server=None):
        self.assert_has(
            self.job(number, server=server),
            frontResin="DefinedAreas",
            frontResinInclude1="Custom.1in 1in 2.125in 1.0625in",
            cardLaminate="Back",
        )

    def test_what_is_chosen_is_in_the_settings_and_in_the_job_that_uses_them(self):
        self.start_portal()
        prepared = self.ask("PreparePrint", "a{sv}a{sv}a{sv}", {}, {}, {})
        self.choose()
        values = self.answer(prepared)
        expected = {
            "printer": "card",
            "cups-frontResin": "DefinedAreas",
            "cups-frontResinInclude1": "Custom.1in 1in 2.125in 1.0625in",
            "cups-cardLaminate": "Back",
        }
        self.assertEqual({key: values["settings"].get(key) for key in expected}, expected)
        self.answer(self.print_document(token=GLib.Variant("u", values["token"])))
        self.assertFalse(self.dialog.is_open())
        self.assert_printed(1)

    def test_what_is_chosen_reaches_a_job_that_nothing_was_prepared_for(self):
        self.start_portal(modules=None)
        self.print_document()
        own_warnings = self.print_without_page(self.dialog)
        self.start_portal()
        printed = self.print_document()
        self.choose()
        self.answer(printed)
        self.assert_printed(2)
        self.assertEqual(self.warnings_at_the_end() - own_warnings, set())


@unittest.skipIf(SANITIZED, "a sanitized module cannot be loaded into an unmodified program")
class PortalElsewhereTestCase(PortalTestCase, ElsewhereCase):
    def test_what_is_chosen_for_another_servers_queue_reaches_it(self):
        self.start_portal()
        prepared = self.ask("PreparePrint", "a{sv}a{sv}a{sv}", {}, {}, {})
        self.choose("client")
        values = self.answer(prepared)
        self.assertEqual(values["settings"].get("cups-cardLaminate"), "Back")
        self.answer(self.print_document(token=GLib.Variant("u", values["token"])))
        self.assert_printed(1, self.there)


if __name__ == "__main__":
    unittest.main()
