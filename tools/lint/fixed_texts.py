#!/usr/bin/env python3
"""Checks that the application contains the texts that are fixed letter for letter
(fixed_texts.txt), and that no diagnostic line is written that is not among them."""

import re

from project import APPLICATION_FOLDERS, Findings, literals, read, run, tracked, without_comments

LIST = "tools/lint/fixed_texts.txt"
# The first argument: a literal, or a constant's name, qualified or not.
LOG_CALL = re.compile(r"\bNSLog\s*\(\s*(?:(@\")|(?:\w+::)*(\w+)\s*[,)])?")


def fixed_texts(root, findings):
    """The list as (line, places, text)."""
    entries = []
    for number, line in enumerate(read(root, LIST).splitlines(), 1):
        if not line or line.startswith("#"):
            continue
        places, tab, quoted = line.partition("\t")
        if not tab or len(quoted) < 2 or quoted[0] != '"' or quoted[-1] != '"':
            findings.add(LIST, number, 'not of the form: places, a tab, "text"')
            continue
        entries.append((number, places.split(), quoted[1:-1]))
    return entries


def texts_in(source):
    """The texts that stand in a source as whole literals: Objective-C strings, and UTF-16 ones
    where code works on the units of strings."""
    utf16 = re.findall(r'\bu"((?:\\.|[^"\\])*)"', without_comments(source))
    return {literal for _, literal in literals(source)} | set(utf16)


def is_in(path, places):
    return any(str(path) == place or str(path).startswith(place + "/") for place in places)


def constants(sources):
    """Names of string constants with their literals, over all sources."""
    definition = re.compile(r'(\w+)\s*=\s*@"((?:\\.|[^"\\])*)"\s*;')
    found = {}
    for text in sources.values():
        for match in definition.finditer(without_comments(text)):
            found[match.group(1)] = match.group(2)
    return found


def logged(text, named):
    """What NSLog is called with, as (line, literal), the literal None if it cannot be
    determined."""
    code = without_comments(text)
    for match in LOG_CALL.finditer(code):
        line = code.count("\n", 0, match.start()) + 1
        if match.group(1):
            first = literals(code[match.start(1):])
            yield line, first[0][1] if first else None
        else:
            yield line, named.get(match.group(2))


def lint(root):
    findings = Findings()
    paths = tracked(root, suffixes=(".h", ".mm"), folders=APPLICATION_FOLDERS)
    sources = {path: read(root, path) for path in paths}
    stands_in = {path: texts_in(text) for path, text in sources.items()}
    entries = fixed_texts(root, findings)
    for number, places, text in entries:
        if not any(text in stands_in[path] for path in paths if is_in(path, places)):
            findings.add(LIST, number, f'@"{text}" does not stand in {" or ".join(places)}')

    named = constants(sources)
    for path, source in sources.items():
        listed = {text for _, places, text in entries if is_in(path, places)}
        for line, literal in logged(source, named):
            if literal is None:
                findings.add(path, line, "NSLog needs a literal or a constant with a fixed text")
            elif literal not in listed:
                findings.add(path, line, f'NSLog writes @"{literal}", which is not in {LIST}')
    return findings


if __name__ == "__main__":
    run(lint)
