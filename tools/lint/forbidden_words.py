#!/usr/bin/env python3
"""Checks that the files speak of the project itself: not of the papers it was planned from, and not
of places that exist on one machine only."""

import re

from project import Findings, run, tracked

SAY_WHY = "say what holds and why instead of where it was written down"

# The brackets keep the patterns from finding themselves.
FORBIDDEN = [
    (re.compile(pattern, re.IGNORECASE), why) for pattern, why in [
        (r"\bs[p]ec(ification|s)?\b", SAY_WHY),
        (r"\bp[a]rt\s+\d+\.\d+", SAY_WHY),
        (r"(?<![\w/.])/(work|root)/\w", "a path of one machine"),
    ]
]


def lint(root):
    findings = Findings()
    for path in tracked(root):
        try:
            lines = (root / path).read_text(encoding="utf-8").splitlines()
        except UnicodeDecodeError:
            lines = []  # a picture
        for number, line in [(0, path.as_posix()), *enumerate(lines, 1)]:
            for pattern, why in FORBIDDEN:
                match = pattern.search(line)
                if match:
                    findings.add(path, number, f'"{match.group()}": {why}')
    return findings


if __name__ == "__main__":
    run(lint)
