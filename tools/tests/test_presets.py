"""The presets of this project, and whether the build follows them."""

import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

TOOLS = Path(__file__).resolve().parents[1]
ROOT = TOOLS.parent
sys.path.insert(0, str(TOOLS))

from presets import read_presets  # noqa: E402  its place is known only now

WARNING_AS_ERROR = "CMAKE_COMPILE_WARNING_AS_ERROR"
PROJECT = f"""cmake_minimum_required(VERSION 3.25)
project(sample LANGUAGES CXX)
set(SANITIZE "")
include({ROOT}/cmake/Options.cmake)
add_library(sample OBJECT sample.cpp)
target_link_libraries(sample PRIVATE project::options)
"""


class ConfigurePresets(unittest.TestCase):
    def setUp(self):
        self.presets = read_presets(ROOT, "configurePresets")

    def test_a_warning_is_an_error_to_those_who_work_here(self):
        for name in ("default", "asan", "tsan", "fuzz", "coverage"):
            self.assertEqual(self.presets[name]["cacheVariables"].get(WARNING_AS_ERROR), "ON", name)

    def test_it_is_none_to_those_who_make_packages_or_build_on_the_mac(self):
        for name in ("package", "macos", "macos-current"):
            self.assertNotIn(WARNING_AS_ERROR, self.presets[name]["cacheVariables"], name)


class Warnings(unittest.TestCase):
    """A source with a warning, with this project's options."""

    def builds(self, warning_as_error):
        with tempfile.TemporaryDirectory(prefix="presets-") as folder:
            Path(folder, "CMakeLists.txt").write_text(PROJECT)
            Path(folder, "sample.cpp").write_text("void sample() { int unused; }\n")
            subprocess.run(["cmake", "-S", folder, "-B", f"{folder}/build", "-G", "Ninja",
                            "-D", f"{WARNING_AS_ERROR}={warning_as_error}"],
                           check=True, capture_output=True)
            done = subprocess.run(["cmake", "--build", f"{folder}/build"], capture_output=True,
                                  text=True)
        self.assertIn("unused", done.stdout)
        return done.returncode == 0

    def test_they_end_the_build_where_the_preset_says_so(self):
        self.assertFalse(self.builds("ON"))

    def test_they_are_told_and_no_more_where_it_does_not(self):
        self.assertTrue(self.builds("OFF"))


class TestPresets(unittest.TestCase):
    def setUp(self):
        presets = read_presets(ROOT, "testPresets")
        self.presets = {name: preset for name, preset in presets.items() if "hidden" not in preset}

    def test_every_build_with_tests_has_one(self):
        self.assertEqual({preset["configurePreset"] for preset in self.presets.values()},
                         {"default", "asan", "tsan", "coverage"})

    def test_each_tells_of_failures_and_has_limits(self):
        for name, preset in self.presets.items():
            with self.subTest(name):
                self.assertTrue(preset["output"]["outputOnFailure"])
                self.assertEqual(preset["execution"]["noTestsAction"], "error")
                self.assertGreater(preset["execution"]["jobs"], 0)
                self.assertGreater(preset["execution"]["timeout"], 0)

    def test_every_case_is_run_by_the_thorough_ones_only(self):
        thorough = {name for name, preset in self.presets.items()
                    if "CHECK_THOROUGHLY" in preset.get("environment", {})}
        self.assertEqual(thorough, {"thorough", "asan-thorough", "tsan-thorough"})


if __name__ == "__main__":
    unittest.main()
