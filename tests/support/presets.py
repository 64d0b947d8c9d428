"""The row of presets above the panels of a program on a test's desktop, used as a person would."""

import atspi_driver as user

MENU = "Save or delete presets"
ITEMS = ("Save", "Save As…", "Delete")


def pop_up(program):
    return program.find("combo box", "Preset")


def wait_until_chosen(program, title, modified=False):
    """Waits until the row shows that preset, and whether the job differs from it."""

    def is_shown():
        told = user.find_now(program.root, "label", "Modified") is not None
        return user.chosen(pop_up(program)) == title and told == modified

    user.wait_for(
        is_shown, lambda: f"{title!r} is not chosen, {user.chosen(pop_up(program))!r} is"
    )


def choose(program, title):
    user.wait_for(lambda: title in user.items(pop_up(program)), f"there is no preset {title!r}")
    user.choose(pop_up(program), title)
    wait_until_chosen(program, title)


def open_menu(program, item):
    user.press(program.find("toggle button", MENU))
    user.press(program.find("menu item", item))


def save_as(program, name):
    """Saves under a new name."""
    open_menu(program, "Save As…")
    user.type_text(program.find("text", "Name"), name)
    user.press(program.find("push button", "Save"))
    wait_until_chosen(program, name)


def delete(program):
    open_menu(program, "Delete")
    wait_until_chosen(program, "Standard", modified=True)
