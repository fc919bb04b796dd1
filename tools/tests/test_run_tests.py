"""What is kept of the tests that fail."""

import subprocess
import tempfile
import unittest
from pathlib import Path

PROGRAM = str(Path(__file__).resolve().parents[1] / "run-tests")

# Says what a program of GoogleTest says, and leaves a picture.
SUITE = """#!/bin/sh
echo "[ RUN      ] Windows.Open"
echo "[       OK ] Windows.Open (1 ms)"
echo "[ RUN      ] Of/Windows.Close/en"
mkdir -p "$FAILED_TESTS/Of-Windows.Close-en"
touch "$FAILED_TESTS/Of-Windows.Close-en/screen.png"
echo "Windows.mm:7: Failure"
echo "[  FAILED  ] Of/Windows.Close/en, where GetParam() = en (3 ms)"
echo "[ RUN      ] Windows.Crash"
exit 1
"""


class RunTests(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="run-tests-")
        self.addCleanup(folder.cleanup)
        self.build = Path(folder.name).resolve()
        self.failed = self.build / "failed"
        self.add("suite", SUITE)
        self.add("script", "#!/bin/sh\necho no such package; exit 3\n")
        self.add("fine", "#!/bin/sh\nexit 0\n")

    def add(self, name, text):
        program = self.build / name
        program.write_text(text, encoding="utf-8")
        program.chmod(0o755)
        with open(self.build / "CTestTestfile.cmake", "a", encoding="utf-8") as file:
            file.write(f"add_test({name} {program})\n")

    def run_tests(self, *arguments):
        return subprocess.run([PROGRAM, str(self.build), *arguments], capture_output=True, text=True)

    def test_each_failed_test_has_its_command_log_and_picture(self):
        self.assertNotEqual(self.run_tests().returncode, 0)
        self.assertEqual(sorted(path.name for path in self.failed.iterdir()),
                         ["Of-Windows.Close-en", "Windows.Crash", "script"])
        close = self.failed / "Of-Windows.Close-en"
        self.assertEqual(sorted(path.name for path in close.iterdir()),
                         ["command", "log", "screen.png"])
        self.assertIn("Windows.mm:7: Failure", (close / "log").read_text())
        self.assertIn(f"{self.build}/suite --gtest_filter=Of/Windows.Close/en",
                      (close / "command").read_text())

    def test_the_command_runs_the_test_alone(self):
        self.run_tests()
        again = subprocess.run([self.failed / "script" / "command"], capture_output=True, text=True)
        self.assertNotEqual(again.returncode, 0)
        self.assertIn("no such package", again.stdout)
        self.assertNotIn("suite", again.stdout)

    def test_the_folders_are_told(self):
        self.assertIn(f"failed: {self.failed / 'script'} (command, log)", self.run_tests().stdout)

    def test_what_failed_before_is_gone_when_everything_passes(self):
        self.run_tests()
        self.assertEqual(self.run_tests("-R", "fine").returncode, 0)
        self.assertFalse(self.failed.exists())


if __name__ == "__main__":
    unittest.main()
