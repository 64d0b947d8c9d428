"""A real mouse for a program on a test's desktop. Needs xdotool."""

import subprocess

import atspi_driver as user


class Mouse:
    """A mouse whose places are counted from a control's top left corner."""

    def __init__(self, desktop, node):
        self._env = desktop.env
        self._node = node

    def drag(self, start, end):
        """Presses at the place `start`, moves on over the middle to `end`, and lets go."""
        middle = tuple((a + b) // 2 for a, b in zip(start, end))
        self._move(start)
        self._run("mousedown", "1")
        for place in (middle, end):
            self._move(place)
        self._run("mouseup", "1")

    def _move(self, place):
        box = self._node.get_component_iface().get_extents(user.Atspi.CoordType.SCREEN)
        self._run("mousemove", "--sync", str(box.x + place[0]), str(box.y + place[1]))

    def _run(self, *command):
        subprocess.run(["xdotool", *command], env=self._env, check=True, capture_output=True)
