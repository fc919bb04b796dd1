"""CTest gets each test of a program once, and those that wait long in short parts."""

import os
import re
import subprocess
import tempfile
import unittest
from pathlib import Path

SCRIPT = Path(__file__).resolve().parents[2] / "cmake" / "ListTestSuites.cmake"

PROGRAM = """#!/bin/sh
cat <<END
Short.
  One
  Two
Row/Long.
  Works/First  # GetParam() = First, waits 30 s
  Works/Second  # GetParam() = Second
  Works/Third  # GetParam() = Third, waits 15 s
Last.
  One
END
[ -z "$CHECK_THOROUGHLY" ] || echo "  Thorough"
"""


class TestSuites(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="suites-")
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)
        program = self.folder / "program"
        program.write_text(PROGRAM)
        program.chmod(0o755)

    def listed(self, thorough="FALSE", environment=None, **values):
        """The filter and the cost of each test of CTest, by its name."""
        values = {"size": 20, "alone": "", "waits": "", "prefix": "", "seconds": 1,
                  "timeout": 60, **values}
        defines = [part for key, value in values.items() for part in ("-D", f"{key}={value}")]
        tests = self.folder / "tests.cmake"
        subprocess.run(["cmake", "-D", f"program={self.folder}/program", "-D", f"tests={tests}",
                        "-D", f"thorough={thorough}", *defines, "-P", SCRIPT], check=True,
                       env={**os.environ, **(environment or {})})
        text = tests.read_text()
        filters = dict(re.findall(r"add_test\(\[==\[(.*?)\]==\].*--gtest_filter=(.*?)\]==\]\)",
                                  text))
        costs = dict(re.findall(r"properties\(\[==\[(.*?)\]==\].* COST (\d+)\)", text))
        self.assertEqual(filters.keys(), costs.keys())
        return {name: (filters[name], int(costs[name])) for name in filters}

    def test_suites_share_a_process_as_long_as_they_are_short(self):
        self.assertEqual(self.listed(size=60),
                         {"Short+Row/Long+Last": ("Short.*:Row/Long.*:Last.*", 51)})

    def test_what_a_test_waits_counts(self):
        self.assertEqual(self.listed(size=40), {
            "Row/Long.1-2": ("Row/Long.Works/First:Row/Long.Works/Second", 32),
            "Short+Row/Long.3-3+Last": ("Short.*:Row/Long.Works/Third:Last.*", 19)})

    def test_a_test_that_waits_longer_than_a_part_is_one_by_itself(self):
        listed = self.listed(size=20)
        self.assertEqual(listed["Row/Long.1-1"], ("Row/Long.Works/First", 31))

    def test_each_test_of_a_suite_that_is_to_be_alone_is_one_by_itself(self):
        listed = self.listed(alone="Long", size=60)
        self.assertEqual(listed["Row/Long.Works/Second"], ("Row/Long.Works/Second", 60))
        self.assertEqual(listed["Short+Last"], ("Short.*:Last.*", 3))

    def test_a_part_costs_what_its_tests_take(self):
        self.assertEqual(self.listed(size=60, seconds=5)["Short+Row/Long+Last"][1], 255)

    def test_what_a_suite_waits_is_added_to_the_cost_of_what_it_is_in(self):
        self.assertEqual(self.listed(size=60, waits="Others 50 Row/Long 7 Last 20"),
                         {"Short+Row/Long+Last": ("Short.*:Row/Long.*:Last.*", 78)})

    def test_names_begin_with_the_prefix(self):
        self.assertEqual(list(self.listed(size=60, prefix="faults.")),
                         ["faults.Short+Row/Long+Last"])

    def test_a_thorough_check_has_the_tests_of_one_however_it_was_built(self):
        self.assertEqual(self.listed(size=60, thorough="TRUE")["Short+Row/Long+Last"][1], 52)
        listed = self.listed(size=60, environment={"CHECK_THOROUGHLY": "1"})
        self.assertEqual(listed["Short+Row/Long+Last"][1], 51)
