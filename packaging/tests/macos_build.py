"""Builds the Mac's bundle here, with stand-ins for the Mac's tools (macos-tools), and what the
tests of the bundle share."""

import importlib.machinery
import importlib.util
import os
import shutil
import subprocess
import sys
from pathlib import Path

TESTS = Path(__file__).resolve().parent
ROOT = TESTS.parents[1]
STAND_INS = TESTS / "macos-tools"

sys.path[:0] = [str(ROOT / "tools"), str(ROOT / "tools/lint")]

from presets import read_presets  # noqa: E402  its place is known only now

SDK = "Contents/Developer/Platforms/MacOSX.platform/Developer/SDKs/MacOSX10.13.sdk"
TOOLS = "Contents/Developer/Toolchains/XcodeDefault.xctoolchain/usr/bin"


# The key of the text that tells why the Finder is asked.
USAGE = "NSAppleEventsUsageDescription"


def write(path, text, encoding="utf-8"):
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_text(text, encoding=encoding)


def load(path):
    """A Python program that has no suffix, as a module."""
    sys.dont_write_bytecode = True  # it would be written next to the program
    loader = importlib.machinery.SourceFileLoader(path.name.replace("-", "_"), str(path))
    module = importlib.util.module_from_spec(importlib.util.spec_from_loader(loader.name, loader))
    loader.exec_module(module)
    return module


check_bundle = load(ROOT / "packaging/macos/check-bundle")


class MacBuild:
    """A build of a preset in a folder of its own."""

    def __init__(self, preset, folder):
        self.preset = read_presets(ROOT, "configurePresets")[preset]
        self.settings = self.preset["cacheVariables"]
        self.folder = Path(folder)
        self.build_folder = self.folder / "build"
        self.bundle = self.build_folder / "ContextMenuApp.app"
        self.log = self.folder / "log"
        tools = self.folder / "tools"
        self.environment = {**os.environ, "PATH": f"{tools}:{os.environ['PATH']}",
                            "MACOS_PROJECT": str(ROOT), "MACOS_LOG": str(self.log)}
        self.environment.pop("LIBRARY_PATH", None)
        tools.mkdir()
        (tools / "xcrun").symlink_to(STAND_INS / "xcrun")
        (tools / "install_name_tool").symlink_to("/bin/true")
        self.definitions = {**self.settings, "CMAKE_SYSTEM_NAME": "Darwin"}
        for language in ("C", "CXX", "OBJCXX"):
            self.definitions[f"CMAKE_{language}_COMPILER_LAUNCHER"] = ""
        if "toolchainFile" in self.preset:
            toolchain = self.preset["toolchainFile"].replace("${sourceDir}", str(ROOT))
            self.definitions["CMAKE_TOOLCHAIN_FILE"] = toolchain
            self.make_old_toolchain()
        else:
            write(self.folder / "sdk/usr/lib/libSystem.tbd",
                  "targets: [ x86_64-macos, arm64-macos ]\n")
            self.definitions["CMAKE_OSX_SYSROOT"] = str(self.folder / "sdk")
            self.environment["MACOS_LINKER"] = str(STAND_INS)
            for language, compiler in (("C", "clang"), ("CXX", "clang++"), ("OBJCXX", "clang++")):
                self.definitions[f"CMAKE_{language}_COMPILER"] = str(STAND_INS / compiler)

    def make_old_toolchain(self):
        """The three folders that the toolchain for old systems consists of."""
        for name in ("xcode", "llvm", "cxx_runtime"):
            self.environment[f"MACOS_{name.upper()}"] = str(self.folder / name)
        xcode = self.folder / "xcode"
        write(xcode / SDK / "usr/lib/libSystem.tbd", "archs: [ i386, x86_64 ]\n")
        write(xcode / SDK / "usr/lib/crt1.10.6.o", "")
        (xcode / TOOLS).mkdir(parents=True)
        for tool in ("ld", "lipo"):
            (xcode / TOOLS / tool).symlink_to(STAND_INS / tool)
        for tool, program in (("ar", "ar"), ("ranlib", "ranlib"), ("install_name_tool", "true")):
            (xcode / TOOLS / tool).symlink_to(shutil.which(program))
        (self.folder / "llvm/bin").mkdir(parents=True)
        for compiler in ("clang", "clang++"):
            (self.folder / "llvm/bin" / compiler).symlink_to(STAND_INS / compiler)
        write(self.folder / "cxx_runtime/include/c++/v1/version", "")
        for library in ("libc++.a", "libc++abi.a"):
            write(self.folder / "cxx_runtime/lib" / library, "x86_64 i386\n")

    def run(self, *command):
        return subprocess.run(command, env=self.environment, text=True, check=False,
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT)

    def configure(self):
        """CMake's result; its output is one text of single spaces."""
        definitions = [f"-D{name}={value}" for name, value in self.definitions.items()
                       if value is not None]
        done = self.run("cmake", "-S", ROOT, "-B", self.build_folder, "-G",
                        self.preset["generator"], *definitions)
        done.stdout = " ".join(done.stdout.split())
        return done

    def build(self):
        return self.run("cmake", "--build", self.build_folder, "--parallel", "2")

    def calls(self, tool):
        """The arguments of each call of a stand-in that keeps a log."""
        lines = self.log.read_text(encoding="utf-8").splitlines() if self.log.exists() else []
        calls = [line.split("\t") for line in lines]
        return [arguments for name, *arguments in calls if name == tool]
