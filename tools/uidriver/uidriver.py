"""Drives the program as a person with a screen reader would: finds widgets by role and name on the
accessibility bus, and works them with a real mouse and keyboard on a virtual screen.

Needs Debian's own python3 with python3-gi and gir1.2-atspi-2.0, and Xvfb, openbox, dbus, at-spi2-core,
xdotool and ImageMagick.
"""

import os
import shutil
import signal
import subprocess
import sys
import tempfile
import time

BUS_LAUNCHERS = ("/usr/libexec/at-spi-bus-launcher", "/usr/lib/at-spi2-core/at-spi-bus-launcher")
PATIENCE = 30.0  # seconds that a widget or window may take to appear on a busy machine
POLL = 0.1


class NotFound(Exception):
    """A widget, window or state did not appear in time."""


class Screen:
    """A virtual screen with a window manager, a session bus and an accessibility bus of its own."""

    def __init__(self, width=1280, height=900):
        self.size = (width, height)
        self._folder = tempfile.mkdtemp(prefix="corvane-screen-")
        self._processes = []

    def __enter__(self):
        try:
            self._start_server()
            self._start_buses()
            self._start("openbox", "--sm-disable")
            time.sleep(1)
        except BaseException:
            self.close()
            raise
        return self

    def __exit__(self, *_):
        self.close()

    def _start(self, *command, **options):
        options.setdefault("stdout", subprocess.DEVNULL)
        options.setdefault("stderr", subprocess.DEVNULL)
        process = subprocess.Popen(command, start_new_session=True, **options)
        self._processes.append(process)
        return process

    def _start_server(self):
        # -noreset keeps the root window's properties, where the accessibility bus leaves its address.
        read_end, write_end = os.pipe()
        self._start("Xvfb", "-displayfd", str(write_end), "-screen", "0", "%dx%dx24" % self.size,
                    "-dpi", "96", "-noreset", "-nolisten", "tcp", pass_fds=(write_end,))
        os.close(write_end)
        with os.fdopen(read_end) as pipe:
            number = pipe.readline().strip()
        if not number:
            raise NotFound("the virtual screen did not start")
        os.environ["DISPLAY"] = ":" + number
        os.environ.pop("WAYLAND_DISPLAY", None)

    def _start_buses(self):
        runtime = os.path.join(self._folder, "runtime")
        os.makedirs(runtime, mode=0o700)
        os.environ["XDG_RUNTIME_DIR"] = runtime
        daemon = self._start("dbus-daemon", "--session", "--nofork", "--print-address=1",
                             stdout=subprocess.PIPE, text=True)
        os.environ["DBUS_SESSION_BUS_ADDRESS"] = daemon.stdout.readline().strip()
        launcher = next(path for path in BUS_LAUNCHERS if os.path.exists(path))
        self._start(launcher, "--launch-immediately")
        wait_until(lambda: "AT_SPI_BUS" in subprocess.run(
            ["xprop", "-root"], capture_output=True, text=True).stdout, "the accessibility bus")

    def screenshot(self, path):
        os.makedirs(os.path.dirname(os.path.abspath(path)), exist_ok=True)
        subprocess.run(["import", "-window", "root", path], check=True)

    def close(self):
        for process in reversed(self._processes):
            try:
                os.killpg(process.pid, signal.SIGTERM)
                process.wait(5)
            except (ProcessLookupError, subprocess.TimeoutExpired):
                try:
                    os.killpg(process.pid, signal.SIGKILL)
                except ProcessLookupError:
                    pass
        self._processes = []
        shutil.rmtree(self._folder, ignore_errors=True)


def wait_until(condition, what, patience=PATIENCE):
    """Polls until the condition gives something true, and returns that."""
    end = time.monotonic() + patience
    while True:
        result = condition()
        if result:
            return result
        if time.monotonic() > end:
            raise NotFound("waited %.0f s in vain for %s" % (patience, what))
        time.sleep(POLL)


def _atspi():
    import gi

    gi.require_version("Atspi", "2.0")
    from gi.repository import Atspi

    return Atspi


class Widget:
    """One accessible object."""

    def __init__(self, node):
        self.node = node

    @property
    def name(self):
        return self.node.get_name() or ""

    @property
    def label(self):
        """The text of the label that stands by the widget: a combo box' own name is what it shows."""
        Atspi = _atspi()
        for relation in self.node.get_relation_set() or []:
            if relation.get_relation_type() == Atspi.RelationType.LABELLED_BY and relation.get_n_targets():
                return relation.get_target(0).get_name() or ""
        return ""

    @property
    def role(self):
        return self.node.get_role_name()

    def has(self, state):
        return self.node.get_state_set().contains(getattr(_atspi().StateType, state))

    @property
    def enabled(self):
        return self.has("ENABLED")

    @property
    def checked(self):
        return self.has("CHECKED")

    @property
    def text(self):
        Atspi = _atspi()
        interface = self.node.get_text_iface()
        if not interface:
            return self.name
        return Atspi.Text.get_text(interface, 0, Atspi.Text.get_character_count(interface))

    def extents(self):
        return self.node.get_component_iface().get_extents(_atspi().CoordType.SCREEN)

    def click(self):
        """Clicks the middle of the widget with the mouse."""
        box = self.extents()
        xdotool("mousemove", box.x + box.width // 2, box.y + box.height // 2, "click", 1)

    def type(self, text):
        """Clicks into the field and replaces its text from the keyboard."""
        self.click()
        xdotool("key", "--clearmodifiers", "ctrl+a")
        if text:
            xdotool("type", "--delay", 15, text)
        else:
            xdotool("key", "Delete")

    def children(self):
        for i in range(self.node.get_child_count()):
            child = self.node.get_child_at_index(i)
            if child is not None:
                yield Widget(child)

    def descendants(self):
        for child in self.children():
            yield child
            yield from child.descendants()

    def __repr__(self):
        return "<%s %r>" % (self.role, self.name)


def xdotool(*arguments):
    subprocess.run(["xdotool"] + [str(a) for a in arguments], check=True,
                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)


def visible_windows():
    """How many windows the program shows, popups among them."""
    found = subprocess.run(["xdotool", "search", "--onlyvisible", "--class", "Corvane"], capture_output=True, text=True)
    return len(found.stdout.split())


def press_key(*keys):
    """Presses keys by their X names, such as "Return" or "ctrl+c"."""
    xdotool("key", "--clearmodifiers", *keys)


class Focus:
    """Hears where the keyboard's focus goes, as a screen reader does."""

    MOST_HEARD = 20

    def __init__(self):
        self.heard = []  # the last stations, for a person who looks for the way
        self._count = 0
        self._node = None
        self._listener = _atspi().EventListener.new(self._on_event)

    def __enter__(self):
        self._listener.register("object:state-changed:focused")
        return self

    def __exit__(self, *_):
        self._listener.deregister("object:state-changed:focused")

    def _on_event(self, event):
        if event.detail1:
            self._count += 1
            self._node = event.source
            self.heard = (self.heard + [repr(self.current_now())])[-self.MOST_HEARD:]

    def current_now(self):
        return Widget(self._node) if self._node is not None else None

    def settle(self, seconds):
        """Listens until nothing has been heard for so long."""
        from gi.repository import GLib

        end = time.monotonic() + seconds
        while time.monotonic() < end:
            if GLib.MainContext.default().iteration(False):
                end = time.monotonic() + seconds
            time.sleep(0.005)

    def press(self, key, patience=3.0):
        """Presses a key and listens where the focus goes; a key that leaves it where it is takes the patience."""
        self.settle(0.02)
        before = self._count
        press_key(key)
        end = time.monotonic() + patience
        while self._count == before and time.monotonic() < end:
            self.settle(0.02)
        self.settle(0.1)

    def current(self):
        """The widget that has the focus, once one was heard of."""
        self.settle(0.02)
        return wait_until(lambda: self.settle(0.02) or self.current_now(), "the focus")

    def is_on(self, role, name):
        """Whether the focus is on this widget now."""
        self.settle(0.02)
        widget = self.current_now()
        return widget is not None and widget.role == role and name in (widget.name, widget.label)


class Program:
    """The program as its own process, seen through the accessibility bus."""

    def __init__(self, command, environment=None, folder=None, log=None):
        env = dict(os.environ)
        env.update(environment or {})
        env["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"] = "1"
        env["QT_QPA_PLATFORM"] = "xcb"
        self._log = open(log, "ab") if log else None
        self.process = subprocess.Popen(command, env=env, cwd=folder, stdin=subprocess.DEVNULL,
                                        stdout=self._log, stderr=self._log)

    @property
    def running(self):
        return self.process.poll() is None

    def root(self):
        """The program's own object on the bus, once it has registered."""
        return wait_until(self._find_root, "the program on the accessibility bus")

    def _find_root(self):
        desktop = _atspi().get_desktop(0)
        for i in range(desktop.get_child_count()):
            child = desktop.get_child_at_index(i)
            try:
                if child is not None and child.get_process_id() == self.process.pid:
                    return Widget(child)
            except Exception:  # a program that has just gone leaves a dead object behind
                continue
        return None

    def find(self, role=None, name=None, contains=None, showing=True, patience=PATIENCE):
        """The first widget that fits, waiting for it to appear."""
        what = "a %s %r" % (role or "widget", name or contains)
        return wait_until(lambda: self.look(role, name, contains, showing), what, patience)

    def look(self, role=None, name=None, contains=None, showing=True):
        """The first widget that fits now, or None."""
        return next(self.find_all(role, name, contains, showing), None)

    def find_all(self, role=None, name=None, contains=None, showing=True):
        try:
            root = self._find_root()
            queue = [root] if root else []
            while queue:
                widget = queue.pop(0)
                if self._fits(widget, role, name, contains, showing):
                    yield widget
                queue.extend(widget.children())
        except Exception:  # the tree may change while it is walked: whoever waits looks again
            return

    @staticmethod
    def _fits(widget, role, name, contains, showing):
        if role is not None and widget.role != role:
            return False
        if name is not None and widget.name != name and (
                widget.role != "combo box" or widget.label != name):
            return False
        if contains is not None and contains not in widget.name and contains not in widget.text:
            return False
        return not showing or widget.has("SHOWING")

    def choose(self, combo, item):
        """Opens the combo box with this name and chooses one of its items from the keyboard."""
        box = self.find("combo box", combo)
        names = [entry.name for entry in box.descendants() if entry.role == "list item"]
        self._open_list(box)
        press_key("Home", *["Down"] * names.index(item))
        press_key("Return")
        time.sleep(0.2)

    @staticmethod
    def _open_list(box):
        """A click on a window that has just come up may only activate it: then a second one opens the list, which
        is a window of its own."""
        before = visible_windows()
        for _ in range(5):
            box.click()
            try:
                wait_until(lambda: visible_windows() > before, "the list of %r" % box, patience=4)
                time.sleep(0.2)
                return
            except NotFound:
                continue
        raise NotFound("the list of %r does not open" % box)

    def menu(self, menu, action):
        """Opens a menu of the menu bar and clicks one of its actions."""
        self.find("menu item", menu).click()
        wait_until(lambda: self.look("menu item", action) or self.look("check menu item", action),
                   "the action %r" % action).click()

    def tree(self):
        """The whole tree as text, for a person who looks for a widget's name."""
        lines = []

        def walk(widget, depth):
            showing = "" if widget.has("SHOWING") else " (hidden)"
            lines.append("%s%s %r%s" % ("  " * depth, widget.role, widget.name, showing))
            for child in widget.children():
                walk(child, depth + 1)

        walk(self.root(), 0)
        return "\n".join(lines)

    def close_window(self):
        """Closes the main window as its close button does."""
        press_key("alt+F4")

    def wait(self, patience=PATIENCE):
        """Waits for the program to end and returns its exit code."""
        return self.process.wait(patience)

    def kill(self):
        if self.running:
            self.process.kill()
            self.process.wait()
        if self._log:
            self._log.close()


if __name__ == "__main__":
    with Screen() as screen:
        program = Program(sys.argv[1:])
        try:
            time.sleep(3)
            print(program.tree())
        finally:
            program.kill()
