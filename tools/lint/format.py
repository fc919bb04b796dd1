#!/usr/bin/env python3
"""Checks that every source file is formatted as .clang-format says. To repair: clang-format -i."""

import subprocess

from project import SOURCES, Findings, run, tracked


def lint(root):
    findings = Findings()
    paths = tracked(root, suffixes=SOURCES)
    if paths:
        result = subprocess.run(["clang-format", "--dry-run", "-Werror", *map(str, paths)],
                                cwd=root, capture_output=True, text=True)
        if result.returncode:
            findings.append(result.stderr.strip())
    return findings


if __name__ == "__main__":
    run(lint)
