#!/usr/bin/python3
"""screenshots.py [--docs | FOLDER]: takes pictures of cardprint, to be looked at, and leaves them in FOLDER
(build/screenshots). Every section of the page with its areas open, a conflict, and a field that is
marked with its tooltip: light, dark and in high contrast, with large text, in the smallest and in a
large window, in four languages and from right to left; and the card with a document, and a preset;
the same at scale 2.
With --docs, those that docs/ shows are put there.
CARDPANELS_BUILD_DIR names another build than build. Needs what ./dev setup installs, and the
packages xdotool and x11-utils."""

import os
import pathlib
import re
import shutil
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[1]
sys.path.insert(0, str(ROOT / "tests" / "support"))
import atspi_driver as user  # noqa: E402 (found by the path)
import presets  # noqa: E402
from print_server import PrintServer  # noqa: E402

BUILD = pathlib.Path(os.environ.get("CARDPANELS_BUILD_DIR", ROOT / "build"))
CARDPRINT = BUILD / "bin" / "cardprint"
PPD = ROOT / "resources" / "ppd" / "card-duplex.ppd"

SECTIONS = ("ribbon", "ultraviolet", "peel-off", "laminate", "handling", "summary")
RIBBON, LAMINATE = SECTIONS.index("ribbon"), SECTIONS.index("laminate")

OPTIONS = (
    "frontRibbon=YMCK frontResin=DefinedAreas frontResinInclude1='0.5in 0.25in 1in 0.5in' "
    "frontResinInclude2='70mm 30mm 20mm 10mm' frontResinExclude1='20mm 15mm 30mm 25mm' "
    "backRibbon=YMCK backResin=DefinedAreas backResinInclude2='12mm 5mm 25.4mm 8mm' "
    "frontPO=DefinedAreas CustomfrontPeelOff1='1in 0.4in 0.55in 0.5in' backPO=DefinedAreas"
)

PRESETS = "Dest Badges/visitors copies=1\n"

SMALLEST, LARGE = "smallest", "1200x900"
LOOKS = {  # name: language, theme, size
    "light": ("en_US.UTF-8", "Adwaita", None),
    "dark": ("en_US.UTF-8", "Adwaita:dark", None),
    "contrast": ("en_US.UTF-8", "HighContrast", None),
    "large-text": ("en_US.UTF-8", "Adwaita", None),
    "smallest": ("en_US.UTF-8", "Adwaita", SMALLEST),
    "large": ("en_US.UTF-8", "Adwaita", LARGE),
    "german": ("de_DE.UTF-8", "Adwaita", None),
    "german-smallest": ("de_DE.UTF-8", "Adwaita", SMALLEST),
    "french": ("fr_FR.UTF-8", "Adwaita", None),
    "japanese": ("ja_JP.UTF-8", "Adwaita", None),
    "right-to-left": ("ar_EG.UTF-8", "Adwaita", None),
    "japanese-smallest": ("ja_JP.UTF-8", "Adwaita:dark", SMALLEST),
}

DOCS = {  # what docs/ calls them
    "card-handling": "light-handling",
    "cardprint": "light-laminate",
    "contrast": "contrast-ribbon",
    "dark": "dark-marked-field",
    "german": "german-conflict",
    "japanese": "japanese-peel-off",
    "jobs": "light-jobs",
    "large-text": "large-text-ribbon",
    "peel-off": "light-peel-off",
    "picture": "document-ribbon",
    "preset": "document-preset",
    "ribbon": "light-ribbon",
    "right-to-left": "right-to-left-ribbon",
    "scale-2": "scale-2",
    "smallest": "smallest-ribbon",
    "summary": "light-summary",
    "ultraviolet": "light-ultraviolet",
}


class Photographer:
    """Takes the pictures of one look."""

    def __init__(self, desktop, program, folder, look):
        self._desktop = desktop
        self._program = program
        self._folder = folder
        self._look = look
        self._window = program.window()
        name = re.escape(self._window.get_name())
        self._id = self._run("xdotool", "search", "--name", f"^{name}$").split()[-1]

    def take_all(self):
        self.put_mouse_away()
        for index, section in enumerate(SECTIONS):
            self.select(index)
            self.picture(section)
        self.select(LAMINATE)
        user.press(self.all("combo box")[-1])
        user.press(user.wait_for(lambda: self.all("menu item"), "the pop-up stays closed")[1])
        user.wait_for(lambda: self.all("info bar"), "no conflict is told")
        self.picture("conflict")

    def take_jobs(self):
        """Prints, and takes the list of what becomes of it."""
        user.press(self.all("push button")[-1])
        sending = user.wait_for(self.sending, "no list of jobs shows")
        cells = user.wait_for(lambda: user.showing(sending, "table cell"), "no job is listed")
        user.wait_for(lambda: len({each.get_name() for each in cells[2::3]}) == 1, "no end is seen")
        self.picture("jobs", sending)
        user.press(user.showing(sending, "push button")[-1])
        self._program.finish()

    def sending(self):
        root = self._program.root
        windows = [root.get_child_at_index(i) for i in range(root.get_child_count())]
        return next((each for each in windows if user.showing(each, "progress bar")), None)

    def take_marked_field(self):
        self.select(RIBBON)
        field = user.wait_for(lambda: self.all("text", hidden=True), "no field is there")[1]
        field.get_component_iface().grab_focus()
        user.wait_for(lambda: user.is_showing(field), "the field does not scroll into view")
        user.type_text(field, "a little")
        self.point_at(field)
        self.picture("marked-field")
        self.put_mouse_away()

    def resize(self, size):
        if size == SMALLEST:
            hints = self._run("xprop", "-id", self._id, "WM_NORMAL_HINTS")
            size = "x".join(re.search(r"minimum size: (\d+) by (\d+)", hints).groups())
        self._run("xdotool", "windowsize", "--sync", self._id, *size.split("x"))
        user.wait_for(lambda: self.size() == size, f"the window does not become {size}")

    def size(self):
        box = self._window.get_component_iface().get_extents(user.Atspi.CoordType.SCREEN)
        return f"{box.width}x{box.height}"

    def select(self, index):
        rows = self.all("list item", hidden=True)
        rows[index].get_parent().get_selection_iface().select_child(index)

    def all(self, role, hidden=False):
        """The controls of that role that show, in reading order; with `hidden` also the others."""
        if not hidden:
            return user.showing(self._window, role)
        wanted = user.role_named(role)
        return [each for each in user.descendants(self._window) if each.get_role() == wanted]

    def point_at(self, node):
        """Moves the mouse onto a control until its tooltip shows, which it does once that rests."""
        box = node.get_component_iface().get_extents(user.Atspi.CoordType.SCREEN)
        for x in range(box.x + 20, box.x + 30):
            self._run("xdotool", "mousemove", str(x), str(box.y + box.height // 2))
            try:
                return user.wait_for(lambda: self.windows() > 1, "no tooltip shows", limit=2)
            except user.NotSeen as error:
                missing = error
        raise missing

    def put_mouse_away(self):
        self._run("xdotool", "mousemove", "9999", "9999")

    def windows(self):
        pid = str(self._window.get_process_id())
        return len(self._run("xdotool", "search", "--onlyvisible", "--pid", pid).split())

    def leave(self):
        user.press(self.all("push button")[-2])  # Cancel
        self._program.finish()

    def picture(self, name, window=None):
        path = self._folder / f"{self._look}-{name}.png"
        self._desktop.picture(str(path), window or self._window)
        print(path)

    def _run(self, *command):
        done = subprocess.run(
            command, env=self._desktop.env, check=True, capture_output=True, text=True
        )
        return done.stdout


CARD = """0.85 0.9 1 rg 0 0 243 153 re f 0.1 0.2 0.5 rg 0 125 243 28 re f 0.6 0.6 0.6 rg 14 40 60 70 re f
0 g BT /F1 16 Tf 84 95 Td (Ada Lovelace) Tj ET BT /F1 10 Tf 84 78 Td (Visitor 0815) Tj ET
1 g BT /F1 14 Tf 14 133 Td (EXAMPLE) Tj ET"""
CARD_OPTIONS = (
    "frontRibbon=YMCK frontResin=DefinedAreas frontResinInclude1='28mm 14mm 50mm 16mm' "
    "frontResinInclude2='70mm 42mm 20mm 8mm' frontResinExclude1='4mm 14mm 23mm 27mm' "
)


def card_pdf():
    font = "/Font<</F1<</Type/Font/Subtype/Type1/BaseFont/Helvetica-Bold>>>>"
    objects = (
        "<</Type/Catalog/Pages 2 0 R>>",
        "<</Type/Pages/Kids[3 0 R]/Count 1>>",
        f"<</Type/Page/Parent 2 0 R/MediaBox[0 0 243 153]/Resources<<{font}>>/Contents 4 0 R>>",
        f"<</Length {len(CARD)}>>stream\n{CARD}\nendstream",
    )
    numbered = [f"{number} 0 obj{each} endobj" for number, each in enumerate(objects, 1)]
    return "\n".join(["%PDF-1.4", *numbered, "trailer<</Root 1 0 R>>", "%%EOF", ""])


def take_document(desktop, folder, scale=1):
    """The areas with a document behind them, the first one chosen, and a preset."""
    with PrintServer() as server:
        server.add_queue("badges", PPD)
        document = pathlib.Path(server.root) / "card.pdf"
        document.write_text(card_pdf(), encoding="ascii")
        program = desktop.start(
            [str(CARDPRINT), "-d", "badges", "-o", CARD_OPTIONS, str(document)],
            LANG="en_GB.UTF-8",
            GTK_THEME="Adwaita",
            GDK_SCALE=str(scale),
            **server.env,
        )
        if scale != 1:
            program.find("grouping")
            desktop.picture(str(folder / f"scale-{scale}.png"), program.window(), scale)
            program.end()
            return
        photographer = Photographer(desktop, program, folder, "document")
        photographer.put_mouse_away()
        picture = program.find("grouping")
        user.showing(picture, "icon")[0].get_component_iface().grab_focus()
        photographer.picture("ribbon")
        presets.save_as(program, "visitors")
        user.press(program.find("toggle button", presets.MENU))
        program.find("menu item", "Save As…")
        photographer.picture("preset")
        program.end()


def main(folder):
    folder.mkdir(parents=True, exist_ok=True)
    with PrintServer() as server, user.Desktop(theme="Adwaita") as desktop:
        server.add_queue("Badges", PPD)
        server.add_queue("office", None)
        files = [pathlib.Path(desktop.home, name) for name in ("ada.txt", "grace.txt", "joan.txt")]
        for each in files:
            each.write_text("Visitor\n", encoding="utf-8")
        saved = pathlib.Path(desktop.home, ".cups", "lpoptions")
        saved.parent.mkdir()
        saved.write_text(PRESETS, encoding="utf-8")
        for look, (language, theme, size) in LOOKS.items():
            environment = {"LANG": language, "GTK_THEME": theme, **server.env}
            environment["GDK_DPI_SCALE"] = "1.5" if look == "large-text" else "1"

            def photographed(*options):
                command = [str(CARDPRINT), "-d", "Badges/visitors", *options, *map(str, files)]
                program = desktop.start(command, **environment)
                return Photographer(desktop, program, folder, look)

            photographer = photographed("-o", OPTIONS)
            if size:
                photographer.resize(size)
            photographer.take_all()
            if not size:
                photographer.take_marked_field()
            photographer.leave()
            if not size:
                photographed().take_jobs()
        take_document(desktop, folder)
    with user.Desktop(size="2560x2048", theme="Adwaita") as desktop:
        take_document(desktop, folder, scale=2)


if __name__ == "__main__":
    for_docs = sys.argv[1:] == ["--docs"]
    pictures = pathlib.Path(sys.argv[1] if sys.argv[1:] and not for_docs else BUILD / "screenshots")
    main(pictures)
    if for_docs:
        for name, picture in DOCS.items():
            shutil.copy(pictures / f"{picture}.png", ROOT / "docs" / f"{name}.png")
