"""What the lints that compile share: the build's compile commands, and running many of them in
parallel, several sources at a time, without repeating those whose inputs have not changed since
they passed."""

import hashlib
import itertools
import json
import os
import re
import shlex
import subprocess
import tempfile
from collections import namedtuple
from concurrent.futures import ThreadPoolExecutor
from functools import cached_property, lru_cache
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
        self.path = Path(entry["directory"], entry["file"]).resolve()
        self.source = self.path.relative_to(root)
        self.directory = Path(entry["directory"])
        self.command = entry["command"]

    @cached_property
    def arguments(self):
        return shlex.split(self.command)

    @property
    def object(self):
        return self.arguments[self.arguments.index("-o") + 1]

    def flags(self):
        """Compiler and options, without what names outputs and the source itself, and without
        precompiled headers: a check has options that do not go with them, and a source that
        includes too little must fail."""
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

    def text(self):
        return self.path.read_text(encoding="utf-8")

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


def dependencies(build, objects):
    """What each of these objects was made from, by object, as the build recorded it."""
    log = subprocess.run(["ninja", "-C", str(build), "-t", "deps", *objects],
                         capture_output=True, text=True)
    found, current = {}, None
    for line in log.stdout.splitlines():
        if line.startswith(" "):
            if current is not None:
                current.append(os.path.join(build, line.strip()))
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
    """Remembers which commands passed on which inputs. Failures are not remembered, so that they
    are shown again."""

    def __init__(self, folder):
        self.folder = folder
        folder.mkdir(parents=True, exist_ok=True)
        self.used = set()

    def has_passed(self, name):
        self.used.add(name)
        return name is not None and (self.folder / name).exists()

    def passed(self, name):
        if name is not None:
            (self.folder / name).touch()

    def forget_unused(self):
        for path in self.folder.iterdir():
            if path.name not in self.used:
                path.unlink()


# Units that are compiled alike (kind), and the names that they define at file scope.
Batch = namedtuple("Batch", "kind units names")

# By this name the static analyzer knows a file whose included sources it is to follow, too.
UNIFIED_SOURCE = "UnifiedSource"

# The file in which clang-tidy found something.
PLACE_OF_FINDING = re.compile(r"^(.*):\d+:\d+: (?:error|warning): ", re.MULTILINE)

# What clang-tidy writes behind an error of the compiler.
NOT_COMPILED = "[clang-diagnostic-error"

# The name that a line at file scope declares or defines, roughly: the last one before its value,
# parameters or body. The format does not indent what is in a namespace.
FILE_SCOPE_NAME = re.compile(
    r"^(?!namespace\b|using\b|template\b|extern\b|static_assert\b|[A-Z_]+\()"
    r"(?=\w)"
    r"[^;={(\[\n]*?([\w:~]+)\s*(?:[;={(\[]|$)",
    re.MULTILINE)
MACRO = re.compile(r"^#define (\w+)", re.MULTILINE)
# The arguments of a template, without such lists of their own, and the break of a line that goes
# on.
ARGUMENTS_OF_TEMPLATE = re.compile(r"(?<=\w)<[^<>;{}]*>")
CONTINUATION = re.compile(r"\n {4,}")


def file_scope_names(text):
    """What a source declares or defines at file scope."""
    text = CONTINUATION.sub(" ", text)
    shorter = ARGUMENTS_OF_TEMPLATE.sub("", text)
    while shorter != text:
        text, shorter = shorter, ARGUMENTS_OF_TEMPLATE.sub("", shorter)
    return {*FILE_SCOPE_NAME.findall(text), *MACRO.findall(text)}


def batches(checked, size):
    """The units in batches that one compilation can take, of at most this size: compiled alike, and
    no name defined by two sources."""
    found = []
    for unit in checked:
        kind = (unit.source.suffix, unit.flags())
        names = file_scope_names(unit.text())
        for batch in found:
            if len(batch.units) < size and batch.kind == kind and batch.names.isdisjoint(names):
                batch.units.append(unit)
                batch.names.update(names)
                break
        else:
            found.append(Batch(kind, [unit], names))
    return [batch.units for batch in found]


class Checks:
    """Runs command_for(unit, source) for units and remembers which passed, each by its key."""

    def __init__(self, command_for, cache, keys):
        self.command_for = command_for
        self.cache = cache
        self.keys = keys

    def run(self, unit, source):
        return subprocess.run(self.command_for(unit, source), cwd=unit.directory,
                              capture_output=True, text=True)

    def alone(self, unit):
        """What the command printed if the unit does not pass."""
        result = self.run(unit, unit.path)
        if result.returncode == 0:
            self.cache.passed(self.keys[unit])
            return None
        said = f"{result.stdout}\n{result.stderr}".splitlines()
        return "\n".join(line for line in said if line and not COUNT.match(line))

    def run_together(self, batch):
        with tempfile.NamedTemporaryFile("w", prefix=UNIFIED_SOURCE,
                                         suffix=batch[0].source.suffix) as together:
            # The includes themselves would be reported.
            together.writelines(f'#include "{unit.path}"  // NOLINT\n' for unit in batch)
            together.flush()
            return self.run(batch[0], together.name)

    def suspects(self, batch):
        """Those that may not pass by themselves; the others have passed. None where it may be any,
        because they do not compile together, or because of a header."""
        result = self.run_together(batch)
        if result.returncode == 0:
            return []
        said = result.stdout + result.stderr
        at_fault = set(PLACE_OF_FINDING.findall(said))
        paths = {str(unit.path) for unit in batch}
        if not at_fault or NOT_COMPILED in said or not at_fault <= paths:
            return None
        return [unit for unit in batch if str(unit.path) in at_fault]

    def batch(self, batch):
        """What the command printed of the units that do not pass, one text each."""
        to_check = self.suspects(batch) if len(batch) > 1 else batch
        if to_check is None:
            # Two may not go together.
            middle = len(batch) // 2
            return self.batch(batch[:middle]) + self.batch(batch[middle:])
        for unit in batch:
            if unit not in to_check:
                self.cache.passed(self.keys[unit])
        return [*filter(None, map(self.alone, to_check))]


def check_all(build, name, checked, command_for, extra_inputs=(), batch_size=1, prepare=None):
    """Runs command_for(unit, source) for every unit and returns what the failing ones printed.

    extra_inputs are files besides sources and headers that decide the outcome. With a batch_size
    the source is one that includes up to so many units' sources, because reading the platform's
    headers takes longer than checking a source. Each unit that may be the reason for a batch's
    failure is checked by itself. prepare is called with the units that are to be checked, if there
    are any, before the first of them, and returns what hinders all of them.
    """
    depends_on = dependencies(build, [unit.object for unit in checked]) if checked else {}
    cache = Cache(build / "lint-cache" / name)

    def remembered(unit):
        if unit.object not in depends_on:
            return None
        inputs = [*depends_on[unit.object], *map(str, extra_inputs)]
        if not all(map(os.path.exists, inputs)):
            return None
        return key(command_for(unit, unit.path), inputs)

    keys = {unit: remembered(unit) for unit in checked}
    to_check = [unit for unit in checked if not cache.has_passed(keys[unit])]
    checks = Checks(command_for, cache, keys)
    hindrances = prepare(to_check) if prepare is not None and to_check else []
    if hindrances:
        return Findings(hindrances)
    with ThreadPoolExecutor(os.cpu_count()) as pool:
        findings = Findings(itertools.chain(*pool.map(checks.batch, batches(to_check, batch_size))))
    cache.forget_unused()
    return findings
