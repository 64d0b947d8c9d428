"""Drives an unmodified GTK program as a user would, through accessibility, on a desktop of its own.

    with Desktop() as desktop:
        program = desktop.start(["build/bin/cardprint", "--ppd", "card.ppd"])
        choose(program.find("combo box", "Thermal Laminate"), "Front")
        press(program.find("push button", "Print"))
        status = program.finish()

One desktop a process: the accessibility client connects once. Needs Xvfb, dbus-daemon,
at-spi2-core, python3-gi with Atspi, and ImageMagick for pictures.
"""

import contextlib
import os
import shutil
import signal
import subprocess
import tempfile
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402 (the version comes first)

LIMIT_SECONDS = 30
TIMEOUTS = (5000, 15000)  # milliseconds of a question, while a program starts too; 800 is too few
PASSED_ON = ("ASAN_OPTIONS", "LSAN_OPTIONS", "UBSAN_OPTIONS")
# A session bus that starts accessibility when it is asked for. What else the machine has, such as
# portals, would answer for a desktop that is not there.
SERVICE = "/usr/share/dbus-1/services/org.a11y.Bus.service"
BUS = """\
<busconfig>
  <type>session</type>
  <listen>unix:tmpdir=/tmp</listen>
  <servicedir>{services}</servicedir>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
</busconfig>
"""


class NotSeen(AssertionError):
    """What was waited for did not come."""


def wait_for(answer, what, limit=LIMIT_SECONDS):
    """The first true result of `answer()`, which is asked until `limit` seconds have passed.

    `what` names the thing in the error: a text, or a function that makes one.
    """
    end = time.monotonic() + limit
    while True:
        while GLib.MainContext.default().iteration(False):
            pass
        try:
            result = answer()
        except GLib.Error:  # a control went away while it was read
            result = None
        if result:
            return result
        if time.monotonic() > end:
            raise NotSeen(what() if callable(what) else what)
        time.sleep(0.05)


def descendants(node):
    """The node and all below it, in reading order."""
    yield node
    for i in range(node.get_child_count()):
        child = node.get_child_at_index(i)
        if child is not None:
            yield from descendants(child)


def is_showing(node):
    return node.get_state_set().contains(Atspi.StateType.SHOWING)


def names_of(node):
    """The names by which a user knows a control: its own, and those of the labels that caption it."""
    names = [node.get_name()]
    for relation in node.get_relation_set():
        if relation.get_relation_type() == Atspi.RelationType.LABELLED_BY:
            labels = [relation.get_target(i) for i in range(relation.get_n_targets())]
            names += [each.get_name() for each in labels]
    return names


def role_named(name):
    """The role of that name. What was a push button is just a button since at-spi2-core 2.56."""
    key = name.upper().replace(" ", "_")
    if key == "PUSH_BUTTON" and not hasattr(Atspi.Role, key):
        return Atspi.Role.BUTTON
    return getattr(Atspi.Role, key)


def role_name(node):
    """The node's role as it is called before and since."""
    name = node.get_role_name()
    return "push button" if name == "button" else name


def showing(node, role):
    """The controls of that role below the node that show, in reading order. One question to the
    program, where `descendants` asks several of each control."""
    every, some = Atspi.CollectionMatchType.ALL, Atspi.CollectionMatchType.ANY
    states = Atspi.StateSet.new([Atspi.StateType.SHOWING])
    rule = Atspi.MatchRule.new(states, every, {}, every, [role_named(role)], some, [], every, False)
    collection = node.get_collection_iface()
    if collection is None:  # the node has just come, or gone
        return []
    return collection.get_matches(rule, Atspi.CollectionSortOrder.CANONICAL, 0, True)


def find_now(node, role, name=None):
    """The first control of that role, and name if given, that shows; None if there is none."""
    for each in showing(node, role):
        if name is None or name in names_of(each):
            return each
    return None


def find(node, role, name=None, limit=LIMIT_SECONDS):
    """Like `find_now`, but waits for the control to show."""
    return wait_for(
        lambda: find_now(node, role, name),
        lambda: f"no {role} {name!r} in:\n{outline(node)}",
        limit,
    )


def outline(node, depth=0):
    """The tree of controls as text, for messages."""
    try:
        shown = "" if is_showing(node) else "  (hidden)"
        text = f"{'  ' * depth}{node.get_role_name()} {node.get_name()!r}{shown}\n"
        for i in range(node.get_child_count()):
            child = node.get_child_at_index(i)
            text += outline(child, depth + 1) if child is not None else ""
        return text
    except GLib.Error as error:
        return f"{'  ' * depth}(gone: {error.message})\n"


def press(node):
    """Does the control's first action: clicks a button, opens a combo box, toggles a check."""
    if not node.get_action_iface().do_action(0):
        raise NotSeen(f"{node.get_role_name()} {node.get_name()!r} cannot be pressed")


def items(combo):
    """The texts of a combo box, in order."""
    return [each.get_name() for each in descendants(combo) if each.get_role_name() == "menu item"]


def click_item(combo, item):
    """Opens a combo box and clicks the item of that text."""
    press(combo)
    press(find(combo, "menu item", item))


def choose(combo, item):
    """Opens a combo box and clicks the item of that text, which it then has chosen."""
    click_item(combo, item)
    wait_for(lambda: chosen(combo) == item, lambda: f"{item!r} was not chosen")


def chosen(combo):
    """The text of the item that a combo box has selected, None without one."""
    selected = combo.get_selection_iface().get_selected_child(0)
    return None if selected is None else selected.get_name()


def select_row(node, text):
    """Selects the row of a list that shows `text`, as a click on it does."""

    def row_now():
        rows = showing(node, "list item")
        return next((each for each in rows if find_now(each, "label", text)), None)

    row = wait_for(row_now, lambda: f"no row shows {text!r} in:\n{outline(node)}")
    row.get_parent().get_selection_iface().select_child(row.get_index_in_parent())
    selected = Atspi.StateType.SELECTED
    wait_for(lambda: row.get_state_set().contains(selected), f"the row {text!r} is not selected")


def type_text(field, text):
    """Replaces the text of a field."""
    if not field.get_editable_text_iface().set_text_contents(text):
        raise NotSeen(f"{field.get_name()!r} takes no text")


def text_of(node):
    """What a field or label shows."""
    text = node.get_text_iface()
    if text is None:
        return node.get_name()
    return Atspi.Text.get_text(text, 0, Atspi.Text.get_character_count(text))


class Program:
    """A program on the desktop, found in the accessibility tree by its process id."""

    def __init__(self, process):
        self._process = process

    @property
    def root(self):
        return wait_for(self._root_now, "the program does not show itself")

    def _root_now(self):
        if self._process.poll() is not None:
            out, err = self._process.communicate()
            raise NotSeen(f"the program ended with {self._process.returncode}:\n{out}{err}")
        desktop = Atspi.get_desktop(0)
        for i in range(desktop.get_child_count()):
            each = desktop.get_child_at_index(i)
            if each is not None and each.get_process_id() == self._process.pid:
                return each
        return None

    def find(self, role, name=None, limit=LIMIT_SECONDS):
        """The program's control of that role and name, once it shows."""

        def look():
            root = self._root_now()
            return root and find_now(root, role, name)

        return wait_for(look, lambda: f"no {role} {name!r} in:\n{outline(self.root)}", limit)

    def window(self):
        """The program's first window, once it shows; not one that only tells what is waited for."""

        def look():
            root = self.root
            windows = [root.get_child_at_index(i) for i in range(root.get_child_count())]
            shown = [each for each in windows if each and is_showing(each)]
            return next((each for each in shown if not showing(each, "progress bar")), None)

        return wait_for(look, "the program shows no window")

    @property
    def pid(self):
        return self._process.pid

    def runs(self):
        return self._process.poll() is None

    def end(self, limit=LIMIT_SECONDS):
        """Asks the program to end if it runs. Answers exit status and standard error."""
        if self.runs():
            self._process.terminate()
        _, err = self._process.communicate(timeout=limit)
        return self._process.returncode, err

    def finish(self, limit=LIMIT_SECONDS):
        """Waits for the end. Answers exit status, standard output and standard error."""
        out, err = self._process.communicate(timeout=limit)
        return self._process.returncode, out, err


class Part:
    """A part of a program, a window for example, in which controls are found."""

    def __init__(self, root):
        self.root = root

    def find(self, role, name=None, limit=LIMIT_SECONDS):
        return find(self.root, role, name, limit)


class Desktop:
    """A display, a session bus and a home folder, which last as long as the `with` block.

    Without a theme controls are bare, and programs start sooner: under the sanitizers GTK takes
    seconds to read one.
    """

    def __init__(self, size="1280x1024", language="C.UTF-8", theme="Bare"):
        self._size = size
        self._theme = theme
        self._started = []
        self.home = None
        self.env = {"LANG": language, "PATH": os.environ["PATH"]}

    def __enter__(self):
        self.home = tempfile.mkdtemp(prefix="desktop-")
        runtime = os.path.join(self.home, "runtime")
        os.mkdir(runtime, 0o700)
        settings = ["gtk-enable-animations=0", "gtk-cursor-blink=0"]
        settings.append(f"gtk-theme-name={self._theme}")
        self._write(".config/gtk-3.0/settings.ini", "\n".join(["[Settings]", *settings, ""]))
        self._write(".themes/Bare/gtk-3.0/gtk.css", "")
        self.env.update({name: os.environ[name] for name in PASSED_ON if name in os.environ})
        self.env.update(
            HOME=self.home, XDG_RUNTIME_DIR=runtime, GDK_BACKEND="x11", GSETTINGS_BACKEND="memory"
        )
        try:
            screen = ["-screen", "0", f"{self._size}x24", "-noreset", "-nolisten", "tcp"]
            self.env["DISPLAY"] = ":" + self._announced(["Xvfb", *screen, "-displayfd"])
            bus = ["dbus-daemon", self._bus(), "--nofork", "--print-address"]
            self.env["DBUS_SESSION_BUS_ADDRESS"] = self._announced(bus)
            os.environ.pop("WAYLAND_DISPLAY", None)
            os.environ.update(self.env)
            # What is asked is told as it is now. Emptying the cache instead takes no end, and ends
            # this program, where a widget has come to be its own ancestor there.
            os.environ["ATSPI_NO_CACHE"] = "1"
            Atspi.init()
            Atspi.set_timeout(*TIMEOUTS)
        except BaseException:
            self.__exit__()
            raise
        return self

    def __exit__(self, *_):
        for process in reversed(self._started):
            if process.poll() is None:
                os.killpg(process.pid, signal.SIGTERM)
                try:
                    process.communicate(timeout=10)
                except subprocess.TimeoutExpired:
                    os.killpg(process.pid, signal.SIGKILL)
                    process.communicate()
        shutil.rmtree(self.home, ignore_errors=True)

    def start(self, command, **env):
        """Starts a program on this desktop, with `env` besides the desktop's environment."""
        process = self._spawn(
            command, env, stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True
        )
        return Program(process)

    @contextlib.contextmanager
    def wayland(self, fills_screen=False):
        """A Wayland compositor, with the desktop's pointer and keyboard; gives its display. With
        `fills_screen` its windows take all of the screen, where GTK 3 hides their header bars.
        Needs weston."""
        name = "wayland-test"
        command = ["weston", "--backend=x11-backend.so", "--use-pixman", f"--socket={name}"]
        if fills_screen:
            width, height = self._size.split("x")
            command += ["--shell=kiosk-shell.so", f"--width={width}", f"--height={height}"]
        compositor = self._spawn(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        socket = os.path.join(self.env["XDG_RUNTIME_DIR"], name)
        wait_for(lambda: os.path.exists(socket) or compositor.poll() is not None, "no compositor")
        yield name
        compositor.terminate()

    def picture(self, path, node=None, scale=1):
        """Writes a picture of the screen, or of the place of one control, as PNG, once it rests.
        Places are told in units of `scale` pixels."""
        crop = []
        if node is not None:
            box = node.get_component_iface().get_extents(Atspi.CoordType.SCREEN)
            x, y, width, height = (scale * each for each in (box.x, box.y, box.width, box.height))
            crop = ["-crop", f"{width}x{height}+{x}+{y}", "+repage"]
        seen = [None]

        def rests():
            command = ["import", "-window", "root", *crop, "rgb:-"]
            seen.append(subprocess.run(command, env=self.env, check=True, capture_output=True).stdout)
            return seen[-1] == seen[-2]

        wait_for(rests, "the picture does not come to rest")
        subprocess.run(["import", "-window", "root", *crop, path], env=self.env, check=True)

    def _bus(self):
        """The option that leads the session bus to its configuration."""
        services = os.path.join(self.home, "services")
        os.mkdir(services)
        os.symlink(SERVICE, os.path.join(services, os.path.basename(SERVICE)))
        self._write("bus/session.conf", BUS.format(services=services))
        return f"--config-file={self.home}/bus/session.conf"

    def _write(self, path, text):
        path = os.path.join(self.home, path)
        os.makedirs(os.path.dirname(path))
        with open(path, "w", encoding="utf-8") as file:
            file.write(text)

    def _spawn(self, command, env=None, **options):
        process = subprocess.Popen(
            command,
            env={**self.env, **(env or {})},
            stdin=subprocess.DEVNULL,
            start_new_session=True,
            **options,
        )
        self._started.append(process)
        return process

    def _announced(self, command):
        """Starts a server whose last option takes a file descriptor; answers what it writes there."""
        reader, writer = os.pipe()
        with os.fdopen(reader) as announced:
            try:
                last = f"{command[-1]}={writer}" if command[-1].startswith("--") else None
                command = [*command[:-1], last] if last else [*command, str(writer)]
                self._spawn(
                    command,
                    pass_fds=[writer],
                    stdout=subprocess.DEVNULL,
                    stderr=subprocess.DEVNULL,
                )
            finally:
                os.close(writer)
            line = announced.readline().strip()
        if not line:
            raise RuntimeError(f"{command[0]} did not start")
        return line
