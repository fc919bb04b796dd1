"""What a test of CTest depends on: its program and the files of the project that this uses.

A test that passed is run again only when one of these or the system has changed. They are found by
their absolute paths in the program, so a test names the full path of each file or folder that it
uses (CMake's $<TARGET_FILE:...>, or a path below the sources).
"""

import functools
import hashlib
import os
import re
import subprocess
import tempfile
from pathlib import Path

ELF = b"\x7fELF"
SOURCES = {".cpp", ".h", ".m", ".mm"}
# The system's packages: every library and tool that does not belong to the project.
PACKAGES = Path("/var/lib/dpkg/status")
# Variables of the environment by which a test does more or less.
SETTING = re.compile(r"CHECK_|[A-Z]+SAN_OPTIONS$")


class Inputs:
    """The inputs of the tests of a build, read once: they must not change meanwhile."""

    def __init__(self, source, build):
        self.source = Path(source).resolve()
        self.build = Path(build).resolve()
        # A path of the project in the text of a program.
        roots = b"|".join(re.escape(os.fsencode(root)) for root in (self.source, self.build))
        self.path = re.compile(rb"(?:" + roots + rb")/[^\0\s\"'`;:,)<>|]+")
        self.contents = functools.cache(self.contents)
        self.digests = functools.cache(self.digests)
        self.digest_of_file = functools.cache(self.digest_of_file)
        self.named_by = functools.cache(self.named_by)
        self.whole_project = functools.cache(self.whole_project)
        self.settings = repr(sorted(item for item in os.environ.items() if SETTING.match(item[0])))
        self.packages = digest(PACKAGES.read_bytes() if PACKAGES.exists() else b"")

    def key(self, test):
        """A key that changes with everything that a test, as CTest lists it, depends on."""
        properties = {item["name"]: item["value"] for item in test.get("properties", [])}
        command = test.get("command", [])
        parts = [repr(command), repr(properties.get("ENVIRONMENT")), self.settings, self.packages]
        files = tuple(path for path in map(Path, command) if self.is_own(path) and path.is_file())
        if "REQUIRED_FILES" in properties:
            parts += self.digests(tuple(map(Path, properties["REQUIRED_FILES"])))
        elif any(map(self.is_program, files)):
            parts += self.digests(files)
        else:
            parts += self.whole_project()
        return digest("\n".join(parts).encode("utf-8", "surrogateescape"))

    def digests(self, roots):
        """A key of these paths and of all that they hold and use."""
        found = set()
        left = list(roots)
        while left:
            for file in self.files_of(left.pop()):
                if file not in found:
                    found.add(file)
                    left += self.named_by(file)
        return [f"{file} {self.digest_of_file(file)}" for file in sorted(found)]

    def files_of(self, path):
        """The file, all of the bundle that it belongs to, or all that the folder holds."""
        bundle = path.parent if path.parent.suffix == ".app" else path
        if bundle.is_dir():
            return [file for file in sorted(bundle.rglob("*"))
                    if file.is_file() and "__pycache__" not in file.parts]
        return [bundle] if bundle.is_file() else []

    def named_by(self, file):
        """The other files of the project that a program names or is linked with."""
        if not self.is_program(file):
            return []
        named = {Path(os.fsdecode(path)) for path in self.path.findall(self.contents(file))}
        libraries = subprocess.run(["ldd", str(file)], capture_output=True, text=True).stdout
        named |= {Path(path) for path in re.findall(r"=> (/\S+)", libraries)}
        return [path for path in named if self.is_own(path) and self.is_input(path)]

    def is_own(self, path):
        return self.source in path.parents or self.build in path.parents

    def is_input(self, path):
        """Whether a path in a program is an input. Not so its sources, whose paths are part of
        messages, and folders of the build, in which it searches for the libraries that ldd
        lists."""
        if path.is_dir():
            return self.build not in [path, *path.parents]
        return path.is_file() and path.suffix not in SOURCES

    def is_program(self, file):
        with open(file, "rb") as opened:
            return opened.read(len(ELF)) == ELF

    def contents(self, file):
        """A file's content; of a program without the debug information."""
        if not self.is_program(file):
            return file.read_bytes()
        with tempfile.NamedTemporaryFile() as stripped:
            subprocess.run(["objcopy", "--strip-debug", "--remove-section=.note.gnu.build-id",
                            str(file), stripped.name], check=True)
            return Path(stripped.name).read_bytes()

    def digest_of_file(self, file):
        return digest(self.contents(file))

    def whole_project(self):
        """A key of every source and every program: for a test whose inputs are unknown."""
        sources = []
        for folder, folders, names in os.walk(self.source):
            if "CMakeCache.txt" in names and Path(folder) != self.source:
                folders.clear()  # a build
                continue
            folders[:] = [name for name in folders if name not in (".git", "__pycache__")]
            sources += [Path(folder, name) for name in names]
        programs = [file for file in self.build.rglob("*")
                    if file.is_file() and "CMakeFiles" not in file.parts
                    and os.access(file, os.X_OK) and self.is_program(file)]
        return self.digests((*sources, *programs))


def digest(content):
    return hashlib.sha256(content).hexdigest()
