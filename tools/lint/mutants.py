#!/usr/bin/env python3
"""Checks that the list of mutants (tests/mutants/*.txt) is up to date: that the lines which each
one replaces are in its file exactly once, and that the test which must fail is in its program."""

import re
from dataclasses import dataclass, field
from pathlib import Path

from named_tests import exists, tests_by_source
from project import APPLICATION_FOLDERS, Findings, read, run, tracked

FOLDER = ("tests", "mutants")
# `Suite.Test`, in front of the suite what it is instantiated as, behind the suite the type of a
# typed one, behind the test its parameter
NAME = re.compile(r"^((?:\w+/)?\w+)\.(\w+\*?|\*)(?:/[\w*]+)?$")
# Its name and its arguments, with the sources among them
PROGRAM = re.compile(r"^\s*add_(?:whole_test_program|test_program|gtest_executable)"
                     r"\((\w+)([^)]*)\)", re.MULTILINE)
SOURCE = re.compile(r"\S+\.(?:mm|cpp)\b")


@dataclass
class Mutant:
    """A change of a source that a test must notice, as tests/mutants/README.md describes it."""
    path: str  # of the list
    line: int  # in the list
    what: str = ""
    file: str = ""
    # The lines as they stand and the lines instead, both with those that stay.
    old: list = field(default_factory=list)
    new: list = field(default_factory=list)
    program: str = ""
    tests: str = ""

    def fault(self):
        """What is wrong with its entry in the list; None where nothing is."""
        if not self.what:
            return "does not say what is wrong with the mutant"
        if not self.file:
            return "names no file"
        if self.old == self.new:
            return "changes nothing"
        if not self.tests:
            return "names no test that must fail"
        return None

    def places(self, text):
        """The indices of the lines at which what it replaces begins, white space at both ends of
        a line left out."""
        lines = [line.strip() for line in text.splitlines()]
        old = [line.strip() for line in self.old]
        return [at for at in range(len(lines) - len(old) + 1) if lines[at:at + len(old)] == old]

    def applied(self, text):
        """The text with the mutant in it, in which its lines are exactly once."""
        at, = self.places(text)
        lines = text.splitlines()
        lines[at:at + len(self.old)] = self.new
        return "\n".join(lines) + "\n"

    def names(self):
        return self.tests.split(":")

    def add(self, line):
        """Reads one more line of its entry."""
        kind, rest = line[0], line[1:]
        if kind == "#":
            self.what = f"{self.what} {rest.strip()}".strip()
        elif kind == ">":
            self.program, _, self.tests = rest.strip().partition(" ")
        elif kind in "-+ ":
            if kind != "+":
                self.old.append(rest)
            if kind != "-":
                self.new.append(rest)
        else:
            self.file = line.strip()


def mutants_in(path, text):
    """The mutants of a list; entries are separated by empty lines."""
    found = []
    before = ""
    for number, line in enumerate(text.splitlines(), 1):
        if line and not before:
            found.append(Mutant(str(path), number))
        if line:
            found[-1].add(line)
        before = line
    return found


def all_mutants(root):
    return [mutant for path in tracked(root, suffixes=(".txt",))
            if path.parts[:-1] == FOLDER
            for mutant in mutants_in(path, read(root, path))]


def tests_of_programs(root):
    """The tests of each program of tests: those in its own sources."""
    lists = root / "tests" / "CMakeLists.txt"
    if not lists.exists():
        return {}
    tests = tests_by_source(root)
    return {program: {test for source in SOURCE.findall(arguments)
                      for test in tests.get(Path("tests", source), ())}
            for program, arguments in PROGRAM.findall(lists.read_text(encoding="utf-8"))}


def is_test(name, tests):
    """Whether one of the tests has this name of GoogleTest."""
    match = NAME.match(name)
    return match is not None and any(exists(suite, match.group(2), tests)
                                     for suite in match.group(1).split("/"))


def finding(mutant, root, files, programs):
    """What is out of date; None where nothing is."""
    if mutant.fault():
        return mutant.fault()
    if mutant.file not in files:
        return f"there is no source {mutant.file} of the application or its platform"
    places = len(mutant.places(read(root, mutant.file)))
    if places != 1:
        return f"its lines are {places} times in {mutant.file} instead of once"
    if mutant.program not in programs:
        return f'there is no program of tests "{mutant.program}"'
    missing = [name for name in mutant.names() if not is_test(name, programs[mutant.program])]
    return f'there is no test "{missing[0]}" in {mutant.program}' if missing else None


def lint(root):
    findings = Findings()
    mutants = all_mutants(root)
    files = {str(path) for path in tracked(root, folders=(*APPLICATION_FOLDERS, "platform"))}
    programs = tests_of_programs(root)
    for mutant in mutants:
        found = finding(mutant, root, files, programs)
        if found:
            findings.add(mutant.path, mutant.line, found)
    return findings


if __name__ == "__main__":
    run(lint)
