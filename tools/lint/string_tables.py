#!/usr/bin/env python3
"""Checks the string tables: each language has the same keys with the same format arguments, and
every key that the application looks up is there."""

import codecs
import re
from collections import Counter

from project import APPLICATION_FOLDERS, Findings, read, run, tracked, without_comments

TABLE_NAME = "Localizable.strings"
REFERENCE = "en"

TOKEN = re.compile(r'\s+|//[^\n]*|/\*.*?\*/|(?P<string>"(?:\\.|[^"\\])*")|(?P<mark>[=;])', re.DOTALL)
ESCAPE = re.compile(r"\\(U[0-9a-fA-F]{4}|.)", re.DOTALL)
# %%, or a conversion: position, width, precision, length, type. Without the flags that C has
# besides, which no text needs: with them "100% sure" would be a conversion.
CONVERSION = re.compile(
    r"%(?:%|(?:(\d+)\$)?\d*(?:\.\d+)?(?:hh|h|ll|l|q|z)?([@dDiuUxXoOfeEgGcCsSp]))")
LOOKUP = re.compile(r'\blocalizedText\s*\(\s*@"((?:\\.|[^"\\])*)"')


def text_of(path):
    """The table's text, and whether its encoding is one that every platform recognises."""
    data = path.read_bytes()
    if data.startswith((codecs.BOM_UTF16_LE, codecs.BOM_UTF16_BE)):
        return data.decode("utf-16"), True
    if data.startswith(codecs.BOM_UTF8):
        return data.decode("utf-8-sig"), True
    return data.decode("utf-8"), data.isascii()


def entries_of(text):
    """The entries as (line, key, value); raises ValueError with the line where the form is wrong."""
    tokens, position = [], 0
    while position < len(text):
        match = TOKEN.match(text, position)
        line = text.count("\n", 0, position) + 1
        if not match:
            raise ValueError(line)
        if match.lastgroup:
            tokens.append((line, match.group()))
        position = match.end()
    for index in range(0, len(tokens), 4):
        group = tokens[index:index + 4]
        marks = [token if token in "=;" else '"' for _, token in group]
        if marks != ['"', "=", '"', ";"]:
            raise ValueError(group[0][0])
        yield group[0][0], group[0][1][1:-1], group[2][1][1:-1]


def arguments(value):
    """The format's arguments by position, so that a translation may reorder them."""
    found, following = Counter(), 1
    for match in CONVERSION.finditer(value):
        if match.group(2):
            position = int(match.group(1) or following)
            following += not match.group(1)
            found[position, match.group(2)] = 1
    return found


def table(root, path, findings):
    """One table as {key: (line, value)}."""
    text, portable = text_of(root / path)
    if not portable:
        findings.add(path, 0, r"not plain ASCII: write \Uxxxx for other characters")
    found = {}
    try:
        for line, key, value in entries_of(text):
            if key in found:
                findings.add(path, line, f'"{key}" stands twice')
            found[key] = line, value
            for escape in ESCAPE.findall(key + value):
                if len(escape) == 1 and escape not in 'abfnrtv"\\\'':
                    findings.add(path, line, f'"{key}": unknown escape \\{escape}')
            if "%" in CONVERSION.sub("", value):
                findings.add(path, line, f'"{key}": a bare percent sign; every text may be a format')
    except ValueError as error:
        findings.add(path, error.args[0], 'not of the form "key" = "text";')
    return found


def compare(reference, other, reference_path, path, findings):
    for key, (line, value) in reference.items():
        if key not in other:
            findings.add(path, 0, f'"{key}" of {reference_path} is missing')
        elif arguments(value) != arguments(other[key][1]):
            findings.add(path, other[key][0], f'"{key}": other format arguments than in {reference_path}')
    for key, (line, _) in other.items():
        if key not in reference:
            findings.add(path, line, f'"{key}" is not in {reference_path}')


def lint(root):
    findings = Findings()
    tables = {path: table(root, path, findings) for path in tracked(root, folders=("resources",))
              if path.name == TABLE_NAME}
    reference_path = next((path for path in tables if path.parent.name == f"{REFERENCE}.lproj"), None)
    reference = tables.get(reference_path, {})
    for path, entries in tables.items():
        if reference_path and path != reference_path:
            compare(reference, entries, reference_path, path, findings)

    for path in tracked(root, suffixes=(".h", ".mm"), folders=APPLICATION_FOLDERS):
        code = without_comments(read(root, path))
        for match in LOOKUP.finditer(code):
            if match.group(1) not in reference:
                line = code.count("\n", 0, match.start()) + 1
                findings.add(path, line, f'no table has the key "{match.group(1)}"')
    return findings


if __name__ == "__main__":
    run(lint)
