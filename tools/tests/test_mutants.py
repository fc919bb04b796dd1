"""Which mutants survive, and which entries of their list are out of date."""

import json
import os
import shutil
import subprocess

from sample import TOOLS, SampleProject

import mutants

TEST = "TEST_F(Windows, Close) {\n}\nTEST_P(Names, AreNames) {\n}\nTYPED_TEST(Tabs, Open) {\n}\n"
SOURCE = "open();\n  close();\nclose(now);\n  open();\nlast();\n"
ENTRY = """# the window stays open
windows/a.mm
-close(now);
+close(never);
> ui_tests Windows.Close
"""


class List(SampleProject):
    """The lint of the list."""

    def setUp(self):
        super().setUp()
        self.write("windows/a.mm", SOURCE)
        self.write("tests/ui/a.mm", TEST)
        self.write("tests/CMakeLists.txt", "add_test_program(ui_tests SOURCES ui/a.mm)\n")

    def findings(self, entry=ENTRY):
        self.write("tests/mutants/windows.txt", entry)
        return mutants.lint(self.root)

    def changed(self, old, new):
        self.assertIn(old, ENTRY)
        return self.findings(ENTRY.replace(old, new))

    def test_what_is_up_to_date_passes(self):
        self.assertEqual(self.findings(), [])

    def test_lines_that_are_not_there_are_found(self):
        self.assert_finds(self.changed("-close(now);", "-close(later);"),
                          "tests/mutants/windows.txt:1", "0 times in windows/a.mm")

    def test_lines_that_are_there_twice_are_found(self):
        self.assert_finds(self.changed("-close(now);", "-open();"), "2 times")

    def test_a_line_that_stays_tells_two_alike_ones_apart(self):
        self.assertEqual(self.changed("-close(now);\n", " close(now);\n-open();\n"), [])

    def test_an_entry_that_changes_nothing_is_found(self):
        self.assert_finds(self.changed("never", "now"), "changes nothing")

    def test_an_entry_without_a_part_is_found(self):
        self.assert_finds(self.changed("# the window stays open\n", ""), "what is wrong")
        self.assert_finds(self.changed("windows/a.mm\n", ""), "names no file")
        self.assert_finds(self.changed("> ui_tests Windows.Close\n", ""), "names no test")

    def test_a_file_that_is_no_source_of_the_application_is_found(self):
        self.assert_finds(self.changed("windows/a.mm", "windows/b.mm"), "windows/b.mm")
        self.assert_finds(self.changed("windows/a.mm", "tests/ui/a.mm"), "tests/ui/a.mm")

    def test_a_program_that_is_not_there_is_found(self):
        self.assert_finds(self.changed("ui_tests", "unit_tests"), 'program of tests "unit_tests"')

    def test_a_test_that_is_not_there_is_found(self):
        self.assert_finds(self.changed("Windows.Close", "Windows.Open"), "Windows.Open")
        self.assert_finds(self.changed("Windows.Close", "Windows.Close:Names.Open"), "Names.Open")
        self.assert_finds(self.changed("Windows.Close", "Windows"), '"Windows"')

    def test_a_test_of_another_program_is_found(self):
        self.write("tests/background/b.mm", "TEST(Loads, End) {\n}\n")
        self.write("tests/CMakeLists.txt", """add_test_program(ui_tests SCREEN
    ALONE Windows
    SOURCES
    ui/a.mm)
add_whole_test_program(background_tests
    background/b.mm)
""")
        self.assertEqual(self.changed("ui_tests Windows.Close", "background_tests Loads.End"), [])
        self.assert_finds(self.changed("Windows.Close", "Loads.End"),
                          'no test "Loads.End" in ui_tests')

    def test_tests_with_a_parameter_or_a_type_are_there(self):
        for name in ("Of/Names.AreNames/Long", "Tabs/Send.Open", "Windows.*", "Windows.Cl*"):
            self.assertEqual(self.changed("Windows.Close", name), [], name)

    def test_each_entry_is_told_by_its_line(self):
        bad = ENTRY.replace("never", "now")
        self.assert_finds(self.findings(ENTRY + "\n" + bad), "tests/mutants/windows.txt:7")

    def test_lines_are_replaced_and_removed_whatever_their_indentation(self):
        entry = ENTRY.replace("-close(now);\n", " close(now);\n-open();\n-last();\n")
        mutant, = mutants.mutants_in("list", entry)
        self.assertEqual(mutant.applied(SOURCE),
                         "open();\n  close();\nclose(now);\nclose(never);\n")


# A program of tests of which each fails when the source lacks its word, and says what GoogleTest
# does. The word "crash" in the source ends it, "hang" makes it hang.
PROGRAM = """#!/bin/sh
name=${1#--gtest_filter=}
word=${name#Words.}
[ "$name" = Words.None ] && exit 0
echo "[ RUN      ] $name"
grep -q crash SOURCE && kill -SEGV $$
grep -q hang SOURCE && sleep 300
if grep -q "$word" SOURCE; then echo "[       OK ] $name (0 ms)"; exit 0; fi
echo "[  FAILED  ] $name (0 ms)"
exit 1
"""
# A "compiler" that rejects the word "error".
CMAKE = """cmake_minimum_required(VERSION 3.25)
project(sample NONE)
add_custom_target(word_tests
    COMMAND sh -c "! grep error ${PROJECT_SOURCE_DIR}/windows/words"
    COMMAND mkdir -p tests
    COMMAND sed "s,SOURCE,${PROJECT_SOURCE_DIR}/windows/words," ${PROJECT_SOURCE_DIR}/program
        > tests/word_tests
    COMMAND chmod +x tests/word_tests VERBATIM)
"""
PRESETS = {"version": 4,
           "configurePresets": [{"name": "default", "generator": "Ninja",
                                 "binaryDir": "${sourceDir}/build"}],
           "buildPresets": [{"name": "default", "configurePreset": "default"}]}


class Survivors(SampleProject):
    """The tool, in a project whose sources are lists of words."""

    def setUp(self):
        super().setUp()
        self.write("CMakeLists.txt", CMAKE)
        self.write("CMakePresets.json", json.dumps(PRESETS))
        self.write("program", PROGRAM)
        self.write("windows/words", "one\ntwo\nthree\n")
        self.write("tests/CMakeLists.txt", "add_test_program(word_tests SOURCES a.mm)\n")
        self.write("tests/a.mm", "".join(f"TEST(Words, {name}) {{\n}}\n"
                                         for name in ("one", "two", "three", "four", "None")))
        for tool in ("mutants", "lint/mutants.py", "lint/named_tests.py", "lint/project.py"):
            self.write(f"tools/{tool}", (TOOLS / tool).read_bytes())
            shutil.copymode(TOOLS / tool, self.root / "tools" / tool)

    def list(self, *entries):
        """Entries of (line, line instead, test that must fail)."""
        self.write("tests/mutants/windows.txt", "\n".join(
            f"# no {line}\nwindows/words\n-{line}\n+{instead}\n> word_tests Words.{test}\n"
            for line, instead, test in entries))

    def mutants(self, *arguments, **environment):
        return subprocess.run([str(self.root / "tools" / "mutants"), *arguments], cwd=self.root,
                              env={**os.environ, **environment}, capture_output=True, text=True)

    def test_what_its_test_notices_is_killed(self):
        self.list(("one", "eins", "one"), ("three", "drei", "three"))
        done = self.mutants()
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertIn("windows/words: no one\n      killed by Words.one", done.stdout)
        self.assertIn("killed by Words.three", done.stdout)
        self.assertRegex(done.stdout, r"all +2 +2\n")

    def test_what_its_test_does_not_notice_survives(self):
        self.list(("one", "eins", "two"), ("two", "zwei", "two"))
        done = self.mutants()
        self.assertEqual(done.returncode, 1)
        self.assertIn("windows/words: no one\n      SURVIVED", done.stdout)
        self.assertIn("killed by Words.two", done.stdout)

    def test_a_crash_kills(self):
        self.list(("one", "crash", "two"))
        done = self.mutants()
        self.assertEqual(done.returncode, 0)
        self.assertIn("killed by end with exit code -11", done.stdout)

    def test_what_does_not_compile_is_not_killed(self):
        self.list(("one", "error", "one"))
        done = self.mutants()
        self.assertEqual(done.returncode, 1)
        self.assertIn("DOES NOT COMPILE", done.stdout)
        log = self.root / "build-mutants" / "logs" / "1"
        self.assertIn("error", log.read_text())

    def test_a_test_that_fails_without_a_mutant_says_nothing(self):
        self.list(("one", "eins", "four"))
        done = self.mutants()
        self.assertEqual(done.returncode, 2)
        self.assertIn("Words.four does not pass without a mutant", done.stderr)

    def test_a_filter_without_a_test_says_nothing(self):
        self.list(("one", "eins", "None"))
        self.assertEqual(self.mutants().returncode, 2)

    def test_a_list_that_is_out_of_date_is_told(self):
        self.list(("five", "six", "one"))
        done = self.mutants()
        self.assertEqual(done.returncode, 2)
        self.assertIn("its lines are 0 times in windows/words", done.stderr)

    def test_a_pattern_selects(self):
        self.list(("one", "eins", "two"), ("two", "zwei", "two"))
        done = self.mutants("no two")
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertNotIn("no one", done.stdout)
        self.assertEqual(self.mutants("nothing like this").returncode, 2)

    def test_the_working_tree_is_not_touched_but_built_as_it_stands(self):
        self.list(("one", "eins", "one"))
        self.assertEqual(self.mutants().returncode, 0)
        source = self.root / "windows" / "words"
        source.write_text("one\nand two\n", encoding="utf-8")
        self.list(("and two", "zwei", "two"))
        self.assertEqual(self.mutants().returncode, 0)
        self.assertEqual(source.read_text(), "one\nand two\n")
        copied = self.root / "build-mutants" / "source" / "windows" / "words"
        self.assertEqual(copied.read_text(), "one\nand two\n")

    def test_what_has_gone_from_the_project_goes_from_the_copy(self):
        self.list(("one", "eins", "one"))
        self.write("windows/more", "more\n")
        self.mutants()
        copied = self.root / "build-mutants" / "source" / "windows" / "more"
        self.assertTrue(copied.exists())
        self.git("rm", "--quiet", "--force", "windows/more")
        self.mutants()
        self.assertFalse(copied.exists())

    def test_a_test_that_hangs_is_ended_and_killed(self):
        tool = self.root / "tools" / "mutants"
        text = tool.read_text(encoding="utf-8")
        self.assertIn("TIMEOUT_SECONDS = 40", text)
        tool.write_text(text.replace("TIMEOUT_SECONDS = 40", "TIMEOUT_SECONDS = 1"),
                        encoding="utf-8")
        self.list(("one", "hang", "two"))
        done = self.mutants()
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertIn("killed by time-out", done.stdout)
