#!/usr/bin/python3
"""What Dolphin asks over the session bus, and what its menus say."""

import configparser
import subprocess
import unittest

from gi.repository import Gio, GLib

from desktop import ACTIONS, BUILD, DesktopTest, wait_until

NAME = "com.veldane.wayfold.FileActions"
MENUS = BUILD / "packaging" / "dolphin"


class Questions(DesktopTest):
    """The service on a bus of its own."""

    def setUp(self):
        super().setUp()
        bus = Gio.TestDBus.new(Gio.TestDBusFlags.NONE)
        bus.up()  # puts its address into the environment
        self.addCleanup(bus.down)
        self.connection = Gio.DBusConnection.new_for_address_sync(
            bus.get_bus_address(), Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT
            | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION, None, None)
        self.addCleanup(self.connection.close_sync)
        self.service, _ = self.start(ACTIONS / "action-service")
        wait_until("the service has its name", lambda: self.ask_bus("NameHasOwner"))

    def ask_bus(self, method):
        return self.connection.call_sync(
            "org.freedesktop.DBus", "/", "org.freedesktop.DBus", method,
            GLib.Variant("(s)", (NAME,)), None, Gio.DBusCallFlags.NONE, -1, None).unpack()[0]

    def offers(self, menu, *paths):
        """The reply to the call that a service menu's file tells Dolphin to make."""
        question = desktop_entry(menu)["Desktop Entry"]["X-KDE-ShowIfDBusCall"]
        name, place, method = question.split(" ")
        interface, method = method.rsplit(".", 1)
        urls = [path.as_uri() for path in paths]
        return self.connection.call_sync(
            name, place, interface, method, GLib.Variant("(as)", (urls,)), None,
            Gio.DBusCallFlags.NONE, -1, None).unpack()[0]

    def offered(self, *paths):
        return [menu for menu in ("file", "folder", "share") if self.offers(menu, *paths)]

    def test_a_file_gets_the_menu_for_files(self):
        self.assertEqual(self.offered(self.file("MyDocs/ä 写.txt")), ["file"])

    def test_a_folder_gets_the_menu_for_folders_and_is_shared_in_my_docs_only(self):
        self.assertEqual(self.offered(self.folder("Team")), ["folder"])
        self.assertEqual(self.offered(self.folder("MyDocs/Plans")), ["folder", "share"])

    def test_items_elsewhere_and_several_get_none(self):
        self.assertEqual(self.offered(self.file("a.txt", root=self.home)), [])
        self.assertEqual(self.offered(self.file("a.txt"), self.file("b.txt")), [])

    def test_a_second_service_leaves_the_name_to_the_first(self):
        second = subprocess.run([ACTIONS / "action-service"], timeout=60, check=False)
        self.assertEqual(second.returncode, 0)
        self.assertIsNone(self.service.poll())


def desktop_entry(menu):
    parser = configparser.RawConfigParser(strict=True, interpolation=None, delimiters=("=",))
    parser.optionxform = str
    parser.read(MENUS / f"brisvale-{menu}.desktop", encoding="utf-8")
    return parser


class Menus(unittest.TestCase):

    def test_every_action_of_a_menu_is_described(self):
        for menu in ("file", "folder", "share"):
            entry = desktop_entry(menu)
            for action in entry["Desktop Entry"]["Actions"].strip(";").split(";"):
                described = entry[f"Desktop Action {action}"]
                self.assertIn("/action run ", described["Exec"])
                for language in ("de", "fr", "es", "it", "pt", "ja", "zh_CN"):
                    self.assertIn(f"Name[{language}]", described)

    def test_the_bus_starts_the_program_that_is_installed(self):
        parser = configparser.RawConfigParser()
        parser.read(MENUS / f"{NAME}.service")
        self.assertEqual(parser["D-BUS Service"]["name"], NAME)
        self.assertTrue(parser["D-BUS Service"]["exec"].endswith("/action-service"))


if __name__ == "__main__":
    unittest.main()
