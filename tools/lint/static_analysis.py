#!/usr/bin/env python3
"""Runs clang-tidy with the checks of .clang-tidy over everything of the product that the build
compiles, the static analyzer's retain and release checks among them, and refuses suppressions
without a reason. With --all also over the tests and benchmarks, and further into functions with
many paths.

    static_analysis.py [--all] [ROOT [BUILD]]
"""

import argparse
import re
from pathlib import Path

from compilation import check_all, units
from project import APPLICATION_FOLDERS, ROOT, SOURCES, Findings, finish, read, tracked

PRODUCT = (*APPLICATION_FOLDERS, "platform", "devkit", "packaging")

# Following every path through the test framework's macros takes longer than all the rest together,
# and the address sanitizer finds the same faults when the tests run.
NOT_ANALYZED = ("tests", "bench")

FOLDERS = (*PRODUCT, *NOT_ANALYZED)
CONFIGURATION = ".clang-tidy"

SUPPRESSION = re.compile(r"\bNOLINT\w*")
WITH_REASON = re.compile(r"\bNOLINT(NEXTLINE|BEGIN)?\([\w.*,\s-]+\): \S|\bNOLINTEND\(")


# How many sources are analyzed in one go.
BATCH_SIZE = 24

# How many states of a function the static analyzer looks at, a third of what it would otherwise:
# those with more loop over the containers of the C++ library.
STATES_OF_A_FUNCTION = ["-Xclang", "-analyzer-config", "-Xclang", "max-nodes=75000"]


def command(root, unit, source, thorough=False):
    flags = unit.flags()[1:]
    if not thorough:
        flags += STATES_OF_A_FUNCTION
    fewer = ["--checks=-clang-analyzer-*"] if unit.source.parts[0] in NOT_ANALYZED else []
    return ["clang-tidy", "--quiet", f"--config-file={root / CONFIGURATION}",
            # Platform headers and generated files are none of ours.
            f"--header-filter=^{re.escape(str(root))}/({'|'.join(FOLDERS)})/",
            *fewer, str(source), "--", *flags,
            # The compiler has printed its warnings already.
            "-Wno-everything"]


def suppressions(root):
    findings = Findings()
    for path in tracked(root, suffixes=SOURCES):
        for number, line in enumerate(read(root, path).splitlines(), 1):
            if SUPPRESSION.search(line) and not WITH_REASON.search(line):
                findings.add(path, number,
                             "a NOLINT names its check and its reason: NOLINT(check): why")
    return findings


def lint(root, build, folders=PRODUCT, thorough=False):
    return suppressions(root) + check_all(
        build, "clang-tidy", units(root, build, folders, (".mm", ".cpp")),
        lambda unit, source: command(root, unit, source, thorough), [root / CONFIGURATION],
        BATCH_SIZE)


def parse():
    parser = argparse.ArgumentParser(description=__doc__.split("\n\n", maxsplit=1)[0])
    parser.add_argument("--all", action="store_true",
                        help="the tests and benchmarks, too, and more of each function")
    parser.add_argument("root", nargs="?", type=Path, default=ROOT)
    parser.add_argument("build", nargs="?", type=Path)
    return parser.parse_args()


if __name__ == "__main__":
    options = parse()
    project = options.root.resolve()
    finish(lint(project, (options.build or project / "build").resolve(),
                FOLDERS if options.all else PRODUCT, thorough=options.all))
