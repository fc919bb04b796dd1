#!/usr/bin/env python3
"""Checks that the application uses nothing newer than macOS 10.6 and no extension of GNUstep, by
compiling it with everything else hidden. What the platform layer supplies of the 10.6 interface
stays visible, since every compile command includes it. Of the C++ library, which for old systems is
linked statically, it checks that no header is included whose functions call a newer system.

    api_floor.py [ROOT [BUILD]]
"""

import re

from compilation import check_all, units
from project import (
    APPLICATION_FOLDERS, SOURCES, Findings, read, run_with_build, tracked, without_comments)

HEADER = "tools/lint/api_floor.h"
HIDE_NEWER = ["-DNO_GNUSTEP=1", "-DMAC_OS_X_VERSION_MAX_ALLOWED=1060"]
CHECK = ["-fsyntax-only", "-ferror-limit=0",
         # Unknown methods and classes that are only forward-declared are what is looked for. Other
         # warnings have been given by the build, and a few say only that headers with so much
         # hidden do not fit together.
         "-Wno-everything", "-Werror=objc-method-access", "-Werror=receiver-forward-class"]

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


def command(root, unit, source):
    compiler, *flags = unit.flags()
    return [compiler, "-include", str(root / HEADER), *HIDE_NEWER, *flags, *CHECK,
            str(source)]


def lint(root, build):
    sources = units(root, build, APPLICATION_FOLDERS, (".mm",))
    return later_headers(root) + check_all(
        build, "api-floor", sources, lambda unit, source: command(root, unit, source),
        extra_inputs=[root / HEADER])


if __name__ == "__main__":
    run_with_build(lint)
