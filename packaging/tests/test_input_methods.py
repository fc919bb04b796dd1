#!/usr/bin/python3
"""Typing into the windows through an input method (ibus)."""

import os
import re
import subprocess
import time
import unittest

from desktop import BUILD, DesktopTest, click, output, wait_until, windows

HINDI, KOREAN = "m17n:hi:itrans", "hangul"
# In the send window, from its upper left corner (MainWindow.xib).
SUBJECT = 300, 118


class InputMethods(DesktopTest):

    def setUp(self):
        super().setUp()
        os.environ.update({
            "LANG": "C.UTF-8", "XMODIFIERS": "@im=ibus",
            "XDG_CACHE_HOME": str(self.home / "cache"),
            "XDG_CONFIG_HOME": str(self.home / "config"),
        })
        self.start_input_methods()
        self.start_application()

    def start_input_methods(self):
        self.daemon, _ = self.start("ibus-daemon", "--xim", "--panel", "disable", "--cache", "none",
                                    "--config", "/usr/libexec/ibus-memconf")
        wait_until("the input methods are there", lambda: output("ibus", "list-engine"))
        wait_until("programs can reach them", lambda: output("pgrep", "-f", "ibus-x11"))

    def end_input_methods(self):
        """As a crash does: without a word to anybody."""
        self.daemon.kill()
        self.daemon.wait()
        subprocess.run(["pkill", "-9", "ibus"], check=False)

    def open(self, *arguments):
        """Opens a window by the plug-in's client; it has the keyboard."""
        subprocess.run([BUILD / "devkit" / "contextmenu", *arguments], check=True, timeout=60)
        window = wait_until("the window opens", lambda: windows("--classname", "ContextMenuApp"))[0]
        wait_until("the window has the keyboard",
                   lambda: output("xdotool", "getwindowfocus") == window)
        return window

    @staticmethod
    def wait_until_closed(window):
        wait_until("the window closes",
                   lambda: window not in windows("--classname", "ContextMenuApp"))

    def choose(self, engine):
        def is_in_use():
            subprocess.run(["ibus", "engine", engine], check=False)
            return output("ibus", "engine") == engine
        wait_until(f"{engine} is in use", is_in_use)
        if engine == KOREAN:
            self.press("shift+space")  # it begins with Latin letters

    @staticmethod
    def corner(window):
        """Where the window is, without its frame, on the screen."""
        place = output("xwininfo", "-id", window)
        return [int(re.search(f"Absolute upper-left {axis}: *(\\d+)", place)[1]) for axis in "XY"]

    def press(self, *keys):
        """Presses keys, "ctrl+a" for instance, as slowly as a user: an input method sends keys back
        one by one, and when two come at once they change places."""
        for key in keys:
            *modifiers, last = key.split("+")
            wait = ["sleep", "0.06"]
            held = [part for name in modifiers for part in ("keydown", name, *wait)]
            released = [part for name in modifiers for part in ("keyup", name)]
            subprocess.run(["xdotool", *held, "key", last, *wait, *released], check=True)

    def type(self, keys, milliseconds=100):
        """milliseconds: from one key to the next."""
        subprocess.run(["xdotool", "type", "--delay", str(milliseconds), keys], check=True)

    @staticmethod
    def clipboard():
        return output("timeout", "5", "xclip", "-selection", "clipboard", "-out")

    def assert_field_has(self, text):
        """The field with the keyboard has this text: it is selected and copied."""
        other = "what was copied before"
        subprocess.run(["xclip", "-selection", "clipboard", "-in"], input=other, text=True,
                       check=True)
        wait_until("something else is on the clipboard", lambda: self.clipboard() == other)
        self.press("ctrl+a", "ctrl+c")
        wait_until("the text is copied", lambda: self.clipboard() not in ("", other))
        self.assertEqual(self.clipboard(), text)

    @staticmethod
    def wait_until_nothing_new_is_drawn():
        """For two seconds. The caret blinks, which is nothing new."""
        seen, since = set(), time.monotonic()
        while time.monotonic() < since + 2:
            picture = subprocess.run(["import", "-silent", "-window", "root", "rgb:-"],
                                     stdout=subprocess.PIPE, check=True).stdout
            if picture not in seen:
                seen.add(picture)
                since = time.monotonic()

    def test_what_is_composed_stays_in_each_field_of_the_send_window(self):
        self.open("send", self.file("a.txt"))
        self.choose(HINDI)
        self.type("saaraa")
        self.press("Tab", "ctrl+a")
        self.type("namaste bhaarata")
        self.press("Tab")
        self.type("kyaa hai")
        self.assert_field_has("क्या है")
        self.press("shift+Tab")
        self.assert_field_has("नमस्ते भारत")
        self.press("shift+Tab")
        self.assert_field_has("सारा")

    def test_what_is_composed_stays_in_each_field_of_the_share_window(self):
        self.open("share", self.folder("MyDocs/Plans"), "--tab", "1")
        self.choose(HINDI)
        self.type("saaraa")
        self.press("Tab", "Tab")
        self.type("namaste")
        self.assert_field_has("नमस्ते")
        self.press("shift+Tab", "shift+Tab")
        self.assert_field_has("सारा")

    def test_text_comes_before_the_key_that_has_ended_it(self):
        self.open("send", self.file("a.txt"))
        self.press("Tab", "ctrl+a")
        self.choose(KOREAN)
        self.type("dkssud rkskek")
        self.press("Tab")
        self.type("gksrmf")
        self.assert_field_has("한글")
        self.press("shift+Tab")
        self.assert_field_has("안녕 가나다")

    def test_text_that_an_input_method_sends_late_and_together_keeps_its_order(self):
        self.open("send", self.file("a.txt"))
        for engine, keys, text in ((HINDI, "namaste", "नमस्ते"), (KOREAN, "gksrmf", "한글")):
            self.choose(engine)
            self.press("Tab", "ctrl+a")
            subprocess.run(["pkill", "-STOP", "ibus-x11"], check=True)
            self.type(keys * 5, 20)
            subprocess.run(["pkill", "-CONT", "ibus-x11"], check=True)
            self.wait_until_nothing_new_is_drawn()
            self.assert_field_has(text * 5)

    def test_a_click_elsewhere_leaves_the_text_where_it_was_composed(self):
        window = self.open("send", self.file("a.txt"))
        self.press("Tab", "ctrl+a", "Tab")
        self.choose(KOREAN)
        self.type("gksrmf")
        click(*(corner + offset for corner, offset in zip(self.corner(window), SUBJECT)), 1)
        self.press("ctrl+a")
        self.type("rk")
        self.assert_field_has("가")
        self.press("Tab")
        self.assert_field_has("한글")

    def test_an_input_method_that_ends_takes_nothing_with_it(self):
        window = self.open("send", self.file("a.txt"))
        self.press("Tab", "ctrl+a")
        self.choose(HINDI)
        self.type("namaste ")
        self.assert_field_has("नमस्ते")
        self.press("Right")
        self.end_input_methods()
        self.type("abc")
        self.assert_field_has("नमस्ते abc")
        self.press("Escape")
        self.wait_until_closed(window)

    def test_an_input_method_that_begins_later_is_used_by_the_next_window(self):
        window = self.open("send", self.file("a.txt"))
        self.end_input_methods()
        self.press("Escape")
        self.wait_until_closed(window)
        self.start_input_methods()
        self.open("send", self.file("b.txt"))
        self.choose(HINDI)
        self.press("Tab", "ctrl+a")
        self.type("namaste")
        self.assert_field_has("नमस्ते")


if __name__ == "__main__":
    unittest.main(verbosity=2)
