"""GNOME's compositor without a screen: Wayland programs, programs for X through Xwayland, a
keyboard and pictures. To be used in tools/private-desktop --no-display, on a message bus of its
own."""

import os
import shutil
import subprocess
import time
from pathlib import Path

import gi

gi.require_version("Atspi", "2.0")

from gi.repository import Atspi, Gio, GLib  # noqa: E402  after the version

from desktop import BUILD, DesktopTest, output, wait_until  # noqa: E402  after the version

PICTURES = BUILD / "gnome"

MONITOR = "Meta-0"  # mutter's name of its first virtual monitor
MONITOR_SIZE = (1280, 800)
REMOTE = "org.gnome.Mutter.RemoteDesktop"
CAST = "org.gnome.Mutter.ScreenCast"
REPLY_MILLISECONDS = 30000
# What a key may take to change what can be seen.
KEY_SECONDS = 1
ITEM_ROLES = ("icon", "table cell")
MENU_ROLES = ("menu", "menu item")
KEYSYMS = {"Return": 0xff0d, "Escape": 0xff1b, "Tab": 0xff09, "Up": 0xff52, "Down": 0xff54,
           "Menu": 0xff67, "Shift": 0xffe1, "Control": 0xffe3, "Alt": 0xffe9, "F4": 0xffc1}


def place(window):
    """x, y, width, height of a window without its frame, on the screen."""
    lines = dict(line.strip().split(":", 1) for line in
                 output("xwininfo", "-id", window).splitlines() if line.count(":") == 1)
    return tuple(int(lines[name]) for name in ("Absolute upper-left X", "Absolute upper-left Y",
                                               "Width", "Height"))


class GnomeTest(DesktopTest):
    """A user who sits in front of GNOME."""

    def setUp(self):
        super().setUp()
        # Software rendering; and no settings of the user's.
        os.environ.update(GSETTINGS_BACKEND="memory", LIBGL_ALWAYS_SOFTWARE="1", NO_AT_BRIDGE="0",
                          GTK_A11Y="atspi")
        self._bus = Gio.bus_get_sync(Gio.BusType.SESSION)
        former = self._keys()
        self.start("pipewire")
        self.start("wireplumber")
        _, log = self.start("mutter", "--headless", "--wayland", "--virtual-monitor",
                            "{}x{}".format(*MONITOR_SIZE))
        wait_until("mutter serves", lambda: self._is_named(REMOTE) and self._is_named(CAST))
        self._start_session()
        os.environ.update(wait_until("mutter names its displays", lambda: self._displays(log)))
        os.environ["XAUTHORITY"], = wait_until("X has its key", lambda: self._keys() - former)

    def _call(self, name, path, method, arguments=None):
        interface, _, member = method.rpartition(".")
        return self._bus.call_sync(name, path, interface, member, arguments, None,
                                   Gio.DBusCallFlags.NONE, REPLY_MILLISECONDS, None).unpack()

    def _is_named(self, name):
        return self._call("org.freedesktop.DBus", "/", "org.freedesktop.DBus.NameHasOwner",
                          GLib.Variant("(s)", (name,)))[0]

    def _start_session(self):
        """A keyboard, and a stream of what the monitor shows."""
        self._session, = self._call(REMOTE, f"/{REMOTE.replace('.', '/')}",
                                    f"{REMOTE}.CreateSession")
        number, = self._call(REMOTE, self._session, "org.freedesktop.DBus.Properties.Get",
                             GLib.Variant("(ss)", (f"{REMOTE}.Session", "SessionId")))
        options = {"remote-desktop-session-id": GLib.Variant("s", number)}
        cast, = self._call(CAST, f"/{CAST.replace('.', '/')}", f"{CAST}.CreateSession",
                           GLib.Variant("(a{sv})", (options,)))
        stream, = self._call(CAST, cast, f"{CAST}.Session.RecordMonitor",
                             GLib.Variant("(sa{sv})", (MONITOR, {})))
        nodes = []
        self._bus.signal_subscribe(CAST, f"{CAST}.Stream", "PipeWireStreamAdded", stream, None,
                                   Gio.DBusSignalFlags.NONE,
                                   lambda *signal: nodes.append(signal[5].unpack()[0]))
        self._call(REMOTE, self._session, f"{REMOTE}.Session.Start")
        context = GLib.MainContext.default()
        wait_until("the monitor is recorded",
                   lambda: nodes or (context.iteration(False) and False))
        self._node = nodes[0]
        # The keyboard is there from its first key on; programs that start later find it.
        self.press("Shift")

    @staticmethod
    def _displays(log):
        """The variables that lead programs to mutter's displays, once it has said which."""
        lines = log.read_text(encoding="utf-8", errors="replace")
        found = {}
        for line in lines.splitlines():
            if "Using public X11 display " in line:
                found["DISPLAY"] = line.partition("display ")[2].partition(",")[0]
            if "Using Wayland display name '" in line:
                found["WAYLAND_DISPLAY"] = line.split("'")[1]
        return found if len(found) == 2 else None

    @staticmethod
    def _keys():
        """The files that let programs reach Xwayland; a test before may have left one behind."""
        return set(map(str, Path(os.environ["XDG_RUNTIME_DIR"]).glob(".mutter-Xwaylandauth.*")))

    # Keyboard

    def _key(self, name, is_down):
        keysym = KEYSYMS.get(name) or ord(name)
        self._call(REMOTE, self._session, f"{REMOTE}.Session.NotifyKeyboardKeysym",
                   GLib.Variant("(ub)", (keysym, is_down)))

    def press(self, *keys):
        """Presses the keys one after the other, each while those before it are down."""
        for key in keys:
            self._key(key, True)
        for key in reversed(keys):
            self._key(key, False)

    def type(self, text):
        for character in text:
            self.press(character)

    # What is to be seen

    def picture(self, name):
        """A picture of the monitor; returns its file."""
        file = self.home / f"{name}.png"
        subprocess.run(["gst-launch-1.0", "--quiet", "pipewiresrc", f"path={self._node}",
                        "num-buffers=1", "!", "videoconvert", "!", "pngenc", "!", "filesink",
                        f"location={file}"],
                       check=True, timeout=60, stdout=subprocess.DEVNULL)
        return file

    def is_seen(self, window):
        """Whether the monitor shows the window as it is, so that nothing is in front of it."""
        x, y, width, height = place(window)
        own = self.home / "window.png"
        if subprocess.run(["import", "-window", window, own], check=False).returncode != 0:
            return False
        shown = self.home / "shown.png"
        subprocess.run(["convert", self.picture("monitor"), "-crop",
                        f"{width}x{height}+{x}+{y}", "+repage", shown], check=True)
        different = subprocess.run(["compare", "-metric", "AE", "-fuzz", "2%", own, shown, "null:"],
                                   stderr=subprocess.PIPE, text=True, check=False).stderr
        return different.split()[:1] == ["0"]

    def assert_in_front(self, window, picture):
        """Waits until the window can be seen as a whole and has the keyboard. picture: the name of
        the picture of it that is kept."""
        wait_until("the window has the keyboard",
                   lambda: output("xdotool", "getactivewindow") == window)
        wait_until("the window is in front", lambda: self.is_seen(window))
        self.keep_picture(picture)

    def keep_picture(self, name):
        """Keeps a picture of the monitor, for docs/windows.md."""
        PICTURES.mkdir(exist_ok=True)
        shutil.copy(self.picture(name), PICTURES)


class FileManager:
    """A file manager for Wayland, used by its keyboard. The items of its window are found as a
    screen reader finds them."""

    def __init__(self, test, program, folder):
        self._test = test
        self._name = program
        self.process, _ = test.start(program, *(["--new-window"] if program == "nautilus" else []),
                                     folder)

    def _application(self):
        desktop = Atspi.get_desktop(0)
        for index in range(desktop.get_child_count()):
            application = desktop.get_child_at_index(index)
            if application is not None and self._name in (application.get_name() or "").lower():
                return application
        return None

    def _marked(self, *roles):
        """The names of what has one of the roles and the keyboard, or is marked as selected, as the
        highlighted entries of a menu are. Empty when something changes meanwhile, or does not
        reply in time."""
        states = (Atspi.StateType.FOCUSED, Atspi.StateType.SELECTED)
        try:
            application = self._application()
            return [one.get_name() for one in (_below(application) if application else ())
                    if one.get_role_name() in roles and any(_is(one, state) for state in states)]
        except GLib.Error:
            return []

    def is_active(self):
        """Whether one of its windows has the keyboard."""
        try:
            application = self._application()
            return application is not None and any(
                _is(window, Atspi.StateType.ACTIVE) for window in _children(application))
        except GLib.Error:
            return False

    def open_menu(self):
        """Selects the only item of the folder and opens its context menu."""
        self._press_until("an item has the keyboard", "Down",
                          lambda: self._marked(*ITEM_ROLES))
        self._test.press("Control", "a")
        self._test.press("Menu")
        self._press_until("the menu opens", "Down", lambda: self._marked(*MENU_ROLES))

    def point_to(self, name):
        """Highlights an entry of the menu."""
        self._press_until(f"{name} is highlighted", "Down",
                          lambda: name in self._marked(*MENU_ROLES))

    def choose(self, *names):
        """Chooses an entry by the names of the menus and of itself."""
        for name in names:
            self.point_to(name)
            self._test.press("Return")

    def _press_until(self, what, key, condition):
        """Presses the key again when the one before has had its effect, or has had time for it."""
        def is_met():
            if condition():
                return True
            self._test.press(key)
            deadline = time.monotonic() + KEY_SECONDS
            while not condition() and time.monotonic() < deadline:
                time.sleep(0.05)
            return condition()
        wait_until(what, is_met)


def _is(accessible, state):
    return accessible.get_state_set().contains(state)


def _children(accessible):
    every = (accessible.get_child_at_index(index) for index in range(accessible.get_child_count()))
    return [child for child in every if child is not None]


def _below(accessible):
    for child in _children(accessible):
        yield child
        yield from _below(child)
