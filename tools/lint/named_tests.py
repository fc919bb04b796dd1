#!/usr/bin/env python3
"""Checks that each test that a document names to prove what it says exists."""

import re

from project import Findings, run, tracked

# `Suite.Test`, `Suite.*`, `Suite.Test/Parameter`, `Suite.Test*`
NAME = re.compile(r"`([A-Z]\w+)\.(\*|[A-Z]\w*\*?)(?:/\w+)?`")
TEST = re.compile(r"^(?:TEST|TEST_F|TEST_P|TYPED_TEST)\((\w+),\s*(\w+)\)", re.MULTILINE)


def tests_by_source(root):
    return {path: TEST.findall((root / path).read_text(encoding="utf-8"))
            for path in tracked(root)
            if path.parts[0] == "tests" and path.suffix in (".mm", ".cpp")}


def tests_in(root):
    return {test for tests in tests_by_source(root).values() for test in tests}


def exists(suite, test, tests):
    prefix = test.rstrip("*")
    return any(known_suite == suite
               and (known == test or (test.endswith("*") and known.startswith(prefix)))
               for known_suite, known in tests)


def lint(root):
    findings = Findings()
    tests = tests_in(root)
    suites = {suite for suite, _ in tests}
    for path in tracked(root):
        if path.parts[0] != "docs" or path.suffix != ".md":
            continue
        for number, line in enumerate((root / path).read_text(encoding="utf-8").splitlines(), 1):
            for suite, test in NAME.findall(line):
                # A class and its method or file are written alike; those are no suites.
                is_test = suite in suites or test == "*" or path.name == "security.md"
                if is_test and not exists(suite, test, tests):
                    findings.add(path, number, f'there is no test "{suite}.{test}"')
    return findings


if __name__ == "__main__":
    run(lint)
