#!/usr/bin/env python3
"""The bundle for the Mac as each preset builds it, with stand-ins for the Mac's tools."""

import functools
import json
import os
import plistlib
import re
import shlex
import subprocess
import tempfile
import unittest
from pathlib import Path

from macos_build import ROOT, SDK, TOOLS, MacBuild, check_bundle
from string_tables import LANGUAGES

LIBRARIES = ROOT / "packaging/macos/libraries"
PRESETS = ("macos-current", "macos")
# The oldest system that there is for a processor, and so what the compiler makes of an older one.
FIRST_SYSTEM = {"arm64": "11.0"}
# No warning is silenced but those that are silenced everywhere, and that about deprecation.
WARNINGS = ["-Wall", "-Wextra", "-Wpedantic", "-Wno-missing-selector-name",
            "-Wno-gnu-conditional-omitted-operand", "-Wno-deprecated-declarations"]

builds = {}


def setUpModule():
    for preset in PRESETS:
        folder = tempfile.TemporaryDirectory(prefix="macos-build-")
        unittest.addModuleCleanup(folder.cleanup)
        builds[preset] = MacBuild(preset, folder.name)
        for done in (builds[preset].configure(), builds[preset].build()):
            if done.returncode:
                raise AssertionError(f"{preset}: {done.stdout}")


def for_each_preset(test):
    """The test once for each preset's build, with the processors and the system that it is for."""
    @functools.wraps(test)
    def run(self):
        for preset, build in builds.items():
            with self.subTest(preset):
                test(self, build, build.settings["CMAKE_OSX_ARCHITECTURES"].split(";"),
                     build.settings["CMAKE_OSX_DEPLOYMENT_TARGET"])
    return run


class Bundle(unittest.TestCase):

    @for_each_preset
    def test_it_is_complete_and_for_the_system_of_the_preset(self, build, _, system):
        self.assertEqual(check_bundle.findings(build.bundle, system), [])

    @for_each_preset
    def test_its_description_names_every_language_that_has_texts(self, build, *_):
        info = plistlib.loads((build.bundle / "Contents/Info.plist").read_bytes())
        self.assertEqual(info["CFBundleLocalizations"], list(LANGUAGES))

    @for_each_preset
    def test_its_description_has_the_version_of_the_project(self, build, *_):
        info = plistlib.loads((build.bundle / "Contents/Info.plist").read_bytes())
        version = f" VERSION {info['CFBundleShortVersionString']} "
        self.assertIn(version, (ROOT / "CMakeLists.txt").read_text(encoding="utf-8"))
        self.assertEqual(info["CFBundleVersion"], info["CFBundleShortVersionString"])

    @for_each_preset
    def test_it_is_compiled_from_each_interface_file_for_that_system(self, build, _, system):
        calls = {Path(call[-1]).name: call[1:] for call in build.calls("ibtool")}
        self.assertEqual(set(calls), {path.name for path in ROOT.glob("resources/*.xib")})
        for name, call in calls.items():
            self.assertEqual(call[call.index("--minimum-deployment-target") + 1], system)
            self.assertEqual(call[call.index("--target-device") + 1], "mac")
            self.assertEqual(call[-3], "--compile")
            self.assertEqual(Path(call[-2]).name, name.replace(".xib", ".nib"))
            self.assertEqual(Path(call[-1]), ROOT / "resources" / name)

    def test_the_ibtool_for_old_systems_is_that_of_the_old_xcode(self):
        developer = f"DEVELOPER_DIR={builds['macos'].folder}/xcode/Contents/Developer"
        self.assertEqual({call[0] for call in builds["macos"].calls("ibtool")}, {developer})


def values(arguments, option):
    """What stands behind each occurrence of an option."""
    return [value for name, value in zip(arguments, arguments[1:]) if name == option]


def compile_commands(folder):
    return [(Path(entry["file"]), shlex.split(entry["command"])) for entry in
            json.loads((Path(folder) / "compile_commands.json").read_text(encoding="utf-8"))]


class Compiling(unittest.TestCase):

    @for_each_preset
    def test_every_source_is_compiled_for_processors_and_system_of_the_preset(
            self, build, architectures, system):
        commands = compile_commands(build.build_folder)
        self.assertGreater(len(commands), 40)
        for file, command in commands:
            self.assertEqual(values(command, "-arch"), architectures, file)
            self.assertIn(f"-mmacosx-version-min={system}", command, file)
            self.assertIn("-std=c++20", command, file)

    @for_each_preset
    def test_nothing_of_the_platform_layer_and_no_test_is_compiled(self, build, *_):
        folders = {file.relative_to(ROOT).parts[0]
                   for file, _ in compile_commands(build.build_folder)}
        self.assertEqual(folders, {"text", "agent", "addressbook", "windows", "plugin", "app"})

    @for_each_preset
    def test_only_deprecation_is_silenced_and_no_warning_is_an_error(self, build, *_):
        for file, command in compile_commands(build.build_folder):
            warnings = [option for option in command if option.startswith("-W")]
            self.assertEqual(sorted(warnings), sorted(WARNINGS), file)

    def test_on_linux_deprecation_is_not_silenced(self):
        for file, command in compile_commands(os.environ["BUILD_FOLDER"]):
            self.assertNotIn("-Wno-deprecated-declarations", command, file)

    def test_with_these_warnings_a_deprecated_function_passes_and_another_fault_does_not(self):
        call = ('void old(void) __attribute__((availability(macosx, deprecated=10.10)));\n'
                "void call(void) { old(); }\n")
        command = ["clang", "--target=x86_64-apple-macosx10.13", "-fsyntax-only", "-Werror", "-xc",
                   "-"]

        def passes(source, warnings):
            return subprocess.run([*command, *warnings], input=source, text=True, check=False,
                                  stderr=subprocess.DEVNULL).returncode == 0
        self.assertTrue(passes(call, WARNINGS))
        self.assertFalse(passes(call, WARNINGS[:-1]))
        self.assertFalse(passes(call + "void unused(void) { int a; }\n", WARNINGS))


class Linking(unittest.TestCase):

    def links(self, build):
        """The arguments of the linker by processor, of the program alone."""
        return {values(call, "-arch")[0]: call for call in build.calls("ld")
                if any("ContextMenuApp" in argument for argument in call)}

    @for_each_preset
    def test_it_is_linked_for_each_processor_and_the_system_of_the_preset(
            self, build, architectures, system):
        links = self.links(build)
        self.assertEqual(set(links), set(architectures))
        for architecture, link in links.items():
            first = FIRST_SYSTEM.get(architecture, system)
            self.assertEqual(values(link, "-macosx_version_min"), [f"{first}.0"])

    @for_each_preset
    def test_what_only_a_later_system_has_is_an_error(self, build, *_):
        for link in self.links(build).values():
            self.assertIn("-no_weak_imports", link)

    @for_each_preset
    def test_it_is_linked_with_the_stubs_of_the_repository(self, build, *_):
        for link in self.links(build).values():
            stubs = [argument for argument in link if "libBV" in argument]
            self.assertEqual(stubs, [str(LIBRARIES / "libBVSyncEngine.I.tbd"),
                                     str(LIBRARIES / "libBVIPC.I.tbd")])

    @for_each_preset
    def test_all_objects_of_all_components_are_linked(self, build, *_):
        for link in self.links(build).values():
            components = {Path(name).stem for name in values(link, "-force_load")}
            self.assertEqual(components, {
                Path(argument).stem for argument in link
                if argument.endswith(".a") and "c++" not in argument})
            self.assertGreaterEqual(len(components), 6)

    def test_for_old_systems_the_cxx_library_is_linked_statically_and_only_so(self):
        build = builds["macos"]
        runtime = build.folder / "cxx_runtime"
        for link in self.links(build).values():
            libraries = [argument for argument in link if "c++" in argument]
            self.assertEqual(libraries, [f"{runtime}/lib/libc++.a", f"{runtime}/lib/libc++abi.a"])
        for _, command in compile_commands(build.build_folder):
            self.assertIn("-nostdinc++", command)
            self.assertEqual(values(command, "-isystem"), [f"{runtime}/include/c++/v1"])

    def test_for_current_systems_it_is_the_systems_own(self):
        for link in self.links(builds["macos-current"]).values():
            self.assertEqual([argument for argument in link if "c++" in argument], ["-lc++"])

    def test_for_old_systems_only_that_xcode_links_with_options_that_its_linker_knows(self):
        build = builds["macos"]
        for link in self.links(build).values():
            self.assertEqual(values(link, "-syslibroot"), [f"{build.folder}/xcode/{SDK}"])
            self.assertNotIn("-platform_version", link)
        # Without this the compiler goes by the linker of the system that it was built on.
        command = build.build_folder / "app/CMakeFiles/ContextMenuApp.dir/link.txt"
        self.assertIn(" -mlinker-version=351.8 ", command.read_text(encoding="utf-8"))

    @for_each_preset
    def test_its_debug_information_is_kept_beside_the_bundle(self, build, *_):
        (call,) = build.calls("dsymutil")
        self.assertEqual(call[1:], [f"{build.bundle}/Contents/MacOS/ContextMenuApp", "-o",
                                    f"{build.bundle}.dSYM"])


class Presets(unittest.TestCase):

    def test_one_is_for_old_systems_and_one_for_the_processors_of_today(self):
        built_for = {preset: (build.settings["CMAKE_OSX_ARCHITECTURES"],
                              build.settings["CMAKE_OSX_DEPLOYMENT_TARGET"])
                     for preset, build in builds.items()}
        self.assertEqual(built_for, {"macos": ("x86_64;i386", "10.6"),
                                     "macos-current": ("x86_64;arm64", "10.13")})

    def test_the_toolchain_for_old_systems_is_for_the_same_by_itself(self):
        text = (ROOT / "cmake/toolchains/macos-10.6.cmake").read_text(encoding="utf-8")
        for name in ("CMAKE_OSX_ARCHITECTURES", "CMAKE_OSX_DEPLOYMENT_TARGET"):
            default = re.search(rf'set\({name} "?([^" ]+)"? CACHE', text).group(1)
            self.assertEqual(default, builds["macos"].settings[name])


class Configuring(unittest.TestCase):
    """Configuring again what has been built: each thing that is missing is named."""

    def fails(self, preset, *parts, definitions=(), environment=()):
        build = builds[preset]
        before = build.definitions, build.environment
        build.definitions = {**build.definitions, **dict(definitions)}
        build.environment = {**build.environment, **dict(environment)}
        try:
            done = build.configure()
        finally:
            build.definitions, build.environment = before
        self.assertNotEqual(done.returncode, 0)
        for part in parts:
            self.assertIn(part, done.stdout)

    def test_without_ibtool_it_says_where_that_comes_from(self):
        self.fails("macos-current", "ibtool is missing", "install Xcode", "xcode-select",
                   environment={"MACOS_WITHOUT_IBTOOL": "1"})

    def test_without_a_preset_it_names_the_presets(self):
        for setting in ("CMAKE_OSX_ARCHITECTURES", "CMAKE_OSX_DEPLOYMENT_TARGET"):
            self.fails("macos-current", f"{setting} is not set", "cmake --preset macos-current",
                       definitions={setting: ""})

    def test_without_a_part_of_the_old_toolchain_it_names_the_part(self):
        for name, part in (("MACOS_XCODE", "Xcode 9.4.1"), ("MACOS_LLVM", "LLVM 14"),
                           ("MACOS_CXX_RUNTIME", "build-cxx-runtime")):
            with self.subTest(name):
                self.fails("macos", f"{name} is not set", part, "docs/macos.md",
                           environment={name: ""})
                self.fails("macos", f"{name} is /bin", part, environment={name: "/bin"})

    def replaced(self, name, text):
        """A file of the old toolchain with other content until the test ends."""
        path = builds["macos"].folder / name
        self.addCleanup(path.write_text, path.read_text(encoding="utf-8"), encoding="utf-8")
        path.write_text(text, encoding="utf-8")

    def test_an_sdk_without_32_bit_libraries_is_refused(self):
        self.replaced(f"xcode/{SDK}/usr/lib/libSystem.tbd", "archs: [ x86_64, x86_64h ]\n")
        self.fails("macos", "no libraries for 32-bit processors", "Xcode 9.4.1 is the last")

    def test_a_cxx_library_that_is_not_for_both_processors_is_refused(self):
        self.replaced("cxx_runtime/lib/libc++abi.a", "x86_64\n")
        self.fails("macos", "libc++abi.a is not for x86_64 and i386", "build-cxx-runtime")

    def test_an_xcode_without_linker_is_refused(self):
        linker = builds["macos"].folder / "xcode" / TOOLS / "ld"
        target = linker.readlink()
        linker.unlink()
        self.addCleanup(linker.symlink_to, target)
        self.fails("macos", "which has no", "usr/bin/ld", "Xcode 9.4.1")


if __name__ == "__main__":
    unittest.main()
