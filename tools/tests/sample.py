"""Small projects for the lints to be tried on."""

import subprocess
import sys
import tempfile
import unittest
from functools import lru_cache
from pathlib import Path

TOOLS = Path(__file__).resolve().parents[1]
sys.path.insert(0, str(TOOLS / "lint"))


class SampleProject(unittest.TestCase):
    """A test with an empty project in self.root, under version control of its own."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="lint-")
        self.addCleanup(folder.cleanup)
        self.root = Path(folder.name).resolve()
        self.git("init", "--quiet")

    def git(self, *arguments):
        subprocess.run(["git", "-C", str(self.root), *arguments], check=True)

    def write(self, path, content):
        file = self.root / path
        file.parent.mkdir(parents=True, exist_ok=True)
        if isinstance(content, bytes):
            file.write_bytes(content)
        else:
            file.write_text(content, encoding="utf-8")
        self.git("add", "--force", path)

    def assert_finds(self, findings, *parts):
        """Exactly one finding, which contains all parts."""
        self.assertEqual(len(findings), 1, findings)
        for part in parts:
            self.assertIn(part, findings[0])


@lru_cache(maxsize=None)
def platform_flags():
    """What the build compiles Objective-C++ with, as far as the samples need it."""
    def answer(*command):
        return subprocess.run(command, check=True, capture_output=True, text=True).stdout.strip()

    wanted = ("-fexceptions", "-fconstant-string-class=NSConstantString")
    objc = [flag for flag in answer("gnustep-config", "--objc-flags").split()
            if flag.startswith("-D") or flag in wanted]
    headers = answer("gnustep-config", "--variable=GNUSTEP_SYSTEM_HEADERS")
    runtime = answer("gcc", "-print-file-name=include")
    return [*objc, "-fobjc-runtime=gcc", "-std=c++20", "-isystem", headers, "-idirafter", runtime]


class SampleBuild(SampleProject):
    """A sample project that is built, so that the lints which compile find their commands."""

    def configure(self, *flags):
        """Writes the commands of the build; returns its folder."""
        folder = self.root / "build"
        folder.mkdir(exist_ok=True)
        rule = ["rule compile",
                f"  command = clang++ -I{self.root} {' '.join([*platform_flags(), *flags])}"
                " -MD -MF $out.d -c $in -o $out",
                "  deps = gcc", "  depfile = $out.d"]
        sources = sorted(path for suffix in ("mm", "cpp")
                         for path in self.root.glob(f"*/*.{suffix}"))
        edges = [f"build {path.name}.o: compile {path}" for path in sources]
        (folder / "build.ninja").write_text("\n".join([*rule, *edges, ""]))
        commands = subprocess.run(["ninja", "-C", str(folder), "-t", "compdb"], check=True,
                                  capture_output=True, text=True).stdout
        (folder / "compile_commands.json").write_text(commands)
        return folder

    def build(self):
        folder = self.configure()
        subprocess.run(["ninja", "-C", str(folder), "--quiet"], check=True,
                       stdout=subprocess.DEVNULL)
        return folder
