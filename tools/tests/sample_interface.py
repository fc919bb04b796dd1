"""A small interface file for its lint to be tried on."""

import atexit
import subprocess
import tempfile
from functools import lru_cache
from pathlib import Path

from sample import SampleBuild, platform_flags

import interface_files
import objc_classes

HEAD = """<?xml version="1.0" encoding="UTF-8"?>
<document type="com.apple.InterfaceBuilder3.Cocoa.XIB" version="3.0" toolsVersion="14113"
 targetRuntime="MacOSX.Cocoa">
<dependencies>
<deployment identifier="macosx"/>
<plugIn identifier="com.apple.InterfaceBuilder.CocoaPlugin" version="14113"/>
<capability name="documents saved in the Xcode 8 format" minToolsVersion="8.0"/>
</dependencies>
<objects>
"""
TAIL = "</objects>\n</document>\n"
# The line of the first thing that a test adds.
FIRST = HEAD.count("\n") + 1

HEADER = """
@interface Tab : NSObject {
 @private
  IBOutlet NSButton *notify;
}
@property (assign) IBOutlet NSWindow *sheet;
- (IBAction)send:(id)sender;
- (void)notAnAction:(id)sender;
@end
"""
# Every outlet connected.
TAB = """<customObject id="tab" customClass="Tab"><connections>
<outlet property="notify" destination="box" id="c1"/>
<outlet property="sheet" destination="window" id="c2"/>
</connections></customObject>
<window id="window"/>
"""
RECT = '<rect key="frame" x="{}" y="{}" width="{}" height="{}"/>'


FOLDER = tempfile.TemporaryDirectory(prefix="lint-")
atexit.register(FOLDER.cleanup)


@lru_cache(maxsize=None)
def precompiled_platform():
    """The platform's headers, read once for all tests."""
    header, made = (Path(FOLDER.name, f"platform.{suffix}") for suffix in ("h", "pch"))
    header.write_text("#import <AppKit/AppKit.h>\n")
    subprocess.run(["clang++", *platform_flags(), "-x", "objective-c++-header", str(header),
                    "-o", str(made)], check=True)
    return made


def rect(*numbers):
    return RECT.format(*numbers)


def button(name="box", cell='title="known"', inside="", frame="", in_cell="", attributes=""):
    return (f'<button id="{name}" {attributes}>{frame}<buttonCell key="cell" {cell}>{in_cell}'
            f"</buttonCell>{inside}</button>\n")


class SampleInterface(SampleBuild):
    """A test with the class Tab and a string table whose only key is "known"."""

    # What the compiler has read, by its sources: reading the platform's headers takes long.
    read = {}

    def setUp(self):
        super().setUp()
        self.write("windows/Tab.h", HEADER)
        self.write("resources/en.lproj/Localizable.strings", '"known" = "Known";\n')

    def interface(self, *objects, name="A"):
        self.write(f"resources/{name}.xib", HEAD + "".join(objects) + TAIL)

    def classes(self):
        """What the sources declare, with every header included somewhere."""
        headers = sorted(path.relative_to(self.root) for path in self.root.glob("*/*.h"))
        self.write("windows/headers.mm", "".join(f'#import "{path}"\n' for path in headers))
        sources = sorted(self.root.glob("*/*.mm"))
        key = tuple((str(path), (self.root / path).read_text()) for path in headers) + tuple(
            (str(path.relative_to(self.root)), path.read_text()) for path in sources)
        if key not in self.read:
            build = self.configure("-include-pch", str(precompiled_platform()))
            self.read[key] = objc_classes.program_classes(self.root, build)
        return self.read[key]

    def lint(self):
        return interface_files.check(self.root, self.classes())

    def findings(self, *objects):
        """What is found in a file of these objects."""
        self.interface(*objects)
        return self.lint()

    def passes(self, *objects):
        self.assertEqual(self.findings(*objects), [])

    def fails(self, line, objects, *parts):
        """Exactly one finding, in the given line of the objects, counted from 1."""
        self.assert_finds(self.findings(objects), f"resources/A.xib:{FIRST + line - 1}:", *parts)
