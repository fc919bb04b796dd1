"""What is kept of the tests that fail."""

import json
import os
import re
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


class Build(unittest.TestCase):
    """A project with a build, to which a test adds tests."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="run-tests-")
        self.addCleanup(folder.cleanup)
        self.source = Path(folder.name).resolve() / "project"
        self.build = self.source / "build"
        self.build.mkdir(parents=True)
        (self.build / "CMakeCache.txt").touch()
        self.write_presets(timeout=60)
        self.failed = self.build / "failed"

    def write_presets(self, timeout):
        """The presets "default", and "thorough", which sets a variable."""
        folder = {"name": "folder", "hidden": True, "binaryDir": "${sourceDir}/build"}
        build = {"name": "build", "generator": "Ninja", "inherits": "folder"}
        default = {"name": "default", "configurePreset": "build",
                   "execution": {"noTestsAction": "error", "timeout": timeout}}
        every = {"name": "every", "hidden": True, "environment": {"CHECK_THOROUGHLY": "1"}}
        thorough = {"name": "thorough", "inherits": ["default", "every"]}
        (self.source / "CMakePresets.json").write_text(json.dumps(
            {"version": 4, "configurePresets": [folder, build],
             "testPresets": [default, every, thorough]}))

    def add_test(self, name, *command, **properties):
        with open(self.build / "CTestTestfile.cmake", "a", encoding="utf-8") as file:
            file.write(f"add_test({name} {' '.join(map(str, command))})\n")
            for key, value in properties.items():
                file.write(f'set_tests_properties({name} PROPERTIES {key} "{value}")\n')

    def add(self, name, text, **properties):
        program = self.build / name
        program.write_text(text, encoding="utf-8")
        program.chmod(0o755)
        self.add_test(name, program, **properties)

    def run_tests(self, *arguments, preset="default", anew=False, **environment):
        # This test itself may be one of a run that asks for every case.
        plain = {key: value for key, value in os.environ.items() if key != "CHECK_THOROUGHLY"}
        return subprocess.run([PROGRAM, *(["--anew"] if anew else []), preset, *arguments],
                              cwd=self.source, capture_output=True, text=True,
                              env={**plain, **environment})


class FailedTests(Build):
    def setUp(self):
        super().setUp()
        self.add("suite", SUITE)
        self.add("script", "#!/bin/sh\necho no such package; exit 3\n")
        self.add("fine", "#!/bin/sh\nexit 0\n")

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

    def test_the_command_keeps_what_a_program_is_started_with(self):
        suite = self.build / "suite"
        self.add_test("in_session", "/usr/bin/env", suite, "--gtest_filter=Of/*:Windows.*")
        self.run_tests("-R", "in_session")
        self.assertIn(f"/usr/bin/env {suite} --gtest_filter=Windows.Crash\n",
                      (self.failed / "Windows.Crash" / "command").read_text())

    def test_the_folders_are_told(self):
        self.assertIn(f"failed: {self.failed / 'script'} (command, log)", self.run_tests().stdout)

    def test_what_failed_before_is_gone_when_everything_passes(self):
        self.run_tests()
        self.assertEqual(self.run_tests("-R", "fine").returncode, 0)
        self.assertFalse(self.failed.exists())


class Presets(Build):
    def test_one_that_is_not_there_is_told(self):
        done = self.run_tests(preset="other")
        self.assertEqual(done.returncode, 1)
        self.assertIn('no test preset "other"', done.stderr)

    def test_its_limits_hold(self):
        self.add("slow", "#!/bin/sh\nexec sleep 60\n")
        self.write_presets(timeout=1)
        self.assertIn("***Timeout", self.run_tests().stdout)

    def test_that_there_are_no_tests_is_an_error(self):
        self.add("one", "#!/bin/sh\n")
        self.assertNotEqual(self.run_tests("-R", "two").returncode, 0)

    def test_its_variables_reach_the_tests(self):
        self.add("one", "#!/bin/sh\n[ \"$CHECK_THOROUGHLY\" = 1 ]\n")
        self.assertEqual(self.run_tests(preset="thorough").returncode, 0)
        self.assertNotEqual(self.run_tests().returncode, 0)


class PassedTests(Build):
    """Whether a test that passed is run once more."""

    def compile(self, name, text):
        """A program of the build, with what a debugger needs."""
        source = self.source / f"{name}.c"
        source.write_text(text, encoding="utf-8")
        subprocess.run(["clang", "-g", "-o", str(self.build / name), str(source)], check=True)

    def ran(self, *arguments, **options):
        """The tests that are run now."""
        said = self.run_tests(*arguments, **options).stdout
        return sorted(set(re.findall(r"^ *Start +\d+: (\S+)$", said, re.MULTILINE)))

    def add_compiled(self, name, text="int main(void) { return 0; }"):
        self.compile(name, text)
        self.add_test(name, self.build / name)

    def test_it_is_not_while_nothing_has_changed(self):
        self.add_compiled("one")
        self.assertEqual(self.ran(), ["one"])
        again = self.run_tests()
        self.assertEqual(again.returncode, 0)
        self.assertIn("1 of 1 tests passed before", again.stdout)
        self.assertEqual(self.ran(), [])

    def test_it_is_when_asked_for(self):
        self.add_compiled("one")
        self.assertEqual(self.ran(), ["one"])
        self.assertEqual(self.ran(anew=True), ["one"])

    def test_one_that_failed_is_and_no_other(self):
        self.add_compiled("one")
        self.add_compiled("two", "int main(void) { return 3; }")
        self.assertEqual(self.ran(), ["one", "two"])
        self.assertEqual(self.ran(), ["two"])
        self.assertNotEqual(self.run_tests().returncode, 0)

    def test_one_that_failed_when_run_anew_has_not_passed(self):
        result = self.source / "result"
        result.write_text("0")
        self.add("script", f"#!/bin/sh\nexit $(cat {result})\n",
                 REQUIRED_FILES=self.build / "script")
        self.assertEqual(self.ran(), ["script"])
        result.write_text("3")
        self.assertEqual(self.ran(), [])
        self.assertEqual(self.ran(anew=True), ["script"])
        self.assertEqual(self.ran(), ["script"])

    def test_it_is_when_its_program_has_changed(self):
        self.add_compiled("one")
        self.add_compiled("two")
        self.ran()
        self.compile("two", "int main(void) { return 2 - 2; } int more;")
        self.assertEqual(self.ran(), ["two"])

    def test_it_is_not_when_only_a_comment_has_changed(self):
        self.add_compiled("one")
        self.ran()
        self.compile("one", "// Ends.\nint main(void) { return 0; }")
        self.assertEqual(self.ran(), [])

    def test_it_is_when_a_tool_that_starts_its_program_has_changed(self):
        tool = self.source / "desktop"
        tool.write_text("#!/bin/sh\nexec \"$@\"\n")
        tool.chmod(0o755)
        self.compile("one", "int main(void) { return 0; }")
        self.add_test("one", tool, self.build / "one", "--all")
        self.assertEqual(self.ran(), ["one"])
        (self.source / "note").write_text("")
        self.assertEqual(self.ran(), [])
        tool.write_text("#!/bin/sh\nexec \"$1\"\n")
        self.assertEqual(self.ran(), ["one"])
        self.compile("one", "int main(void) { return 1 - 1; } int more;")
        self.assertEqual(self.ran(), ["one"])

    def test_it_is_when_a_program_that_its_program_starts_has_changed(self):
        self.compile("agent", "int main(void) { return 0; }")
        self.compile("client", f'const char *agent = "{self.build}/agent";'
                               " int main(void) { return 0; }")
        self.add_compiled("one", f'const char *client = "{self.build}/client";'
                                 " int main(void) { return 0; }")
        self.ran()
        self.assertEqual(self.ran(), [])
        self.compile("agent", "int main(void) { return 1; }")
        self.assertEqual(self.ran(), ["one"])

    def test_it_is_when_a_file_that_its_program_reads_has_changed(self):
        table = self.source / "table"
        corpus = self.source / "corpus"
        corpus.mkdir()
        table.write_text("1")
        self.add_compiled("file", f'const char *path = "{table}"; int main(void) {{ return 0; }}')
        self.add_compiled("folder", f'const char *path = "{corpus}";'
                                    " int main(void) { return 0; }")
        self.ran()
        table.write_text("2")
        self.assertEqual(self.ran(), ["file"])
        (corpus / "new").write_text("")
        self.assertEqual(self.ran(), ["folder"])

    def test_it_is_when_a_resource_of_its_bundle_has_changed(self):
        bundle = self.build / "one.app"
        (bundle / "Resources").mkdir(parents=True)
        texts = bundle / "Resources" / "texts"
        texts.write_text("Copy")
        self.compile("one", "int main(void) { return 0; }")
        (self.build / "one").rename(bundle / "one")
        self.add_test("one", bundle / "one")
        self.assertEqual(self.ran(), ["one"])
        texts.write_text("Copy link")
        self.assertEqual(self.ran(), ["one"])
        self.assertEqual(self.ran(), [])

    def test_it_is_when_a_library_of_the_project_has_changed(self):
        library = self.build / "liblink.so"

        def make(text):
            source = self.source / "link.c"
            source.write_text(text)
            subprocess.run(["clang", "-shared", "-fPIC", "-o", str(library), str(source)],
                           check=True)

        make("int link_count(void) { return 0; }")
        source = self.source / "one.c"
        source.write_text("int link_count(void); int main(void) { return link_count(); }")
        subprocess.run(["clang", "-o", str(self.build / "one"), str(source), str(library),
                        f"-Wl,-rpath,{self.build}"], check=True)
        self.add_test("one", self.build / "one")
        self.assertEqual(self.ran(), ["one"])
        self.assertEqual(self.ran(), [])
        make("int link_count(void) { return 1; }")
        self.assertEqual(self.ran(), ["one"])

    def test_a_script_that_declares_nothing_is_when_any_file_of_the_project_has_changed(self):
        self.add("script", "#!/bin/sh\n")
        note = self.source / "folder" / "note"
        note.parent.mkdir()
        note.write_text("1")
        self.assertEqual(self.ran(), ["script"])
        self.assertEqual(self.ran(), [])
        note.write_text("2")
        self.assertEqual(self.ran(), ["script"])

    def test_one_that_declares_its_files_is_when_one_of_them_has_changed(self):
        tools = self.source / "tools"
        tools.mkdir()
        (tools / "lint").write_text("1")
        self.add("script", "#!/bin/sh\n", REQUIRED_FILES=tools)
        self.assertEqual(self.ran(), ["script"])
        (self.source / "note").write_text("")
        self.assertEqual(self.ran(), [])
        (tools / "lint").write_text("2")
        self.assertEqual(self.ran(), ["script"])

    def test_it_is_when_it_is_to_do_more(self):
        self.add_compiled("one")
        self.assertEqual(self.ran(), ["one"])
        self.assertEqual(self.ran(CHECK_THOROUGHLY="1"), ["one"])

    def test_it_is_when_its_preset_asks_for_more(self):
        self.add_compiled("one")
        self.assertEqual(self.ran(), ["one"])
        self.assertEqual(self.ran(preset="thorough"), ["one"])
        self.assertEqual(self.ran(preset="thorough"), [])

    def test_only_those_that_were_asked_for_are(self):
        self.add_compiled("one")
        self.add_compiled("two")
        self.assertEqual(self.ran("-R", "two"), ["two"])
        self.assertEqual(self.ran(), ["one"])

    def test_of_those_that_were_asked_for_only_the_changed_ones_are(self):
        for name in ("one", "two", "three"):
            self.add_compiled(name)
        self.ran()
        self.compile("one", "int main(void) { return 1 - 1; } int more;")
        self.compile("three", "int main(void) { return 1 - 1; } int more;")
        self.assertEqual(self.ran("-R", "two|three", "-j2"), ["three"])
        self.assertEqual(self.ran(), ["one"])


if __name__ == "__main__":
    unittest.main()
