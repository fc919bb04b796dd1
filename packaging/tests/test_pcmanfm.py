#!/usr/bin/env python3
"""PCManFM with the package's actions, used with the mouse."""

import subprocess
import sys
import unittest

from desktop import (ACTIONS, GENERATE, ROOT, DesktopTest, NOT_REACHED, appears, click, colours,
                     geometry, wait_until, windows)

TEMPLATES = ROOT / "packaging" / "actions" / "pcmanfm"
# Where the first icon of a folder is, from the corner of PCManFM's window.
ICON_X, ICON_Y = 205, 75
# From the lower edge of a menu to the middle of its last entry.
LAST_ENTRY = 12
# After this a user clicks again.
MENU_SECONDS = 15


class PCManFM(DesktopTest):

    def setUp(self):
        super().setUp()
        self.actions = self.home / "share" / "file-manager" / "actions"
        self.actions.mkdir(parents=True)
        self.addCleanup(self.wait_for_windows_to_go)

    @staticmethod
    def wait_for_windows_to_go():
        """For a PCManFM that was killed: the next one's windows may have the same numbers."""
        wait_until("the windows go", lambda: not windows("--class", "pcmanfm"))

    def install(self, *names):
        """Installs actions by name, adapted to this test's folders."""
        for name in names:
            subprocess.run(
                [sys.executable, "-B", GENERATE, "fill", TEMPLATES / f"brisvale-{name}.desktop.in",
                 self.actions / f"brisvale-{name}.desktop", f"ACTIONS_FOLDER={ACTIONS}",
                 f"USERS_FOLDER={self.users}"], check=True)

    def install_all(self):
        self.install("copy-link", "send-file", "send-folder", "share")

    def open_menu(self, folder):
        """Opens a folder that holds one item, and that item's context menu; returns where the menu
        is."""
        manager, _ = self.start("pcmanfm", "--no-desktop", folder)
        window = wait_until("the folder opens", lambda: windows("--class", "pcmanfm"))[0]
        x, y, _, _ = geometry(window)
        area = (x + ICON_X - 25, y + ICON_Y - 25, 50, 50)
        wait_until("the icon is drawn", lambda: colours(*area) > 1)

        def menus():
            return [other for other in windows("--class", "pcmanfm") if other != window]

        def click_for_menu():
            # Once in hundreds of times, and only on a busy machine, PCManFM opens none.
            click(x + ICON_X, y + ICON_Y, 3)
            return appears(menus, MENU_SECONDS)

        menu = wait_until("the menu opens", click_for_menu)[0]
        place = geometry(menu)
        self.assertIsNone(manager.poll(), "PCManFM has ended")
        return manager, place

    def height(self, folder):
        """The height of the menu of the folder's one item."""
        manager, (_, _, _, height) = self.open_menu(folder)
        manager.kill()
        manager.wait()
        self.wait_for_windows_to_go()
        return height

    def choose_only_entry(self, folder):
        """Chooses the entry that is added to the menu of the folder's one item: it stands above
        the last one. folder/../elsewhere holds an item of the same kind that has no entry."""
        added = -self.height(folder.parent / "elsewhere")
        _, (x, y, width, height) = self.open_menu(folder)
        added += height
        self.assertGreater(added, 0, "there is no entry")
        click(x + width // 2, y + height - LAST_ENTRY - added, 1)

    def test_a_click_on_copy_link_copies_the_link(self):
        self.install("copy-link")
        self.file("elsewhere/a.txt", root=self.synced.parent)
        self.file("a.txt")
        self.start_application()
        self.choose_only_entry(self.synced)
        self.assert_clipboard_gets_link_of("getLinkForFile")

    def test_a_click_on_share_opens_the_share_window(self):
        self.install("share")
        self.folder("MyDocs/Plans")
        self.folder("elsewhere/Plans")
        self.start_application()
        self.choose_only_entry(self.synced / "MyDocs")
        wait_until("the window opens", lambda: windows("--name", "^Share Folder$"))

    def test_a_click_tells_when_the_application_does_not_run(self):
        self.install("copy-link")
        self.file("elsewhere/a.txt", root=self.synced.parent)
        self.file("a.txt")
        self.choose_only_entry(self.synced)
        self.assert_message(NOT_REACHED)

    def test_files_have_entries_inside_the_synced_folder_only(self):
        self.install_all()
        outside = self.height(self.file("elsewhere/a.txt", root=self.users).parent)
        neighbour = self.height(self.file("Brisvale-old/a.txt", root=self.users / "ann").parent)
        inside = self.height(self.file("Team/a.txt").parent)
        self.assertEqual(outside, neighbour)
        self.assertGreater(inside, outside)

    def test_folders_can_be_shared_in_my_docs_only(self):
        self.install_all()
        team = self.height(self.folder("Team/Plans").parent)
        own = self.height(self.folder("MyDocs/Plans").parent)
        self.assertGreater(own, team)

    def test_my_docs_itself_can_be_shared(self):
        self.install_all()
        self.folder("MyDocs")
        self.folder("Team/Plans", root=self.home)
        none = self.height(self.home / "Team")
        own = self.height(self.synced)
        self.install_all()
        (self.actions / "brisvale-share.desktop").unlink()
        self.assertGreater(own, self.height(self.synced))
        self.assertGreater(own, none)


if __name__ == "__main__":
    unittest.main()
