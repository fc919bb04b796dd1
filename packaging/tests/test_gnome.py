#!/usr/bin/python3
"""The application on GNOME with Wayland: the entries of file managers, its windows in front of
theirs, and its links in other programs."""

import os
import shutil
import subprocess
import unittest

from desktop import ACTIONS, BUILD, output, wait_until, windows
from gnome import FileManager, GnomeTest, place

# In the send window, from its upper left corner: the field of the recipients (MainWindow.xib).
FIELD_LEFT, FIELD_WIDTH = 195, 365
FIELD_BOTTOM = 97


class Desktop(GnomeTest):

    def setUp(self):
        super().setUp()
        os.environ["PYTHONPATH"] = str(ACTIONS)

    def install_extension(self, program):
        folder = self.home / "share" / f"{program}-python" / "extensions"
        folder.mkdir(parents=True)
        shutil.copy(BUILD / "packaging" / "extensions" / f"{program}.py", folder)

    def manager(self, program="nautilus"):
        """The file manager, in front, with the synced folder."""
        self.install_extension(program)
        manager = FileManager(self, program, self.synced)
        wait_until("the file manager is in front", manager.is_active)
        return manager

    def windows(self):
        return windows("--classname", "ContextMenuApp")

    def only_window(self):
        return wait_until("one window is open",
                          lambda: len(self.windows()) == 1 and self.windows())[0]

    def client(self, *arguments):
        subprocess.run([BUILD / "devkit" / "contextmenu", *arguments], check=True, timeout=60)

    def assert_closes(self, manager, *keys):
        """The keys close the window, and the file manager has the keyboard again."""
        self.press(*keys)
        wait_until("the window has closed", lambda: not self.windows())
        wait_until("the file manager has the keyboard", manager.is_active)


class Entries(Desktop):

    def assert_copies_link(self, program):
        self.file("a.txt")
        self.start_application()
        manager = self.manager(program)
        manager.open_menu()
        manager.choose("Brisvale", "Copy Link")
        made = wait_until("the agent makes a link", lambda: self.operations("getLinkForFile"))
        wait_until("a program for Wayland reads the link", lambda: output(
            "timeout", "5", "wl-paste", "--no-newline") == made[-1]["value"])

    def test_copy_link_of_nautilus_gives_the_link_to_programs_for_wayland(self):
        self.assert_copies_link("nautilus")

    def test_copy_link_of_nemo_gives_the_link_to_programs_for_wayland(self):
        self.assert_copies_link("nemo")

    def test_copy_link_of_caja_gives_the_link_to_programs_for_wayland(self):
        self.assert_copies_link("caja")

    def test_send_file_of_nautilus_opens_the_window_in_front_with_the_keyboard(self):
        self.file("a.txt")
        self.start_application()
        manager = self.manager()
        manager.open_menu()
        manager.choose("Brisvale")
        manager.point_to("Send File…")
        self.keep_picture("gnome-entries")
        self.press("Return")
        self.assert_in_front(self.only_window(), "gnome-send")
        self.assert_closes(manager, "Escape")


class Windows(Desktop):

    def setUp(self):
        super().setUp()
        self.item = self.file("MyDocs/a.txt")
        self.folder("MyDocs/Plans")
        self.agent = self.start_application()

    def test_each_window_opens_in_front_and_has_the_keyboard(self):
        manager = self.manager()
        plans = self.synced / "MyDocs" / "Plans"
        # The list of people has no button that Escape could press.
        for name, verb, item, tab, keys in (("send", "send", self.item, "0", ("Escape",)),
                                            ("copy-link", "send", self.item, "1", ("Escape",)),
                                            ("people", "share", plans, "0", ("Alt", "F4")),
                                            ("invite", "share", plans, "1", ("Escape",))):
            with self.subTest(name=name):
                self.client(verb, item, "--tab", tab)
                self.assert_in_front(self.only_window(), f"gnome-{name}")
                self.assert_closes(manager, *keys)

    def test_a_second_window_takes_the_place_of_the_first(self):
        self.manager()
        self.client("send", self.item)
        first = self.only_window()
        self.client("share", self.synced / "MyDocs" / "Plans")
        wait_until("the other window is there", lambda: self.windows() not in ([], [first]))
        self.assert_in_front(self.only_window(), "gnome-second")

    def test_completions_lie_under_the_field_and_can_be_chosen(self):
        self.manager()
        self.client("send", self.item)
        window = self.only_window()
        self.assert_in_front(window, "gnome-send")
        self.type("hann")
        completions = wait_until("the list opens", lambda: [
            other for other in self.windows() if other != window])[0]
        wait_until("the list can be seen", lambda: self.is_seen(completions))
        self.keep_picture("gnome-completion")
        left, top, width, _ = place(completions)
        x, y, _, _ = place(window)
        self.assertEqual((left - x, width), (FIELD_LEFT, FIELD_WIDTH))
        self.assertAlmostEqual(top - y, FIELD_BOTTOM, delta=3)
        self.press("Down")
        self.press("Return")
        wait_until("the list closes", lambda: self.windows() == [window])
        self.press("Return")
        sent = wait_until("the mail is sent", lambda: self.operations("sendFile"))[-1]
        self.assertIn("hannah.de.vries@brisvale.test", str(sent))

    def test_an_alert_is_in_front_and_has_the_keyboard(self):
        manager = self.manager()
        self.agent.kill()
        self.agent.wait()
        self.start(ACTIONS / "action", "run", "copy-link", self.item)
        self.assert_in_front(self.only_window(), "gnome-alert")
        self.assert_closes(manager, "Return")


if __name__ == "__main__":
    unittest.main()
