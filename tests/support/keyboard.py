"""Real keys for a program on a test's desktop. Needs xdotool."""

import subprocess

import atspi_driver as user
from gi.repository import GLib


class Keyboard:
    """A keyboard whose keys go to one window; there is no window manager to choose it."""

    def __init__(self, desktop, window):
        self._env = desktop.env
        self._window = window
        self._told = None
        self._listener = user.Atspi.EventListener.new(self._focused)
        self._listener.register("object:state-changed:focused")
        self._run("windowfocus", "--sync", self._id())

    def press(self, *keys):
        """Presses keys one after the other, as `Tab` or `ctrl+Next`."""
        self._run("key", "--delay", "40", *keys)

    def type(self, text):
        self._run("type", "--delay", "40", text)

    def resize(self, width, height):
        """Makes the window another size, as a window manager does."""
        self._run("windowsize", "--sync", self._id(), str(width), str(height))

    def focus(self):
        """Role and name of what has the focus, as a screen reader is told; None for nothing yet. A
        pop-up is told as the toggle button that it is, which is only told when it gets the focus."""
        while GLib.MainContext.default().iteration(False):
            pass
        focused = user.Atspi.StateType.FOCUSED
        for each in user.descendants(self._window):
            if each.get_state_set().contains(focused):
                return user.role_name(each), each.get_name()
        return self._told

    def wait_for_focus(self, role, name):
        user.wait_for(
            lambda: self.focus() == (role, name),
            lambda: f"{role} {name!r} has no focus, {self.focus()} has",
            limit=10,
        )

    def wait_for_focus_in(self, start):
        """Waits until the name of what has the focus begins with `start`."""
        user.wait_for(
            lambda: self.focus()[1].startswith(start),
            lambda: f"nothing that begins with {start!r} has the focus, {self.focus()} has",
            limit=10,
        )

    def _focused(self, event):
        node = event.source
        # A page's tab is told after its notebook, which has the focus.
        if event.detail1 and node.get_role_name() != "page tab":
            self._told = user.role_name(node), node.get_name()

    def _id(self):
        """The window on the screen, which may come, or get its size, after accessibility tells."""
        name = self._window.get_name()
        return user.wait_for(self._id_now, lambda: f"{name!r} is not on the screen", limit=10)

    def _id_now(self):
        place = self._window.get_component_iface().get_extents(user.Atspi.CoordType.SCREEN)
        command = ["search", "--onlyvisible", "--pid", str(self._window.get_process_id())]
        for each in self._run(*command, check=False).split():
            geometry = self._run("getwindowgeometry", "--shell", each, check=False)
            if f"WIDTH={place.width}\n" in geometry and f"HEIGHT={place.height}\n" in geometry:
                return each
        return None

    def _run(self, *command, check=True):
        command = ["xdotool", *command]
        done = subprocess.run(command, env=self._env, check=check, capture_output=True, text=True)
        return done.stdout
