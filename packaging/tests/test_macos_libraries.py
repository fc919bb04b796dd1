#!/usr/bin/env python3
"""The stubs of the closed libraries that the Mac's program is linked with."""

import re
import subprocess
import tempfile
import unittest
from pathlib import Path

from macos_build import ROOT, read_presets, write

LIBRARIES = ROOT / "packaging/macos/libraries"


class Stubs(unittest.TestCase):
    """The closed libraries as the linker sees them."""

    FUNCTIONS = re.findall(r"^int (Bv\w+)\(", (ROOT / "app/BVSyncEngine.h").read_text(),
                           re.MULTILINE)

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)
        write(self.folder / "libSystem.tbd", "--- !tapi-tbd-v2\n"
              "archs: [ x86_64, arm64 ]\nplatform: macosx\n"
              "install-name: /usr/lib/libSystem.B.dylib\n"
              "exports:\n  - archs: [ x86_64, arm64 ]\n    symbols: [ dyld_stub_binder ]\n...\n")

    def link(self, architecture, *functions):
        calls = "".join(f"int {name}(); result += {name}();" for name in functions)
        write(self.folder / "program.c", f"int main() {{ int result = 0; {calls} return result; }}")
        program = self.folder / "program"
        target = f"--target={architecture}-apple-macos11"
        subprocess.run(["clang", target, "-Wno-everything", "-c", self.folder / "program.c",
                        "-o", self.folder / "program.o"], check=True)
        done = subprocess.run(
            ["lld", "-flavor", "darwin", "-arch", architecture, "-o", program,
             "-platform_version", "macos", "11.0", "11.0", self.folder / "program.o",
             self.folder / "libSystem.tbd",
             LIBRARIES / "libBVSyncEngine.I.tbd", LIBRARIES / "libBVIPC.I.tbd"],
            text=True, check=False, stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
        return done.returncode, done.stdout, program

    def test_all_functions_link_on_the_processors_that_this_linker_knows(self):
        self.assertEqual(len(self.FUNCTIONS), 5)
        for architecture in ("x86_64", "arm64"):
            with self.subTest(architecture):
                code, output, program = self.link(architecture, *self.FUNCTIONS)
                self.assertEqual((code, output), (0, ""))
                loads = subprocess.run(["llvm-objdump", "--macho", "--dylibs-used", program],
                                       text=True, check=True, stdout=subprocess.PIPE).stdout
                for library in ("BVSyncEngine", "BVIPC"):
                    self.assertIn(f"/usr/local/lib/lib{library}.I.dylib (compatibility version"
                                  " 0.0.0", loads)

    def test_another_function_does_not_link(self):
        code, output, _ = self.link("x86_64", "BvGetFolderStateByName")
        self.assertNotEqual(code, 0)
        self.assertIn("undefined symbol: _BvGetFolderStateByName", output)

    def test_they_have_these_functions_for_every_processor_of_a_preset(self):
        presets = read_presets(ROOT, "configurePresets")
        architectures = {name for preset in ("macos", "macos-current") for name in
                         presets[preset]["cacheVariables"]["CMAKE_OSX_ARCHITECTURES"].split(";")}
        for library, functions in (("BVSyncEngine", self.FUNCTIONS), ("BVIPC", [])):
            text = (LIBRARIES / f"lib{library}.I.tbd").read_text(encoding="utf-8")
            for listed in re.findall(r"archs: +\[ (.*?) \]", text):
                self.assertEqual(set(listed.split(", ")), architectures)
            symbols = re.findall(r"\b_(Bv\w+)", text)
            self.assertEqual(sorted(symbols), sorted(functions))


if __name__ == "__main__":
    unittest.main()
