#!/usr/bin/python3
"""The extension of a file manager that loads Python, against the file manager's own interface.

    test_extensions.py NAMESPACE VERSION FILE      Nautilus 4.0 nautilus.py
"""

import runpy
import sys
import unittest

import gi

from desktop import ACTIONS, BUILD, NOT_REACHED, DesktopTest

NAMESPACE, VERSION, FILE = sys.argv[1:4]
gi.require_version(NAMESPACE, VERSION)

from gi.repository import Gio, GLib  # noqa: E402  after the version

EXTENSION = BUILD / "packaging" / "extensions" / FILE
QUESTION = "get_file_menu_items" if NAMESPACE == "Thunarx" else "get_file_items"


class Item:
    """What a file manager passes: an item by its location."""

    def __init__(self, uri):
        self._location = Gio.File.new_for_uri(uri)

    def get_location(self):
        return self._location


def load():
    """The class in the extension that the file manager would find and instantiate."""
    sys.path.insert(0, str(ACTIONS))  # in front of where it is when it is installed
    module = runpy.run_path(str(EXTENSION))
    manager = getattr(__import__("gi.repository", fromlist=[NAMESPACE]), NAMESPACE)
    found = [one for one in module.values()
             if isinstance(one, type) and issubclass(one, manager.MenuProvider)]
    assert len(found) == 1, found
    return found[0]


PROVIDER = load()()


class Extension(DesktopTest):

    def menu(self, *paths):
        """The extension's entries for these paths."""
        items = [Item(path.as_uri()) for path in paths]
        arguments = (items,) if NAMESPACE == "Nautilus" else (None, items)
        return getattr(PROVIDER, QUESTION)(*arguments)

    def entries(self, *paths):
        """The entries under the one that the extension adds."""
        top, = self.menu(*paths)
        self.assertEqual(top.get_property("label"), "Brisvale")
        return top.get_property("menu").get_items()

    def labels(self, *paths):
        return [entry.get_property("label") for entry in self.entries(*paths)]

    def test_a_file_can_be_copied_and_sent(self):
        self.assertEqual(self.labels(self.file("MyDocs/ä 写.txt")), ["Copy Link", "Send File…"])

    def test_a_folder_of_others_cannot_be_shared(self):
        self.assertEqual(self.labels(self.folder("Team")), ["Copy Link", "Send Folder…"])

    def test_a_folder_of_ones_own_can_be_shared(self):
        self.assertEqual(self.labels(self.folder("MyDocs/Plans")),
                         ["Copy Link", "Send Folder…", "Share Folder…"])

    def test_items_elsewhere_get_no_menu(self):
        self.assertEqual(self.menu(self.file("a.txt", root=self.home)), [])
        self.assertEqual(self.menu(self.synced), [])

    def test_several_items_get_no_menu(self):
        self.assertEqual(self.menu(self.file("a.txt"), self.file("b.txt")), [])

    def test_an_item_without_a_path_gets_no_menu(self):
        arguments = ([Item("trash:///a.txt")],)
        arguments = arguments if NAMESPACE == "Nautilus" else (None, *arguments)
        self.assertEqual(getattr(PROVIDER, QUESTION)(*arguments), [])

    def test_choosing_an_entry_asks_the_application(self):
        self.start_application()
        entry = self.entries(self.file("a.txt"))[0]
        entry.emit("activate")
        self.assert_clipboard_gets_link_of("getLinkForFile")

    def test_choosing_an_entry_tells_when_the_application_does_not_run(self):
        entry = self.entries(self.file("a.txt"))[0]
        entry.emit("activate")
        self.assert_message(NOT_REACHED)


if __name__ == "__main__":
    GLib.set_prgname("file-manager")
    unittest.main(argv=sys.argv[:1] + sys.argv[4:])
