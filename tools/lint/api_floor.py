#!/usr/bin/env python3
"""Checks that the application uses nothing newer than macOS 10.6 and no extension of GNUstep, by
compiling it with everything else hidden. What the platform layer supplies of the 10.6 interface
stays visible, since every compile command includes it.

    api_floor.py [ROOT [BUILD]]
"""

from compilation import check_all, units
from project import APPLICATION_FOLDERS, run_with_build

HEADER = "tools/lint/api_floor.h"
HIDE_NEWER = ["-DNO_GNUSTEP=1", "-DMAC_OS_X_VERSION_MAX_ALLOWED=1060"]
CHECK = ["-fsyntax-only", "-ferror-limit=0",
         # Unknown methods and classes that are only forward-declared are what is looked for. Other
         # warnings have been given by the build, and a few say only that headers with so much
         # hidden do not fit together.
         "-Wno-everything", "-Werror=objc-method-access", "-Werror=receiver-forward-class"]


def command(root, unit, source):
    compiler, *flags = unit.flags()
    return [compiler, "-include", str(root / HEADER), *HIDE_NEWER, *flags, *CHECK,
            str(source)]


def lint(root, build):
    return check_all(build, "api-floor", units(root, build, APPLICATION_FOLDERS, (".mm",)),
                     lambda unit, source: command(root, unit, source),
                     extra_inputs=[root / HEADER])


if __name__ == "__main__":
    run_with_build(lint)
