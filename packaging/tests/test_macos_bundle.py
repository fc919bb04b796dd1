#!/usr/bin/env python3
"""What the check of the Mac's bundle finds."""

import plistlib
import shutil
import struct
import subprocess
import tempfile
import unittest
from pathlib import Path

from macos_build import ROOT, USAGE, check_bundle, write
from string_tables import LANGUAGES

MACOS = ROOT / "packaging/macos"


class SeededFaults(unittest.TestCase):
    """Each fault of a bundle that is good otherwise is found, and nothing else."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.bundle = Path(folder.name) / "ContextMenuApp.app"
        self.contents = self.bundle / "Contents"
        self.resources = self.contents / "Resources"
        self.icon = self.resources / check_bundle.ICON
        self.table = self.resources / "de.lproj/Localizable.strings"
        info = (ROOT / "resources/Info.plist.in").read_text(encoding="utf-8")
        write(self.contents / "Info.plist",
              info.replace("${PROJECT_VERSION}", "1.2.3")
              .replace("${CMAKE_OSX_DEPLOYMENT_TARGET}", "10.6"))
        write(self.contents / "PkgInfo", "APPL????")
        write(self.contents / "MacOS/ContextMenuApp", "")
        (self.contents / "MacOS/ContextMenuApp").chmod(0o755)
        for name in check_bundle.INTERFACES:
            write(self.resources / f"{name}.nib", "bplist00")
        for language in LANGUAGES:
            for table in check_bundle.TABLES:
                write(self.resources / f"{language}.lproj" / table, '"a" = "b";', "utf-16")
        self.icon.write_bytes(struct.pack(">4sI4sI4s", b"icns", 20, b"ic08", 12, b"\x89PNG"))

    def test_a_good_bundle_passes(self):
        self.assertEqual(check_bundle.findings(self.bundle, "10.6"), [])

    def finds(self, *parts, system="10.6"):
        found = check_bundle.findings(self.bundle, system)
        self.assertEqual(len(found), 1, found)
        for part in parts:
            self.assertIn(part, found[0])

    def describe(self, **changes):
        path = self.contents / "Info.plist"
        info = {**plistlib.loads(path.read_bytes()), **changes}
        path.write_bytes(plistlib.dumps({key: value for key, value in info.items()
                                         if value is not None}))

    def test_an_interface_file_that_was_only_copied(self):
        shutil.copy(ROOT / "resources/MainMenu.xib", self.resources / "MainMenu.nib")
        self.finds("MainMenu.nib", "compiled")

    def test_one_that_kept_its_name(self):
        shutil.copy(ROOT / "resources/MainMenu.xib", self.resources)
        self.finds("MainMenu.xib", "does not belong")

    def test_one_that_is_missing(self):
        (self.resources / "ShareFolder.nib").unlink()
        self.finds("ShareFolder.nib", "missing")

    def test_another_system(self):
        self.finds("LSMinimumSystemVersion", "'10.6'", "'10.13'", system="10.13")

    def test_a_description_that_lacks_what_it_must_say(self):
        for key in (*check_bundle.DESCRIPTION, USAGE):
            with self.subTest(key):
                value = plistlib.loads((self.contents / "Info.plist").read_bytes())[key]
                self.describe(**{key: None})
                self.finds(key)
                self.describe(**{key: value})

    def test_a_version_that_was_not_filled_in(self):
        self.describe(CFBundleVersion="${PROJECT_VERSION}")
        self.finds("CFBundleVersion", "no version")

    def test_a_description_that_is_no_property_list(self):
        write(self.contents / "Info.plist", "<plist><dict><key>A</key></dict>")
        self.finds("Info.plist", "cannot be read")

    def test_a_language_without_texts(self):
        shutil.rmtree(self.resources / "ja.lproj")
        self.assertEqual(check_bundle.findings(self.bundle, "10.6"),
                         [f"Resources/ja.lproj/{table}: is missing"
                          for table in sorted(check_bundle.TABLES)])

    def test_a_table_without_byte_order_mark(self):
        self.table.write_bytes(self.table.read_bytes()[2:])
        self.finds("de.lproj", "byte order mark")

    def test_a_table_that_the_mac_could_not_read(self):
        good = '/* ü */ "a" = "b\\n\\U00e4\\"";\n// c\n'
        for bad in ('"a" = "b"\n', '"a" = b;\n', '"a" = "b";;\n', '"a" "b";\n', '"a" = "\\q";\n',
                    '"a" = "\\U12";\n', '"a" = "b', "/* c", "x"):
            with self.subTest(bad):
                self.table.write_bytes((good.replace("a", "z") + bad).encode("utf-16"))
                self.finds("de.lproj/Localizable.strings", 'line 3: not of the form')
        self.table.write_bytes(good.encode("utf-16-be").join((b"\xfe\xff", b"")))
        self.assertEqual(check_bundle.findings(self.bundle, "10.6"), [])

    def test_a_table_with_a_key_twice(self):
        self.table.write_bytes('"a" = "b"; "a" = "c";'.encode("utf-16"))
        self.finds("de.lproj", '"a" twice')

    def test_an_icon_that_is_cut_off(self):
        content = self.icon.read_bytes()
        self.icon.write_bytes(struct.pack(">4sI", content[:4], len(content) - 2) + content[8:-2])
        self.finds(check_bundle.ICON, "does not end")

    def test_an_icon_that_is_another_kind_of_picture(self):
        self.icon.write_bytes(b"\x89PNG\r\n\x1a\n")
        self.finds(check_bundle.ICON, "no icon file")

    def test_an_icon_with_a_picture_that_nothing_reads(self):
        self.icon.write_bytes(struct.pack(">4sI4sI", b"icns", 16, b"abcd", 8))
        self.finds(check_bundle.ICON, "unknown type")

    def test_another_type(self):
        write(self.contents / "PkgInfo", "APPL????\n")
        self.finds("PkgInfo", "APPL????")

    def test_a_program_that_may_not_be_run(self):
        (self.contents / "MacOS/ContextMenuApp").chmod(0o644)
        self.finds("MacOS/ContextMenuApp", "may not be run")

    def test_a_signature_and_the_ticket_of_the_notary_service_may_be_there(self):
        write(self.contents / "_CodeSignature/CodeResources", "")
        write(self.contents / "CodeResources", "")
        self.assertEqual(check_bundle.findings(self.bundle, "10.6"), [])

    def test_as_a_program_it_fails_where_something_is_wrong(self):
        command = [MACOS / "check-bundle", self.bundle]
        self.assertEqual(subprocess.run([*command, "10.6"], check=False,
                                        stdout=subprocess.DEVNULL).returncode, 0)
        done = subprocess.run([*command, "10.7"], check=False, text=True, stdout=subprocess.PIPE)
        self.assertEqual(done.returncode, 1)
        self.assertIn("LSMinimumSystemVersion", done.stdout)


if __name__ == "__main__":
    unittest.main()
