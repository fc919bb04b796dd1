"""Programs built with a sanitizer find real faults and no others, however they are started."""

import os
import subprocess
import tempfile
import unittest
from pathlib import Path

from sample import TOOLS, platform_flags

SANITIZERS = TOOLS / "sanitizers"
PROGRAM = """#import <Foundation/Foundation.h>
#include <thread>
int total;
int main(int count, char **) {
  @autoreleasepool {
    // Starting the platform leaves the runtime's tables, which are what the suppressions are for.
    [NSString stringWithFormat:@"%d", count];
    if (count == 2) [[NSObject alloc] init];
    if (count == 3) total = 2147483647 + (count - 2) * count;
    if (count == 4) {
      std::thread other([] { for (int i = 0; i < 100000; ++i) ++total; });
      for (int i = 0; i < 100000; ++i) ++total;
      other.join();
    }
  }
}
"""


def built(folder, sanitizer):
    source, program = Path(folder, "program.mm"), Path(folder, sanitizer.partition(",")[0])
    source.write_text(PROGRAM)
    libraries = subprocess.run(["gnustep-config", "--base-libs"], check=True, capture_output=True,
                               text=True).stdout.split()
    runtime = subprocess.run(["gcc", "-print-file-name=libobjc.so"], check=True,
                             capture_output=True, text=True).stdout.strip()
    flags = ["-g", "-w", f"-fsanitize={sanitizer}", "-fno-sanitize-recover=undefined"]
    defaults = Path(folder, "defaults.o")
    subprocess.run(["clang++", "-std=c++20", *flags,
                    f'-DSANITIZER_SUPPRESSIONS="{SANITIZERS}"', "-c",
                    str(SANITIZERS / "defaults.cpp"), "-o", str(defaults)], check=True)
    subprocess.run(["clang++", *flags, *platform_flags(), str(source), str(defaults), "-o",
                    str(program), f"-L{Path(runtime).parent}", *libraries], check=True)
    return str(program)


class Sanitizers(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory(prefix="sanitizers-")
        cls.addClassCleanup(folder.cleanup)
        cls.address = built(folder.name, "address,undefined")
        cls.thread = built(folder.name, "thread")

    def report(self, program, faults, **options):
        """What the program says with so many arguments and these variables, and its exit code."""
        clean = {name: value for name, value in os.environ.items() if "SAN_OPTIONS" not in name}
        result = subprocess.run(
            [str(TOOLS / "private-desktop"), "--no-display", program, *["x"] * faults],
            capture_output=True, text=True, env={**clean, **options}, timeout=120)
        return result.returncode, result.stderr

    def test_what_is_the_platforms_is_not_reported(self):
        self.assertEqual(self.report(self.address, 0), (0, ""))
        self.assertEqual(self.report(self.thread, 0), (0, ""))

    def test_a_leaked_object_is_reported(self):
        code, text = self.report(self.address, 1)
        self.assertNotEqual(code, 0)
        self.assertIn("detected memory leaks", text)

    def test_a_leaked_object_is_reported_with_its_place_where_stacks_are_whole(self):
        code, text = self.report(self.address, 1, ASAN_OPTIONS="fast_unwind_on_malloc=0")
        self.assertNotEqual(code, 0)
        self.assertIn("program.mm:8", text)

    def test_undefined_behaviour_is_reported_with_its_callers(self):
        code, text = self.report(self.address, 2)
        self.assertNotEqual(code, 0)
        self.assertIn("program.mm:9", text)
        self.assertIn("#0 ", text)

    def test_a_race_is_reported(self):
        code, text = self.report(self.thread, 3)
        self.assertNotEqual(code, 0)
        self.assertIn("data race", text)
