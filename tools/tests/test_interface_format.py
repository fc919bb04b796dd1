"""The lint of interface files finds what the Mac's tools would not compile for old systems."""

import unittest

from sample_interface import HEAD, TAIL

import interface_files
import interface_format
from project import Findings
from xib import parse


class Format(unittest.TestCase):
    """A good file, and files with one change of its beginning or one object."""

    def findings(self, before="", after="", objects=""):
        self.assertIn(before, HEAD)
        found = Findings()
        document = parse(HEAD.replace(before, after, 1) + objects + TAIL)
        interface_format.check(interface_files.Interface("A.xib", document, {}, found))
        return found

    def finds(self, *parts, **change):
        found = self.findings(**change)
        self.assertEqual(len(found), 1, found)
        for part in parts:
            self.assertIn(part, found[0])

    def test_a_good_file_passes(self):
        self.assertEqual(self.findings(), [])
        self.assertEqual(self.findings(objects='<window id="a"/>'), [])

    def test_another_format_is_found(self):
        self.finds("A.xib:2:", "version", before='version="3.0"', after='version="2.0"')
        self.finds("A.xib:2:", "type", before="Cocoa.XIB", after="CocoaTouch.XIB")
        self.finds("A.xib:2:", "targetRuntime", before="MacOSX.Cocoa", after="iOS.CocoaTouch")

    def test_tools_that_are_newer_than_those_for_old_systems_are_found(self):
        for newer in ("14460.31", "23504", "", "new"):
            with self.subTest(newer):
                found = self.findings(before='toolsVersion="14113"',
                                      after=f'toolsVersion="{newer}"')
                self.assertIn("toolsVersion", found[0])
                self.assertIn("plug-in", found[1])  # which must have the same version

    def test_a_system_of_its_own_is_found(self):
        line = '<deployment identifier="macosx"/>'
        for other in ("", '<deployment version="1060" identifier="macosx"/>',
                      '<deployment identifier="iOS"/>', line + line):
            with self.subTest(other):
                self.finds("deployment", before=line, after=other)

    def test_a_plug_in_of_another_version_is_found(self):
        self.finds("plug-in", before='version="14113"/>', after='version="6254"/>')

    def test_what_demands_newer_tools_is_found(self):
        self.finds("A.xib:8:", "capability", before="</dependencies>",
                   after='<capability name="stacking" minToolsVersion="7.0"/></dependencies>')

    def test_an_older_format_is_found(self):
        self.finds("A.xib:2:", "Xcode 8 format",
                   before='<capability name="documents saved in the Xcode 8 format"'
                   ' minToolsVersion="8.0"/>\n', after="")

    def test_what_10_6_does_not_have_is_found(self):
        self.finds("A.xib:10:", "stackView", "10.9", objects='<stackView id="a"/>')
        self.finds("useAutolayout", "10.7", before="<document",
                   after='<document useAutolayout="YES"')
        self.finds("constraint ", "10.7",
                   objects='<view id="a"><constraints><constraint id="b"/></constraints></view>')
