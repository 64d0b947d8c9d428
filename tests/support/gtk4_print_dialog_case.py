"""What tests of the page Card in GTK 4's print dialog have in common."""

from gtk4_print_dialog import Gtk4PrintDialog, WaylandPrintDialog
from mouse import draw_an_area
from print_dialog import warnings
from print_dialog_case import BUILD, SANITIZED, PrintDialogCase

MODULES = BUILD / "lib" / "gtk-4.0"
PROGRAM = BUILD / "tests" / "gtk4-print-program"
FRONT = "Front of the card, 85.6 by 54 mm"


class Gtk4DialogCase(PrintDialogCase):
    def start(self, command, title="Print", modules=MODULES, **env):
        """Starts a program that prints; answers its dialog."""
        env = {**self.server.env, **env}
        if modules:
            env["GTK_PATH"] = str(modules)
        if SANITIZED:
            # Programs and GTK have leaks of their own; ours are looked for in the report.
            env["LSAN_OPTIONS"] = "exitcode=0"
        self.program = self.desktop.start(command, **env)
        dialog = WaylandPrintDialog if "WAYLAND_DISPLAY" in env else Gtk4PrintDialog
        return dialog(self.desktop, self.program, title)

    def start_demo(self, **env):
        """Starts GTK's own example of printing, unmodified; answers its dialog."""
        if SANITIZED:
            return self.start_program("operation", **env)
        return self.start(["gtk4-demo", "--run=printing"], **env)

    def start_program(self, command, title="Print", **env):
        """Starts the tests' own program; answers its dialog after `command`."""
        dialog = self.start([str(PROGRAM), self.commands], title, **env)
        self.send(command)
        return dialog

    def draw(self, dialog):
        mouse = dialog.mouse_on(dialog.picture(FRONT))
        return draw_an_area(mouse, dialog.keys, dialog.text_of)

    def print_without_page(self, dialog):
        """Prints there, and ends the program; answers what it warns of without the page."""
        dialog.select_printer("card")
        dialog.open_tab("Advanced")
        dialog.press("Print")
        self.job()
        return self.warnings_at_the_end()

    def warnings_at_the_end(self):
        status, errors = self.program.end()
        self.program = None
        self.assertIn(status, (0, -15), errors)
        return warnings(errors)
