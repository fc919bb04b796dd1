"""What the checks for the Mac share: the program's sources compiled for it, against the headers in
the folder that the environment variable COCOA_HEADERS names. It has the headers of Cocoa below
include/, and gaps.h, which includes them and declares what they lack. They are for compiling only.

An object is made again only when its source, a header or the command has changed."""

import fcntl
import json
import os
import re
import subprocess
import sys
from collections import namedtuple
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[1]))

from compilation import content_hash  # noqa: E402  presets.py is in the folder above
from presets import read_presets  # noqa: E402  as above
from project import APPLICATION_FOLDERS, Findings, finish, read, tracked  # noqa: E402  as above

HEADERS = "COCOA_HEADERS"
OURS = Path(__file__).resolve().parent / "mac"
CXX_HEADERS = "/usr/lib/llvm-14/include/c++/v1"

# The options of the build that decide about warnings.
OPTIONS = ("cmake/Options.cmake", "cmake/Cocoa.cmake")
WARNING = re.compile(r"(?<![\w-])-W[a-z][\w-]*")

# What is compiled for: the processors of these presets, each for the oldest system of the first
# preset that has it. There is none before this one for Apple's processors, whatever a preset says.
PRESETS = ("macos", "macos-current")
OLDEST = {"arm64": "11.0"}

# The 32-bit processor has the runtime of its time, and its intermediate code is kept; BOOL is
# another type for Apple's processors.
FLAGS = {"i386": ("-fobjc-runtime=macosx-fragile-10.6",), "arm64": ("-DBOOL_BOOL",)}
WITH_CODE = ("i386",)

Variant = namedtuple("Variant", "processor minimum")

LANGUAGE = ("-std=c++20", "-fexceptions", '-DKRV_AGENT_BUNDLE_IDENTIFIER="agent"')
OBJECTIVE_C = ("-fobjc-exceptions", "-fblocks", "-fno-objc-arc",
               # A method has the types with which the platform declares and calls it.
               "-Woverriding-method-mismatch")

# The C library's headers are those of this system: without the name of the Mac's system they, and
# those of the C++ library, do not ask for what only the Mac's have. A compiler for the Mac has a
# name of its own that they use.
SYSTEM = ("-nostdinc++", "-nostdlibinc", "-U__APPLE__", "-D__linux__", "-D_GNU_SOURCE",
          "-U__nonnull")

# Precompiled with the platform's headers. (Others check that a source includes what it uses.)
CXX = ("algorithm", "array", "cstdint", "cstring", "functional", "numeric", "optional", "string",
       "string_view", "utility", "vector")

# How many compilers run at a time.
AT_A_TIME = 2


def cocoa_headers():
    """The folder with the headers; None where there is none."""
    folder = os.environ.get(HEADERS)
    return Path(folder).resolve() if folder else None


def run_if_there_are_headers(lint):
    """Runs a check, a function from root, build and headers to findings, as a program to which root
    and build may be given. Without headers it says that the check was left out."""
    headers = cocoa_headers()
    if headers is None:
        print(f"left out: {HEADERS} names no folder with headers of Cocoa")
        return
    root = Path(sys.argv[1] if len(sys.argv) > 1 else OURS.parents[2]).resolve()
    build = Path(sys.argv[2]).resolve() if len(sys.argv) > 2 else root / "build"
    finish(lint(root, build, headers))


def warnings(root):
    """The options about warnings that the build has on the Mac, in their order."""
    return [flag for name in OPTIONS if (root / name).exists()
            for flag in WARNING.findall(re.sub(r"#.*", "", read(root, name)))]


def variants(root):
    """All that is compiled for."""
    found = {}
    presets = read_presets(root, "configurePresets")
    for values in (presets[name]["cacheVariables"] for name in PRESETS):
        for processor in values["CMAKE_OSX_ARCHITECTURES"].split(";"):
            minimum = OLDEST.get(processor, values["CMAKE_OSX_DEPLOYMENT_TARGET"])
            found.setdefault(processor, Variant(processor, minimum))
    return list(found.values())


def sources(root):
    return tracked(root, (".mm", ".cpp"), APPLICATION_FOLDERS)


class Product:
    """A file that a command makes, with a record of what it was made from."""

    def __init__(self, path):
        self.path = path
        self.record = path.with_name(path.name + ".json")
        self.depfile = path.with_name(path.name + ".d")

    def is_made_by(self, command, after=None):
        """Whether the command would make the file as it is. after: what else went into it."""
        if not (self.path.exists() and self.record.exists()):
            return False
        record = json.loads(self.record.read_text())
        return [record["command"], record["after"]] == [command, after] and all(
            os.path.exists(name) and content_hash(name) == content
            for name, content in record["inputs"].items())

    def make(self, command, directory, after=None):
        """Runs the command, unless the file is there as the command would make it; returns what it
        printed if it failed."""
        if self.is_made_by(command, after):
            return None
        self.path.parent.mkdir(parents=True, exist_ok=True)
        self.record.unlink(missing_ok=True)
        self.depfile.unlink(missing_ok=True)
        done = subprocess.run([*command, "-MD", "-MF", str(self.depfile), "-o", str(self.path)],
                              cwd=directory, capture_output=True, text=True)
        if done.returncode != 0:
            return done.stderr.strip() or f"{command[0]}: {done.returncode}"
        inputs = ""
        if self.depfile.exists():
            inputs = self.depfile.read_text().replace("\\\n", " ").split(": ", 1)[1]
        names = [str(Path(directory, name.replace("\\ ", " ")))
                 for name in re.split(r"(?<!\\)\s+", inputs.strip()) if name]
        self.depfile.unlink(missing_ok=True)
        self.record.write_text(json.dumps({
            "command": command, "after": after,
            "inputs": {name: content_hash(name) for name in names}}))
        return None


class Compiler:
    """Compiles for one variant."""

    def __init__(self, root, build, headers, variant):
        self.root = root
        self.variant = variant
        self.folder = build / "lint-cache" / "mac" / variant.processor
        self.prefix = self.folder / "prefix.h"
        self.precompiled = Product(self.folder / "prefix.pch")
        self.command = [
            "clang++", *self.target(), *FLAGS.get(variant.processor, ()), *LANGUAGE, *SYSTEM,
            f"-I{root}",
            *(f"-isystem{folder}" for folder in (
                CXX_HEADERS, OURS / "include", headers, headers / "include",
                "/usr/include/x86_64-linux-gnu", "/usr/include")),
            *warnings(root), "-Werror"]

    def target(self):
        return ["-target", f"{self.variant.processor}-apple-macosx{self.variant.minimum}"]

    def precompile(self):
        """Makes the precompiled header of all sources; returns what the compiler printed if that
        failed."""
        self.folder.mkdir(parents=True, exist_ok=True)
        lines = [f'#import "{OURS}/Cocoa.h"\n', *(f"#include <{name}>\n" for name in CXX)]
        if not self.prefix.exists() or self.prefix.read_text() != "".join(lines):
            self.prefix.write_text("".join(lines))
        return self.precompiled.make(
            [*self.command, *OBJECTIVE_C, "-x", "objective-c++-header",
             # The record tells by their contents whether headers have changed.
             "-Xclang", "-fno-pch-timestamp", str(self.prefix)], self.root)

    def object(self, source):
        return self.folder / source.parent / f"{source.name}.o"

    def code(self, source):
        """The intermediate code of a source as text, from which the object is made; only of the
        variant for 32 bit (mac_exceptions.py reads it)."""
        return self.object(source).with_suffix(".ll")

    def compile(self, source):
        """Returns what the compiler printed if it failed."""
        language = ["-x", "c++"] if source.suffix == ".cpp" else [
            *OBJECTIVE_C, "-x", "objective-c++", "-include-pch", str(self.precompiled.path)]
        # The compiler does not name what was precompiled among what it has read.
        prefix = content_hash(self.precompiled.record)
        # With its whole path, as in the build.
        command, path = [*self.command, *language], str(self.root / source)
        made = Product(self.object(source))
        if self.variant.processor not in WITH_CODE:
            return made.make([*command, "-c", path], self.root, prefix)
        code = Product(self.code(source))
        failure = code.make([*command, "-S", "-emit-llvm",
                             # No call that the code has is left out.
                             "-Xclang", "-disable-llvm-passes", path], self.root, prefix)
        return failure or made.make(
            ["clang", *self.target(), "-c", "-Wno-override-module", str(code.path)],
            self.root, content_hash(code.path))


def compile_all(root, build, headers, processors=None):
    """Compiles all sources, for these processors or for all; returns the findings. The checks that
    run at the same time wait for the one that compiles, and find everything made."""
    findings = Findings()
    folder = build / "lint-cache" / "mac"
    folder.mkdir(parents=True, exist_ok=True)
    each_variant = [compiler for name, compiler in compilers(root, build, headers).items()
                    if processors is None or name in processors]
    with open(folder / "lock", "w") as lock, ThreadPoolExecutor(AT_A_TIME) as pool:
        fcntl.flock(lock, fcntl.LOCK_EX)
        prepared = list(pool.map(Compiler.precompile, each_variant))
        work = [(compiler, source) for compiler, failure in zip(each_variant, prepared)
                if failure is None for source in sources(root)]
        failures = pool.map(lambda each: each[0].compile(each[1]), work)
        said = dict.fromkeys(filter(None, (*prepared, *failures)))
        findings.extend(each.replace(f"{root}/", "") for each in said)
    return findings


def compilers(root, build, headers):
    """One for each variant, by processor."""
    return {each.processor: Compiler(root, build, headers, each) for each in variants(root)}
