"""The extension of the file managers that load Python: Nautilus, Nemo, Caja and Thunar. Their
interfaces are alike except for some names."""

import os

from gi.repository import Gio, GObject

from .entries import SUBMENU_KEY, entries_for
from .texts import text

PROGRAM = os.path.join(os.path.dirname(os.path.dirname(os.path.abspath(__file__))), "action")


def _paths(files):
    """Local paths; an item that has none, as in the trash or on a server, gives an empty string."""
    return [file.get_location().get_path() or "" for file in files]


def _chosen(_item, verb, path):
    # In a process of its own: the file manager must not wait for the application, which may be
    # showing an alert.
    Gio.Subprocess.new([PROGRAM, "run", verb, path], Gio.SubprocessFlags.NONE)


def _menu(manager, paths, entries):
    menu = manager.Menu()
    for entry in entries:
        item = manager.MenuItem(name=f"Brisvale::{entry.verb}", label=text(entry.key))
        item.connect("activate", _chosen, entry.verb, paths[0])
        menu.append_item(item)
    top = manager.MenuItem(name="Brisvale::menu", label=text(SUBMENU_KEY))
    (getattr(top, "set_submenu", None) or top.set_menu)(menu)
    return top


def provider(manager):
    """A class that gives the file manager its menu entries; manager is its namespace in
    gi.repository. To be bound to a name in the module that the file manager loads."""
    def file_items(_self, *arguments):
        paths = _paths(arguments[-1])  # older versions pass their window first
        entries = entries_for(paths)
        return [_menu(manager, paths, entries)] if entries else []

    return type(f"Brisvale{manager.__name__.split('.')[-1]}Menu",
                (GObject.GObject, manager.MenuProvider),
                {"get_file_items": file_items,         # Nautilus, Nemo, Caja
                 "get_file_menu_items": file_items})   # Thunar
