#!/usr/bin/env python3
"""What can be tested of the Mac's bundle without a Mac: its description, and how it is signed."""

import os
import plistlib
import subprocess
import sys
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
MACOS = ROOT / "packaging" / "macos"
SIGN = MACOS / "sign"
USAGE = "NSAppleEventsUsageDescription"

sys.path.insert(0, str(ROOT / "tools" / "lint"))

from string_tables import (  # noqa: E402  its place is known only now
    LANGUAGES, REFERENCE, entries_of, text_of, unescaped)


class Description(unittest.TestCase):

    def setUp(self):
        with open(ROOT / "resources" / "Info.plist", "rb") as file:
            self.info = plistlib.load(file)

    def test_it_is_an_application_without_tile_for_old_systems(self):
        self.assertIs(self.info["LSUIElement"], True)
        self.assertEqual(self.info["NSPrincipalClass"], "NSApplication")
        self.assertEqual(self.info["LSMinimumSystemVersion"], "10.6")

    def test_it_names_every_language_that_has_texts(self):
        self.assertEqual(self.info["CFBundleLocalizations"], list(LANGUAGES))

    def test_it_has_the_version_of_the_project(self):
        version = f" VERSION {self.info['CFBundleShortVersionString']} "
        self.assertIn(version, (ROOT / "CMakeLists.txt").read_text(encoding="utf-8"))

    def test_why_the_finder_is_asked_is_told_in_every_language(self):
        told = {}
        for language in LANGUAGES:
            text = text_of(MACOS / f"{language}.lproj" / "InfoPlist.strings")
            told[language] = {key: unescaped(value) for _, key, value in entries_of(text)}[USAGE]
            self.assertIn("Finder" if language != "zh-Hans" else "访达", told[language])
        self.assertEqual(told[REFERENCE], self.info[USAGE])
        self.assertEqual(len(set(told.values())), len(LANGUAGES))

    def test_signed_with_the_hardened_runtime_it_may_still_ask_the_finder(self):
        with open(MACOS / "ContextMenuApp.entitlements", "rb") as file:
            self.assertIs(plistlib.load(file)["com.apple.security.automation.apple-events"], True)


class Signing(unittest.TestCase):

    def sign(self, *arguments, **variables):
        return subprocess.run([SIGN, *arguments], text=True, capture_output=True, check=False,
                              env={"PATH": os.environ["PATH"], **variables})

    def test_it_does_nothing_and_names_everything_that_is_missing(self):
        done = self.sign("Some.app")
        self.assertEqual((done.returncode, done.stdout), (1, ""))
        for need in ("nothing has been done", "a Mac", "codesign", "xcrun", "SIGN_IDENTITY",
                     "NOTARY_PROFILE", "Contents/Info.plist"):
            self.assertIn(need, done.stderr)

    def test_it_does_not_ask_for_what_there_is(self):
        done = self.sign("Some.app", SIGN_IDENTITY="Somebody", NOTARY_PROFILE="some")
        self.assertEqual(done.returncode, 1)
        self.assertNotIn("SIGN_IDENTITY", done.stderr)
        self.assertNotIn("NOTARY_PROFILE", done.stderr)

    def test_it_wants_one_bundle(self):
        self.assertEqual(self.sign().returncode, 2)
        self.assertEqual(self.sign("One.app", "Two.app").returncode, 2)

    def test_it_signs_before_it_submits_and_packs_again_after_the_ticket(self):
        done = self.sign("--print", "Some.app/", SIGN_IDENTITY="Somebody", NOTARY_PROFILE="some")
        commands = [line.split("' '") for line in done.stdout.splitlines()]
        self.assertEqual([command[0].strip("'") for command in commands],
                         ["codesign", "codesign", "ditto", "xcrun", "xcrun", "ditto", "spctl"])
        self.assertIn("Somebody", commands[0])
        self.assertEqual(commands[3][1:4], ["notarytool", "submit", "Some.zip"])
        self.assertEqual(commands[4][1], "stapler")


if __name__ == "__main__":
    unittest.main()
