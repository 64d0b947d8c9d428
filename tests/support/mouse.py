"""A real mouse for a program on a test's desktop. Needs xdotool."""

import subprocess

import atspi_driver as user


class Mouse:
    """A mouse whose places are counted from a control's top left corner.

    GTK 4 does not know where its windows are: that of the control is named by `window`.
    """

    def __init__(self, desktop, node, window=None):
        self._env = desktop.env
        self._node = node
        self._window = window

    def middle(self):
        box = self._box()
        return box.width // 2, box.height // 2

    def drag(self, start, end):
        """Presses at the place `start`, moves on over the middle to `end`, and lets go."""
        middle = tuple((a + b) // 2 for a, b in zip(start, end))
        self._move(start)
        self._run("mousedown", "1")
        for place in (middle, end):
            self._move(place)
        self._run("mouseup", "1")

    def _move(self, place):
        box = self._box()
        window = ["--window", self._window] if self._window else []
        x, y = str(box.x + place[0]), str(box.y + place[1])
        self._run("mousemove", "--sync", *window, x, y)

    def _box(self):
        kind = user.Atspi.CoordType.WINDOW if self._window else user.Atspi.CoordType.SCREEN
        return self._node.get_component_iface().get_extents(kind)

    def _run(self, *command):
        subprocess.run(["xdotool", *command], env=self._env, check=True, capture_output=True)
