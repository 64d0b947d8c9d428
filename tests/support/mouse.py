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

    def rest(self):
        """Comes over the middle, and stays there."""
        x, y = self.middle()
        self._move((x - 2, y))
        self._move((x, y))

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


def draw_an_area(mouse, press, text_of):
    """Draws the first area of the front in its picture, which is empty, and moves it with the key
    that `press` takes. Answers the four texts that it has then, each as `text_of` tells a field's."""
    names = [f"Front Resin Area 1, {each}" for each in ("X", "Y", "width", "height")]
    x, y = mouse.middle()
    mouse.drag((x - 40, y - 30), (x + 20, y + 10))
    user.wait_for(lambda: text_of(names[3]), "nothing is drawn")
    drawn = [text_of(each) for each in names]
    press("Down")
    moved = f"{float(drawn[1][:-2]) + 1:g}mm"
    user.wait_for(lambda: text_of(names[1]) == moved, lambda: text_of(names[1]))
    return [drawn[0], moved, *drawn[2:]]
