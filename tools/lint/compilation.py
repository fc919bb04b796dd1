"""What the lints that compile share: the build's compile commands, and running many of them in
parallel without repeating those whose inputs have not changed since they passed."""

import hashlib
import json
import os
import re
import shlex
import subprocess
from concurrent.futures import ThreadPoolExecutor
from functools import lru_cache
from pathlib import Path

from project import Findings


# "3 warnings generated.", which counts what was hidden on purpose.
COUNT = re.compile(r"\d+ (warning|error)s?( and \d+ errors?)? generated\.$")

# The arguments that CMake adds, of which each is joined to the one before it by a NUL.
PRECOMPILED_HEADER = re.compile(
    r"\0-Winvalid-pch|\0-Xclang\0-include-pch\0-Xclang\0[^\0]*|"
    r"\0-Xclang\0-include\0-Xclang\0[^\0]*cmake_pch[^\0]*")


class Unit:
    """One compiled source file of the project."""

    def __init__(self, root, entry):
        self.source = Path(entry["directory"], entry["file"]).resolve().relative_to(root)
        self.directory = Path(entry["directory"])
        self.arguments = shlex.split(entry["command"])
        self.object = self.arguments[self.arguments.index("-o") + 1]

    def flags(self):
        """Compiler and options, without what names outputs and the source itself, and without
        precompiled headers: a check has options that do not go with them, and a source that
        includes too little is to be found."""
        arguments = PRECOMPILED_HEADER.sub("", "\0".join(self.arguments)).split("\0")
        kept, skip = [], False
        for argument in arguments:
            if skip:
                skip = False
            elif argument in ("-o", "-MF", "-MT", "-MQ"):
                skip = True
            elif argument not in ("-c", "-MD", "-MMD") and not self.is_source(argument):
                kept.append(argument)
        return kept

    def is_source(self, argument):
        return not argument.startswith("-") and argument.endswith(self.source.name)


def units(root, build, folders, suffixes):
    """The build's compiled files in the given folders, each once."""
    found = {}
    for entry in json.loads((build / "compile_commands.json").read_text()):
        path = Path(entry["directory"], entry["file"]).resolve()
        if not path.is_relative_to(root):
            continue
        unit = Unit(root, entry)
        if unit.source.parts[0] in folders and unit.source.suffix in suffixes:
            found.setdefault(unit.source, unit)
    return list(found.values())


def dependencies(build):
    """What each object was made from, by object, as the build recorded it."""
    log = subprocess.run(["ninja", "-C", str(build), "-t", "deps"], capture_output=True, text=True)
    found, current = {}, None
    for line in log.stdout.splitlines():
        if line.startswith(" "):
            if current is not None:
                current.append(str(build / line.strip()))
        else:
            name, colon, rest = line.partition(": #deps")
            # An object that changed after its record was written is not to be trusted.
            current = found.setdefault(name, []) if colon and "(VALID)" in rest else None
    return found


@lru_cache(maxsize=None)
def content_hash(path):
    return hashlib.sha256(Path(path).read_bytes()).hexdigest()


def key(command, inputs):
    digest = hashlib.sha256(json.dumps(command).encode())
    for path in sorted(inputs):
        digest.update(f"\0{path}\0{content_hash(path)}".encode())
    return digest.hexdigest()


class Cache:
    """Remembers which commands passed on which inputs. Failures are not remembered: they are to be
    shown again."""

    def __init__(self, folder):
        self.folder = folder
        folder.mkdir(parents=True, exist_ok=True)
        self.used = set()

    def has_passed(self, name):
        self.used.add(name)
        return (self.folder / name).exists()

    def passed(self, name):
        (self.folder / name).touch()

    def forget_unused(self):
        for path in self.folder.iterdir():
            if path.name not in self.used:
                path.unlink()


def check_all(build, name, checked, command_for, extra_inputs=(), jobs=None):
    """Runs command_for(unit) for every unit and returns what the failing ones printed.

    extra_inputs are files besides sources and headers that decide the outcome.
    """
    depends_on = dependencies(build)
    cache = Cache(build / "lint-cache" / name)

    def check(unit):
        command = command_for(unit)
        remembered = None
        if unit.object in depends_on:
            inputs = [*depends_on[unit.object], *map(str, extra_inputs)]
            if all(map(os.path.exists, inputs)):
                remembered = key(command, inputs)
                if cache.has_passed(remembered):
                    return None
        result = subprocess.run(command, cwd=unit.directory, capture_output=True, text=True)
        if result.returncode == 0:
            if remembered:
                cache.passed(remembered)
            return None
        said = f"{result.stdout}\n{result.stderr}".splitlines()
        return "\n".join(line for line in said if line and not COUNT.match(line))

    findings = Findings()
    with ThreadPoolExecutor(jobs or os.cpu_count()) as pool:
        findings += filter(None, pool.map(check, checked))
    cache.forget_unused()
    return findings
