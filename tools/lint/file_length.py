#!/usr/bin/env python3
"""Checks that no source file grows beyond what a reader takes in; warns a little before that."""

from project import SOURCES, Findings, read, run, tracked

WARN_ABOVE = 300
FAIL_ABOVE = 350


def lint(root):
    findings = Findings()
    for path in tracked(root, suffixes=SOURCES + (".py", ".sh")):
        length = len(read(root, path).splitlines())
        if length > FAIL_ABOVE:
            findings.add(path, 0, f"{length} lines, more than {FAIL_ABOVE}: split it by concern")
        elif length > WARN_ABOVE:
            print(f"{path}: warning: {length} lines, {FAIL_ABOVE} are the limit")
    return findings


if __name__ == "__main__":
    run(lint)
