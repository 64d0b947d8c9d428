#!/usr/bin/python3
"""use_dialog.py PROGRAM ARGUMENT...: starts the program with the arguments and does in its dialog what
standard input says, as a person would. Answers as the program does. A command a line:

    panel NAME           goes to that panel
    page TABS = PAGE     goes to that page of a tab view
    choose POPUP = ITEM  chooses an item
    try POPUP = ITEM     clicks an item that may not stay chosen
    type FIELD = TEXT    replaces the text of a field and leaves it by Enter
    press BUTTON         presses a button
    see POPUP = ITEM     waits until the item is the chosen one
    read FIELD = TEXT    waits until the field has that text
    told TEXT            waits until the message bar says TEXT, among other things
    untold               waits until no message is there
    run COMMAND          runs a command of the shell, without any = in it
"""

import os
import pathlib
import subprocess
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "support"))
import atspi_driver as user  # noqa: E402 (found by the path)

SERVER = ("CUPS_SERVER", "CUPS_SERVERROOT", "HOME")  # and the saved options


class Person:
    """Does the commands, each a method of its name."""

    def __init__(self, program):
        self._program = program

    def panel(self, name):
        user.select_row(self._program.window(), name)

    def page(self, tabs, name):
        page = user.find(self._program.find("page tab list", tabs), "page tab", name)
        page.get_parent().get_selection_iface().select_child(page.get_index_in_parent())
        selected = user.Atspi.StateType.SELECTED
        user.wait_for(lambda: page.get_state_set().contains(selected), f"{name} is not selected")

    def choose(self, pop_up, item):
        user.choose(self._program.find("combo box", pop_up), item)

    def _try(self, pop_up, item):
        combo = self._program.find("combo box", pop_up)
        user.press(combo)
        user.press(user.find(combo, "menu item", item))

    def type(self, field, text):
        node = self._program.find("text", field)
        user.type_text(node, text)
        user.press(node)

    def press(self, button):
        user.press(self._program.find("push button", button))

    def see(self, pop_up, item):
        combo = self._program.find("combo box", pop_up)
        user.wait_for(
            lambda: user.chosen(combo) == item,
            lambda: f"{pop_up} shows {user.chosen(combo)!r}, not {item!r}",
        )

    def read(self, field, text):
        node = self._program.find("text", field)
        user.wait_for(
            lambda: user.text_of(node) == text,
            lambda: f"{field} has {user.text_of(node)!r}, not {text!r}",
        )

    def told(self, text):
        bar = self._program.find("info bar")
        user.wait_for(
            lambda: any(text in each.get_name() for each in user.descendants(bar)),
            lambda: f"{text!r} is not told in:\n{user.outline(bar)}",
        )

    def untold(self):
        window = self._program.window()
        user.wait_for(
            lambda: not user.find_now(window, "info bar"), lambda: user.outline(window)
        )

    def run(self, command):
        subprocess.run("PATH=$PATH:/usr/sbin; " + command, shell=True, check=True)

    def do(self, command):
        verb, _, rest = command.partition(" ")
        arguments = [each.strip() for each in rest.split("=", 1)] if rest else []
        getattr(self, {"try": "_try"}.get(verb, verb))(*arguments)


def use_dialog(command, script):
    env = {name: os.environ[name] for name in SERVER if name in os.environ}
    with user.Desktop() as desktop:
        env["XDG_CONFIG_HOME"] = os.path.join(desktop.home, ".config")
        program = desktop.start(command, G_DEBUG="fatal-criticals", GDK_GL="disable", **env)
        person = Person(program)
        for line in script.splitlines():
            try:
                person.do(line)
            except user.NotSeen as error:
                raise user.NotSeen(f"{line}: {error}") from error
        return program.finish()


if __name__ == "__main__":
    try:
        status, out, err = use_dialog(sys.argv[1:], sys.stdin.read())
    except user.NotSeen as missing:
        sys.exit(f"use_dialog.py: {missing}")
    print(out, end="")
    print(err, end="", file=sys.stderr)
    sys.exit(status)
