"""GTK's print dialog in a program on a test's desktop, used as a person would."""

import re

import atspi_driver as user
import presets

# What GTK says of itself, without the module too: GTK 3.24 when a dialog goes while a screen reader
# listens, and both of the demo's message that has no parent.
GTK_OWN_CRITICALS = (
    "gtk_notebook_get_tab_label: assertion 'list != NULL' failed",
    "gtk_window_set_transient_for: assertion 'GTK_IS_WINDOW (window)' failed",
    "gtk_window_set_modal: assertion 'GTK_IS_WINDOW (window)' failed",
    "g_signal_connect_data: assertion 'G_TYPE_CHECK_INSTANCE (instance)' failed",
    "invalid (NULL) pointer instance",  # the same, as GLib 2.84 tells it first
)


def criticals(errors):
    """The critical warnings in a program's error output but for GTK's own."""
    lines = [line for line in errors.splitlines() if re.search(r"-(CRITICAL|ERROR) \*\*", line)]
    return [line for line in lines if not any(own in line for own in GTK_OWN_CRITICALS)]


def warnings(errors):
    """The kinds of warnings in a program's error output, without what differs between any two runs:
    the process' number, the time and addresses."""
    kinds = re.compile(r"(WARNING|CRITICAL|ERROR) \*\*")
    lines = {line for line in errors.splitlines() if kinds.search(line)}
    return {re.sub(r":\d+\)|\*\*: [\d:.]+|0x[0-9a-f]+", "", line) for line in lines}


class PrintDialog:
    """The print dialog that a program shows."""

    def __init__(self, program):
        self.program = program

    def select_printer(self, name):
        """Clicks the row of a printer, and waits until the dialog is ready to print there."""
        cell = self.program.find("table cell", name)
        table = cell.get_parent().get_table_iface()
        table.add_row_selection(table.get_row_at_index(cell.get_index_in_parent()))
        ready = user.Atspi.StateType.SENSITIVE
        user.wait_for(
            lambda: self.button("Print").get_state_set().contains(ready), "Print stays disabled"
        )

    def tab(self, name):
        return self.program.find("page tab", name)

    def has_tab(self, name):
        return user.find_now(self.program.root, "page tab", name) is not None

    def open_tab(self, name):
        """Clicks the tab of a page; answers the page."""
        tab = self.tab(name)
        tab.get_parent().get_selection_iface().select_child(tab.get_index_in_parent())
        return tab

    def open_card(self):
        """Opens the page Card and waits for its panels."""
        page = self.open_tab("Card")
        user.find(page, "list box", "Card options")
        return page

    def open_panel(self, name):
        user.select_row(self.tab("Card"), name)

    def combo(self, name):
        return self.program.find("combo box", name)

    def choose(self, name, item):
        user.choose(self.combo(name), item)

    def try_to_choose(self, name, item):
        """Chooses an item that may be refused."""
        user.click_item(self.combo(name), item)

    def chosen(self, name):
        """The text of what a pop-up has chosen."""
        return user.chosen(self.combo(name))

    def text_of(self, name):
        return user.text_of(self.program.find("text", name))

    def type(self, name, text):
        user.type_text(self.program.find("text", name), text)

    def type_area(self, area, *measurements):
        for name, text in zip(("X", "Y", "width", "height"), measurements):
            self.type(f"{area}, {name}", text)

    def chosen_own(self, name):
        """The text of what a pop-up of the dialog's own has chosen."""
        return user.chosen(self.combo(name))

    def paper_size(self):
        return user.chosen(self.combo("Paper size:"))

    def _copies(self):
        self.open_tab("General")
        return self.program.find("spin button", "Copies:").get_value_iface()

    def copies(self):
        return self._copies().get_current_value()

    def set_copies(self, number):
        self._copies().set_current_value(number)

    def wait_for_preset(self, title, modified=False):
        presets.wait_until_chosen(self.program, title, modified)

    def choose_preset(self, title):
        presets.choose(self.program, title)

    def save_preset(self, name):
        presets.save_as(self.program, name)

    def delete_preset(self):
        presets.delete(self.program)

    def button(self, name):
        return self.program.find("push button", name)

    def press(self, name):
        user.press(self.button(name))

    def texts(self):
        """All texts of labels on the page Card that show."""
        return [user.text_of(each) for each in user.showing(self.tab("Card"), "label")]

    def wait_for_text(self, part):
        """Waits until a label on the page Card holds `part`; answers it whole."""
        return user.wait_for(
            lambda: next((text for text in self.texts() if part in text), None),
            lambda: f"{part!r} is not told in {self.texts()}",
        )
