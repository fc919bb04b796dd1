#!/usr/bin/env python3
"""The scripts that run on the Mac, whose bash is 3.2, the texts and rights that they go with, and
what the documents say of all this.

MACOS_BASH may name a bash of that version: then the scripts run in it."""

import os
import plistlib
import re
import shlex
import subprocess
import tempfile
import unittest
from pathlib import Path

import bash_3_2
from macos_build import ROOT, TOOLS, USAGE, write
from string_tables import LANGUAGES, REFERENCE, entries_of, text_of, unescaped

MACOS = ROOT / "packaging/macos"
BASH = os.environ.get("MACOS_BASH", "/bin/bash")


def run(script, *arguments, **variables):
    return subprocess.run([BASH, MACOS / script, *arguments], text=True, capture_output=True,
                          check=False, env={"PATH": os.environ["PATH"], **variables})


class Signing(unittest.TestCase):

    def test_it_does_nothing_and_names_everything_that_is_missing(self):
        done = run("sign", "Some.app")
        self.assertEqual((done.returncode, done.stdout), (1, ""))
        for need in ("nothing has been done", "a Mac", "codesign", "xcrun", "SIGN_IDENTITY",
                     "NOTARY_PROFILE", "Contents/Info.plist"):
            self.assertIn(need, done.stderr)

    def test_it_does_not_ask_for_what_there_is(self):
        done = run("sign", "Some.app", SIGN_IDENTITY="Somebody", NOTARY_PROFILE="some")
        self.assertEqual(done.returncode, 1)
        self.assertNotIn("SIGN_IDENTITY", done.stderr)
        self.assertNotIn("NOTARY_PROFILE", done.stderr)

    def test_it_wants_one_bundle(self):
        self.assertEqual(run("sign").returncode, 2)
        self.assertEqual(run("sign", "One.app", "Two.app").returncode, 2)

    def test_it_signs_before_it_submits_and_packs_again_after_the_ticket(self):
        done = run("sign", "--print", "Some.app/", SIGN_IDENTITY="Somebody", NOTARY_PROFILE="some")
        commands = [shlex.split(line) for line in done.stdout.splitlines()]
        self.assertEqual([command[0] for command in commands],
                         ["xcrun", "codesign", "codesign", "ditto", "xcrun", "xcrun", "ditto",
                          "spctl"])
        self.assertEqual(commands[0][1:], ["strip", "-S", "Some.app/Contents/MacOS/ContextMenuApp"])
        self.assertIn("Somebody", commands[1])
        self.assertEqual(commands[4][1:4], ["notarytool", "submit", "Some.zip"])
        self.assertEqual(commands[5][1], "stapler")

    def test_its_commands_run_in_that_order_until_one_fails(self):
        with tempfile.TemporaryDirectory() as folder:
            write(Path(folder) / "Some.app/Contents/Info.plist", "")
            tools = Path(folder) / "tools"
            for tool in ("codesign", "ditto", "spctl", "xcrun", "security", "uname"):
                write(tools / tool, '#!/bin/sh\nname=${0##*/}\n'
                      '[ "$name" = uname ] && echo Darwin\n'
                      '[ "$name" = security ] && echo \'1) AB "Developer ID: Some"\'\n'
                      'echo "$name $1" >>"$LOG"\n[ "$name $1" != "$FAILS" ]\n')
                (tools / tool).chmod(0o755)
            log = Path(folder) / "log"
            variables = {"PATH": f"{tools}:{os.environ['PATH']}", "LOG": str(log),
                         "SIGN_IDENTITY": "Developer ID: Some", "NOTARY_PROFILE": "some"}
            done = run("sign", f"{folder}/Some.app", **variables)
            self.assertEqual((done.returncode, done.stderr), (0, ""))
            self.assertIn("Some.zip is ready", done.stdout)
            order = log.read_text(encoding="utf-8").splitlines()
            self.assertEqual(order[-8:], ["xcrun strip", "codesign --force", "codesign --verify",
                                          "ditto -c", "xcrun notarytool", "xcrun stapler",
                                          "ditto -c", "spctl --assess"])
            log.unlink()
            done = run("sign", f"{folder}/Some.app", FAILS="xcrun notarytool", **variables)
            self.assertNotEqual(done.returncode, 0)
            self.assertTrue(log.read_text(encoding="utf-8").endswith("xcrun notarytool\n"))

    def test_signed_with_the_hardened_runtime_it_may_still_ask_the_finder(self):
        with open(MACOS / "ContextMenuApp.entitlements", "rb") as file:
            self.assertIs(plistlib.load(file)["com.apple.security.automation.apple-events"], True)

    def test_why_the_finder_is_asked_is_told_in_every_language(self):
        with open(ROOT / "resources" / "Info.plist.in", "rb") as file:
            info = plistlib.load(file)
        told = {}
        for language in LANGUAGES:
            text = text_of(MACOS / f"{language}.lproj" / "InfoPlist.strings")
            told[language] = {key: unescaped(value) for _, key, value in entries_of(text)}[USAGE]
            self.assertIn("Finder" if language != "zh-Hans" else "访达", told[language])
        self.assertEqual(told[REFERENCE], info[USAGE])
        self.assertEqual(len(set(told.values())), len(LANGUAGES))


class CxxRuntime(unittest.TestCase):
    """The C++ library for old systems is built as the program is: for the same processors and
    system, with the same compiler, linker and SDK."""

    def test_it_does_nothing_and_names_everything_that_is_missing(self):
        done = run("build-cxx-runtime", "sources", "folder")
        self.assertEqual((done.returncode, done.stdout), (1, ""))
        for need in ("nothing has been done", "MACOS_XCODE", "MACOS_LLVM", "sources"):
            self.assertIn(need, done.stderr)

    def test_it_wants_two_folders(self):
        self.assertEqual(run("build-cxx-runtime", "one").returncode, 2)
        self.assertEqual(run("build-cxx-runtime", "--help").returncode, 0)

    def test_it_configures_builds_and_installs(self):
        done = run("build-cxx-runtime", "--print", "sources/", "some folder", MACOS_XCODE="/xcode",
                   MACOS_LLVM="/llvm")
        configure, build, install = [shlex.split(line) for line in done.stdout.splitlines()]
        settings = dict(word.split("=", 1) for flag, word in zip(configure, configure[1:])
                        if flag == "-D")
        for name, value in {
                "CMAKE_CXX_COMPILER": "/llvm/bin/clang++",
                "CMAKE_INSTALL_PREFIX": "some folder",
                "CMAKE_OSX_ARCHITECTURES": "x86_64;i386",
                "CMAKE_OSX_DEPLOYMENT_TARGET": "10.6",
                "CMAKE_CXX_FLAGS": f"-B/xcode/{TOOLS} -mlinker-version=351.8",
                "LLVM_ENABLE_RUNTIMES": "libcxx;libcxxabi",
                "LIBCXX_ENABLE_SHARED": "OFF", "LIBCXXABI_ENABLE_SHARED": "OFF",
                "LIBCXX_HERMETIC_STATIC_LIBRARY": "ON", "LIBCXXABI_HERMETIC_STATIC_LIBRARY": "ON",
                "LIBCXXABI_USE_LLVM_UNWINDER": "OFF"}.items():
            self.assertEqual(settings[name], value)
        self.assertEqual(build[-2:], ["cxx", "cxxabi"])
        self.assertEqual(install[-2:], ["install-cxx", "install-cxxabi"])


class OldBash(unittest.TestCase):

    SCRIPTS = [path for path in sorted(MACOS.iterdir()) if path.is_file()
               and path.read_bytes().startswith(b"#!/bin/bash\n")]

    def test_the_scripts_for_the_mac_use_nothing_newer(self):
        self.assertEqual([path.name for path in self.SCRIPTS], ["build-cxx-runtime", "sign"])
        for path in self.SCRIPTS:
            with self.subTest(path.name):
                self.assertEqual(bash_3_2.findings(path.read_text(encoding="utf-8")), [])

    def test_what_is_newer_is_found(self):
        for line in ("declare -A map", "local -n name=$1", "mapfile -t lines", "readarray lines",
                     'echo "${name,,}"', 'echo "${name^}"', "printf '%s' \"${*@Q}\"",
                     'echo "${list[-1]}"', "command &>>log", "one |& two", "a) b ;;&", "a) b ;&",
                     "[[ -v name ]]", "[ ! -v name ]", 'printf "%(%F)T"', "wait -n",
                     "exec {log}>file", 'echo "$BASHPID"', "shopt -s globstar", "read -t 0.5 name",
                     "coproc cat", "declare -g name", "echo $'\\u00e4'",
                     'set -eu\nlist=()\nfor name in "${list[@]}"; do :; done'):
            with self.subTest(line):
                self.assertEqual(len(bash_3_2.findings(line)), 1)

    def test_what_it_knows_is_not_found(self):
        for line in ("list=()", "list+=(one)", '[[ $name =~ ^a ]]', "read -r -t 1 name", "a) b ;;",
                     'printf "%q " "$@"', "one | two &", "# declare -A in a comment", "cat <<<text",
                     "echo '${name,,}'", 'echo "${name:-a,b}"', "set -- -v name",
                     'list=()\nfor name in "${list[@]}"; do :; done',
                     'set -u\nlist=()\nif ((${#list[@]})); then\n  echo "${list[@]}"\nfi'):
            with self.subTest(line):
                self.assertEqual(bash_3_2.findings(line), [])


class Documents(unittest.TestCase):
    """Where it is told how to build on the Mac, everything that configuring looks for is named."""

    NAMES = {"xcrun": "Xcode", "Python3": "Python 3"}
    OPTIONAL = {"ccache"}

    def test_every_tool_that_configuring_looks_for_is_named(self):
        rules = "".join(path.read_text(encoding="utf-8") for path in ROOT.glob("cmake/*.cmake")
                        if path.name != "GNUstep.cmake")
        tools = set(re.findall(r"find_program\(\w+ ([\w-]+)|find_package\((\w+)", rules))
        tools = {program or package for program, package in tools}
        self.assertLessEqual({"xcrun", "rsvg-convert", "Python3"}, tools)
        page = (ROOT / "docs/macos.md").read_text(encoding="utf-8")
        readme = (ROOT / "README.md").read_text(encoding="utf-8")
        section = readme[readme.index("## On macOS"):readme.index("## More")]
        for tool in tools:
            self.assertIn(self.NAMES.get(tool, tool), page)
            if tool not in self.OPTIONAL:
                self.assertIn(self.NAMES.get(tool, tool), section)
        needed = re.search(r"cmake_minimum_required\(VERSION ([\d.]+)\)",
                           (ROOT / "CMakeLists.txt").read_text(encoding="utf-8")).group(1)
        for text in (page, section):
            self.assertIn(f"CMake {needed}", text)
            self.assertIn("ibtool", text)

    def test_every_part_of_the_old_toolchain_is_named(self):
        page = (ROOT / "docs/macos.md").read_text(encoding="utf-8")
        for name in ("MACOS_XCODE", "MACOS_LLVM", "MACOS_CXX_RUNTIME", "Xcode 9.4.1", "LLVM 14"):
            self.assertIn(name, page)


if __name__ == "__main__":
    unittest.main()
