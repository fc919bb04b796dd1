#!/usr/bin/env python3
"""Checks that the application uses nothing newer than macOS 10.6 and no extension of GNUstep, by
compiling it with everything else hidden. What the platform layer supplies of the 10.6 interface
stays visible, since every compile command includes it. Of the C++ library, which for old systems is
linked statically, it checks that no header is included whose functions call a newer system.

    api_floor.py [ROOT [BUILD]]
"""

import hashlib
import re
import subprocess

from compilation import check_all, units
from project import (
    APPLICATION_FOLDERS, SOURCES, Findings, read, run_with_build, tracked, without_comments)

HEADER = "tools/lint/api_floor.h"
HIDE_NEWER = ["-DNO_GNUSTEP=1", "-DMAC_OS_X_VERSION_MAX_ALLOWED=1060"]
# Unknown methods and classes that are only forward-declared are what is looked for. Other warnings
# have been given by the build, and a few say only that headers with so much hidden do not fit
# together.
CHECK_OF_HEADERS = ["-Wno-everything", "-Werror=objc-method-access",
                    "-Werror=receiver-forward-class"]
CHECK = ["-fsyntax-only", "-ferror-limit=0", *CHECK_OF_HEADERS]

# Headers of the C++ library whose functions are not in that of every system that is built for
# (docs/macos.md), or call what 10.6 does not have, with the first system that has all of it.
LATER_HEADERS = {
    **dict.fromkeys(("barrier", "latch", "semaphore", "stop_token"), "11.0"),
    **dict.fromkeys(("chrono", "condition_variable", "future", "shared_mutex", "thread"), "10.12"),
    **dict.fromkeys(("charconv", "format", "print"), "13.3"),
    **dict.fromkeys(("filesystem", "fstream"), "10.15"),
    **dict.fromkeys(("memory_resource", "syncstream"), "14.0"),
    "random": "no system, as the library for old ones is built",
}
INCLUDE = re.compile(r"^\s*#\s*(?:include|import)\s*<(\w+)>")


def later_headers(root):
    findings = Findings()
    for path in tracked(root, suffixes=SOURCES, folders=APPLICATION_FOLDERS):
        lines = without_comments(read(root, path)).splitlines()
        for number, line in enumerate(lines, 1):
            found = INCLUDE.match(line)
            if found and found.group(1) in LATER_HEADERS:
                findings.add(path, number, f"<{found.group(1)}> of the C++ library needs"
                                           f" {LATER_HEADERS[found.group(1)]}")
    return findings


def included_in_front(flags):
    """The headers that options name to be included in front of a source, and the other options."""
    headers, others = [], []
    options = iter(flags)
    for option in options:
        (headers if option == "-include" else others).append(
            next(options) if option == "-include" else option)
    return headers, others


def precompiled(build, flags):
    """Where the headers that are included in front of a source with these options are kept, read
    once for all such sources: they are nearly all that a source includes."""
    name = hashlib.sha256("\0".join(flags).encode()).hexdigest()
    return build / "lint-cache" / "api-floor-headers" / f"{name}.pch"


def precompile(root, build, unit):
    """Makes the precompiled header of a unit; returns what the compiler printed if that failed."""
    compiler, *flags = unit.flags()
    made = precompiled(build, flags)
    made.parent.mkdir(parents=True, exist_ok=True)
    made.unlink(missing_ok=True)
    empty = made.with_suffix(".h")
    empty.touch()
    headers, others = included_in_front(flags)
    done = subprocess.run(
        [compiler, *HIDE_NEWER, *others, "-x", "objective-c++-header", *CHECK_OF_HEADERS,
         *(part for header in (str(root / HEADER), *headers) for part in ("-include", header)),
         str(empty), "-o", str(made)], cwd=unit.directory, capture_output=True,
        text=True)
    return done.stderr if done.returncode else None


def precompile_all(root, build, checked):
    each_kind = {tuple(unit.flags()): unit for unit in checked}.values()
    return [*filter(None, (precompile(root, build, unit) for unit in each_kind))]


def command(build, unit, source):
    compiler, *flags = unit.flags()
    _, others = included_in_front(flags)
    return [compiler, "-include-pch", str(precompiled(build, flags)), *HIDE_NEWER, *others, *CHECK,
            str(source)]


def lint(root, build):
    sources = units(root, build, APPLICATION_FOLDERS, (".mm",))
    return later_headers(root) + check_all(
        build, "api-floor", sources, lambda unit, source: command(build, unit, source),
        extra_inputs=[root / HEADER],
        prepare=lambda checked: precompile_all(root, build, checked))


if __name__ == "__main__":
    run_with_build(lint)
