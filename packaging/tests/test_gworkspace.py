#!/usr/bin/env python3
"""The services that GWorkspace's users find in its menu Services, performed as that menu does. Each
test runs in a desktop of its own."""

import os
import subprocess
import unittest
from pathlib import Path

from desktop import BUILD, DEADLINE_SECONDS, NOT_REACHED, DesktopTest, wait_until, windows

BUNDLE = BUILD / "packaging" / "BrisvaleActions.service"
PERFORM = BUILD / "packaging" / "tests" / "perform_service"


class Services(DesktopTest):

    @classmethod
    def setUpClass(cls):
        services = Path(os.environ["HOME"]) / "GNUstep" / "Library" / "Services"
        services.mkdir(parents=True)
        (services / BUNDLE.name).symlink_to(BUNDLE)
        subprocess.run(["make_services"], check=True)

    def perform(self, title, *paths):
        subprocess.run([PERFORM, title, *paths], check=True, timeout=DEADLINE_SECONDS)

    def test_copies_a_link(self):
        self.start_application()
        self.perform("Brisvale/Copy Link", self.file("ä 写.txt"), self.folder("Team"))
        self.assert_clipboard_gets_link_of("getLinkForFile")

    def test_sends_files_and_folders(self):
        self.start_application()
        self.perform("Brisvale/Send File…", self.file("a.txt"))
        wait_until("the window opens", lambda: windows("--name", "^a.txt$"))
        self.perform("Brisvale/Send Folder…", self.folder("Team"))
        wait_until("the window opens", lambda: windows("--name", "^Team$"))

    def test_shares(self):
        self.start_application()
        self.perform("Brisvale/Share Folder…", self.folder("MyDocs/Plans"))
        wait_until("the window opens", lambda: windows("--name", "^Share Folder$"))

    def test_tells_where_it_does_not_apply(self):
        self.perform("Brisvale/Share Folder…", self.folder("Team"))
        self.assert_message("Veldane Brisvale")

    def test_tells_when_the_application_does_not_run(self):
        self.perform("Brisvale/Copy Link", self.file("a.txt"))
        self.assert_message(NOT_REACHED)


if __name__ == "__main__":
    unittest.main()
