#!/usr/bin/env python3
"""Runs clang-tidy with the checks of .clang-tidy over everything that the build compiles, the static
analyzer's retain and release checks among them, and refuses suppressions without a reason.

    static_analysis.py [ROOT [BUILD]]
"""

import re
import sys
from pathlib import Path

from compilation import check_all, units
from project import APPLICATION_FOLDERS, ROOT, SOURCES, Findings, read, tracked

FOLDERS = (*APPLICATION_FOLDERS, "platform", "devkit", "packaging", "tests", "bench")
CONFIGURATION = ".clang-tidy"

# Following every path through the test framework's macros takes longer than all the rest together.
# What it would find in a test, running the test under the address sanitizer finds, too.
NOT_ANALYZED = ("tests", "bench")

SUPPRESSION = re.compile(r"\bNOLINT\w*")
WITH_REASON = re.compile(r"\bNOLINT(NEXTLINE|BEGIN)?\([\w.*,\s-]+\): \S|\bNOLINTEND\(")


def command(root, unit):
    flags = unit.flags()[1:]
    fewer = ["--checks=-clang-analyzer-*"] if unit.source.parts[0] in NOT_ANALYZED else []
    return ["clang-tidy", "--quiet", f"--config-file={root / CONFIGURATION}",
            # Platform headers and generated files are none of ours.
            f"--header-filter=^{re.escape(str(root))}/({'|'.join(FOLDERS)})/",
            *fewer, str(root / unit.source), "--", *flags,
            # The compiler has said its warnings already, in its own words.
            "-Wno-everything"]


def suppressions(root):
    findings = Findings()
    for path in tracked(root, suffixes=SOURCES):
        for number, line in enumerate(read(root, path).splitlines(), 1):
            if SUPPRESSION.search(line) and not WITH_REASON.search(line):
                findings.add(path, number, "a NOLINT names its check and its reason: NOLINT(check): why")
    return findings


def lint(root, build):
    return suppressions(root) + check_all(
        build, "clang-tidy", units(root, build, FOLDERS, (".mm", ".cpp")),
        lambda unit: command(root, unit), extra_inputs=[root / CONFIGURATION])


if __name__ == "__main__":
    project = Path(sys.argv[1]).resolve() if len(sys.argv) > 1 else ROOT
    found = lint(project, Path(sys.argv[2]).resolve() if len(sys.argv) > 2 else project / "build")
    print(*found, sep="\n", end="\n" if found else "")
    sys.exit(1 if found else 0)
