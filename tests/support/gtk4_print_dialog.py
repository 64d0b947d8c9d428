"""GTK 4's print dialog in a program on a test's desktop, used as a person would.

GTK 4.8 tells assistive technology no more of what shows than which widgets are not hidden, and lets
it select in few of them: printers, tabs and choices are clicked and reached by keys, as by a person.
"""

import subprocess

import atspi_driver as user
import presets
from atspi_driver import Atspi
from gi.repository import GLib
from mouse import Mouse


def has_state(node, state):
    return node.get_state_set().contains(state)


# What GTK 4.8 calls the role of a drop-down's button and of what groups others, and 4.18.
SINCE = {"toggle button": "push button", "grouping": "panel"}


def role_name(node):
    """The node's role as GTK 4.8 calls it."""
    name = user.role_name(node)
    return SINCE.get(name, name)


def visible(node):
    """The node and all below it that are not hidden, in reading order."""
    yield node
    for i in range(node.get_child_count()):
        child = node.get_child_at_index(i)
        if child is not None and has_state(child, Atspi.StateType.VISIBLE):
            yield from visible(child)


def place(node):
    """Where the node is in its window."""
    component = node.get_component_iface()
    if component is None:
        raise GLib.Error("it has just gone")
    return component.get_extents(Atspi.CoordType.WINDOW)


class Gtk4PrintDialog:
    """The print dialog of that title that a program shows."""

    def __init__(self, desktop, program, title="Print"):
        self.program = program
        self._desktop = desktop
        self._title = title
        self._card = None  # the page Card, which is quicker to look through than the dialog

    @property
    def root(self):
        return user.wait_for(self._root_now, f"no dialog {self._title!r}")

    def _root_now(self):
        shown = [each for each in self._titled(self._title)
                 if self._windows_now() and place(each).width > 1]
        return shown[-1] if shown else None

    def _titled(self, title):
        """The program's windows of that title."""
        root = self.program.root
        windows = [root.get_child_at_index(i) for i in range(root.get_child_count())]
        return [each for each in windows if each and each.get_name() == title]

    def _windows_now(self):
        pid = str(self.program.pid)
        found = self._xdotool("search", "--all", "--onlyvisible", "--pid", pid, "--name",
                              f"^{self._title}$")
        return found.split()

    def _window(self):
        """Its number. A search fails while some window comes or goes."""
        return user.wait_for(self._windows_now, f"no window {self._title!r}")[-1]

    def is_open(self):
        return bool(self._windows_now())

    def find(self, role, name=None, inside=None):
        def look():
            for each in visible(inside or self.root):
                if role_name(each) == role and name in (None, each.get_name()):
                    return each
            return None

        return user.wait_for(look, lambda: f"no {role} {name!r} in:\n{user.outline(self.root)}")

    def click(self, node):
        """Clicks in the middle of what a node shows."""
        box = place(node)
        window = self._window()
        x, y = box.x + box.width // 2, box.y + box.height // 2
        self._xdotool("mousemove", "--sync", "--window", window, str(x), str(y), "click", "1")

    def mouse_on(self, node):
        return Mouse(self._desktop, node, self._window())

    def leave_alone(self):
        """Takes the pointer away, and with it what it has popped up."""
        self._xdotool("mousemove", "--sync", "1270", "1010")

    def keys(self, *keys):
        self._xdotool("windowfocus", "--sync", self._window())
        self._xdotool("key", "--delay", "40", *keys)

    def wait_for_focus(self, role, name):
        def has_focus():
            return any(has_state(each, Atspi.StateType.FOCUSED) and role_name(each) == role
                       and name in each.get_name() for each in visible(self._card or self.root))

        user.wait_for(has_focus, f"{role} {name!r} has no focus", limit=10)

    def select_printer(self, name):
        """Clicks the row of a printer, and waits until the dialog is ready to print there. A slow
        window may tell the row's place before it has it: then once more."""

        def is_selected():
            self.click(self.find("label", name))
            try:
                self.wait_for_presses("Print", limit=5)
            except user.NotSeen:
                return False
            return True

        user.wait_for(is_selected, f"{name!r} is not selected, or not ready")

    def wait_for_presses(self, button, expected=True, limit=user.LIMIT_SECONDS):
        """Waits until a button takes presses, or takes none."""
        user.wait_for(
            lambda: has_state(self.button(button), Atspi.StateType.SENSITIVE) == expected,
            f"{button} is {'in' if expected else ''}sensitive",
            limit,
        )

    def tab_labels(self):
        tabs = self.find("page tab list")
        return [each for each in visible(tabs) if each.get_role_name() == "label"]

    def has_tab(self, name):
        return any(each.get_name() == name for each in self.tab_labels())

    def open_tab(self, name):
        def tab():
            return next((each for each in self.tab_labels() if each.get_name() == name), None)

        self._card = None
        self.click(user.wait_for(tab, f"there is no tab {name!r}"))

    def open_card(self, size=(1200, 1000)):
        """Opens the page Card and waits for its panels; what is looked for from now on is there.
        With that size of the dialog all of the page shows, and can be clicked."""
        self._card = None
        self.open_tab("Card")
        node = self.find("list", "Card options")
        while node.get_role_name() != "panel" or not node.get_name():  # "Tab", later "Page 3"
            node = node.get_parent()
        self._card = node
        width, height = (str(each) for each in size)
        self._xdotool("windowsize", "--sync", self._window(), width, height)

    def open_panel(self, name):
        rows = self.find("list", "Card options", self._card)
        row = self.find("list item", name, rows)
        rows.get_selection_iface().select_child(row.get_index_in_parent())
        user.wait_for(lambda: has_state(row, Atspi.StateType.SELECTED), f"{name!r} stays behind")

    def pop_up(self, name):
        return self.find("combo box", name, self._card)

    def chosen(self, name):
        """The text of what a pop-up has chosen."""
        return self._shown_in(self.pop_up(name))

    def chosen_own(self, name):
        """The same of a control of the dialog's own."""
        return self._shown_in(self._own_pop_up(name))

    def _shown_in(self, pop_up):
        shown = [each for each in visible(pop_up)
                 if each.get_role_name() == "label" and place(each).width > 0]
        return shown[0].get_name()

    def _own_pop_up(self, name):
        shown = next(each for each in visible(self.root) if each.get_name() == name)
        # A label, unless both have their group's name.
        group = shown if role_name(shown) == "panel" else shown.get_parent()
        return self.find("combo box", None, group)

    def choose(self, name, item):
        """Opens a pop-up of the page and goes to the item of that text with keys."""

        def is_chosen():
            self._choose(self.pop_up(name), name, item)
            try:
                user.wait_for(lambda: self.chosen(name) == item, "", limit=5)
            except user.NotSeen:  # a slow window may open after the keys
                return False
            return True

        user.wait_for(is_chosen, lambda: f"{self.chosen(name)!r} is chosen instead of {item!r}")

    def try_to_choose(self, name, item):
        """Chooses an item that may be refused."""
        self._choose(self.pop_up(name), name, item)

    def choose_own(self, name, item):
        """The same in a control of the dialog's own, which tells less."""
        self._choose(self._own_pop_up(name), name, item)

    def _choose(self, pop_up, name, item):
        self._open(self.find("push button", None, pop_up))
        self._pick(pop_up, name, item)

    def pick(self, name, item):
        """Goes with keys to an item of a pop-up that is open, or opens."""
        self._pick(self.pop_up(name), name, item)

    def _pick(self, pop_up, name, item):
        def titles():
            rows = [each for each in visible(pop_up) if each.get_role_name() == "list item"]
            return [next(visible_label(row)) for row in rows]

        def visible_label(row):
            return (each.get_name() for each in visible(row) if each.get_role_name() == "label")

        all_titles = user.wait_for(
            titles, lambda: f"{name!r} does not open: {user.outline(self.program.root)}"
        )
        self.keys("Home", *["Down"] * all_titles.index(item), "Return")

    def _open(self, button):
        user.press(button)

    def picture(self, name):
        """The picture of a side of the card, by what a screen reader says of it."""
        return self.find("panel", name, self._card)

    def areas(self, picture):
        """What a screen reader says of the areas of a picture, and which one is chosen."""
        return [(each.get_name(), has_state(each, Atspi.StateType.SELECTED))
                for each in visible(picture) if each.get_role_name() == "image"]

    def field(self, name):
        return self.find("text", name, self._card)

    def type(self, name, text):
        field = self.field(name)

        def takes_focus():
            self.click(field)
            return any(has_state(each, Atspi.StateType.FOCUSED) for each in visible(field))

        user.wait_for(takes_focus, f"{name!r} takes no focus")
        user.type_text(field, text)

    def type_area(self, area, *measurements):
        """Types the four measurements of an area, and Enter."""
        for name, text in zip(("X", "Y", "width", "height"), measurements):
            self.type(f"{area}, {name}", text)
        self.keys("Return")

    def text_of(self, name):
        return user.text_of(self.field(name))

    def button(self, label, inside=None):
        """The button with that label, whatever else its name holds."""

        def parts():
            if inside is not None:
                return [inside]
            root = self.root
            around = root.get_child_at_index(0)
            foot = around.get_child_at_index(around.get_child_count() - 1)
            return [foot, self._card, root] if self._card else [foot, root]

        def look():
            for part in parts():
                for each in visible(part):
                    own = role_name(each) == "push button" and each.get_name()
                    if own and (own == label or own.endswith(" " + label)):
                        return each
            return None

        return user.wait_for(look, f"there is no button {label!r}")

    def press(self, label):
        user.press(self.button(label))

    def texts(self):
        """All texts of labels that are not hidden, of the page Card when that is open."""
        return [each.get_name() for each in visible(self._card or self.root)
                if each.get_role_name() == "label"]

    def wait_for_text(self, part):
        return user.wait_for(
            lambda: next((text for text in self.texts() if part in text), None),
            lambda: f"{part!r} is not told in {self.texts()}",
        )

    def paper_size(self):
        return self._shown_in(self.find("combo box", "Paper size:"))

    def _copies(self):
        self.open_tab("General")
        return self.find("spin button", "Copies:").get_value_iface()

    def copies(self):
        return self._copies().get_current_value()

    def set_copies(self, number):
        self._copies().set_current_value(number)

    def wait_for_preset(self, title, modified=False):
        """Waits until the row of presets shows that one, and whether the job differs from it."""
        user.wait_for(
            lambda: self.chosen("Preset") == title and ("Modified" in self.texts()) == modified,
            lambda: f"{title!r} is not chosen, {self.chosen('Preset')!r} is",
        )

    def choose_preset(self, title):
        self.choose("Preset", title)
        self.wait_for_preset(title)

    def open_menu(self, item):
        """Opens the menu of presets and goes to an item with keys."""
        outer = self.find("push button", presets.MENU, self._card)
        user.press(outer.get_child_at_index(0))

        def offered():
            items = [each for each in visible(outer) if each.get_role_name() == "menu item"]
            # GTK 4.18 tells no names of them.
            names = [each.get_name() or own for each, own in zip(items, presets.ITEMS)
                     if has_state(each, Atspi.StateType.SENSITIVE)]
            return names if item in names else None

        names = user.wait_for(offered, lambda: f"no {item!r} in {user.outline(outer)}")
        self.keys(*["Down"] * names.index(item), "Return")

    def save_preset(self, name):
        self.open_menu("Save As…")
        asking = user.wait_for(lambda: self._titled("Save Preset As"), "nobody asks for a name")[-1]
        user.type_text(self.find("text", "Name", asking), name)
        user.press(self.button("Save", asking))
        self.wait_for_preset(name)

    def delete_preset(self):
        self.open_menu("Delete")
        self.wait_for_preset("Standard", modified=True)

    def _xdotool(self, *command):
        done = subprocess.run(["xdotool", *command], env=self._desktop.env, capture_output=True,
                              text=True)
        return done.stdout


class WaylandPrintDialog(Gtk4PrintDialog):
    """The same on the desktop's Wayland compositor, whose window has what a window there has."""

    def __init__(self, desktop, program, title="Print"):
        super().__init__(desktop, program, title)
        self._xdotool("windowfocus", "--sync", self._window())

    def is_open(self):
        return self._root_now() is not None

    def keys(self, *keys):
        # The focus stays: a list that is open would close when it went.
        self._xdotool("key", "--delay", "40", *keys)

    def _windows_now(self):
        return self._xdotool("search", "--onlyvisible", "--class", "weston").split()

    def _open(self, button):
        # Wayland lets a list take the keys only when it was opened with mouse or keyboard.
        self.click(button)
