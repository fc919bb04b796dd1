#!/usr/bin/env python3
"""Checks the string tables: they are UTF-8, each language has one, with the same keys and format
arguments, every text is there, translated and well formed, every key that the application looks up
has a text, and every key is used, in a source or as a visible text of an interface file."""

import re
import unicodedata
import xml.etree.ElementTree as ElementTree
from collections import Counter
from pathlib import Path

from project import APPLICATION_FOLDERS, Findings, literals, read, run, tracked, without_comments

TABLE_NAME = "Localizable.strings"
REFERENCE = "en"
LANGUAGES = ("en", "de", "fr", "es", "it", "pt-BR", "ja", "zh-Hans")

# Texts that may be the same as in English: in every language, or in those named.
EVERYWHERE = frozenset(LANGUAGES)
SAME_AS_ENGLISH = {
    "alertOkButtonTitleKey": EVERYWHERE,
    "applicationMenuTitleKey": EVERYWHERE,
    "downloadsLabelTextKey": {"de", "pt-BR"},
    "noButtonTitleKey": {"es", "it"},
    "personNameinAddressbookFormatKey": EVERYWHERE,
    "veldaneBrisvaleMessageTextKey": EVERYWHERE,
}
# The form of a key in an interface file, where it replaces a text, and the attributes that are not
# visible there.
KEY = re.compile(r"[a-z]\w*Key")
UNSEEN = ("customClass", "id", "key", "keyPath", "property", "selector", "userLabel")
COLONS = (":", "\uff1a")

TOKEN = re.compile(
    r'\s+|//[^\n]*|/\*.*?\*/|(?P<string>"(?:\\.|[^"\\])*")|(?P<mark>[=;])', re.DOTALL)
# A pair of escapes that are one character together, or any other escape.
ESCAPE = re.compile(
    r"\\(U[dD][89abAB][0-9a-fA-F]{2}\\U[dD][c-fC-F][0-9a-fA-F]{2}|U[0-9a-fA-F]{4}|.)", re.DOTALL)
ESCAPED = {"a": "\a", "b": "\b", "f": "\f", "n": "\n", "r": "\r", "t": "\t", "v": "\v"}
# Kinds of characters that a translator does not see: controls, formats, separators.
UNSEEN_CHARACTERS = ("Cc", "Cf", "Zl", "Zp", "Zs")
# %%, or a conversion: position, width, precision, length, type. Without the flags that C has
# besides, which no text needs: with them "100% sure" would be a conversion.
CONVERSION = re.compile(
    r"%(?:%|(?:(\d+)\$)?\d*(?:\.\d+)?(?:hh|h|ll|l|q|z)?([@dDiuUxXoOfeEgGcCsSp]))")
LOOKUP = re.compile(r'\blocalizedText\s*\(\s*@"((?:\\.|[^"\\])*)"')


def text_of(path):
    """The text of a table; raises UnicodeDecodeError, a ValueError, where it is not UTF-8."""
    return path.read_bytes().decode("utf-8")


def entries_of(text):
    """The entries as (line, key, value); raises ValueError with the line where the form is
    wrong."""
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


def unescaped(value):
    """The text with its characters for their escapes, and U+FFFD for half a character."""
    return ESCAPE.sub(lambda match: character(match.group(1)), value)


def character(escape):
    """The character of an escape, given without its first backslash."""
    if len(escape) == 1:
        return ESCAPED.get(escape, escape)
    units = bytes.fromhex(escape.replace("\\", "").replace("U", ""))
    return units.decode("utf-16-be", "replace")


def is_seen(char):
    return char == " " or unicodedata.category(char) not in UNSEEN_CHARACTERS


def escape_of(char):
    """How a character that cannot be seen is written."""
    letters = {value: letter for letter, value in ESCAPED.items()}
    if char in letters:
        return f"\\{letters[char]}"
    units = char.encode("utf-16-be").hex().upper()
    return "".join(f"\\U{units[index:index + 4]}" for index in range(0, len(units), 4))


def arguments(value):
    """The format's arguments by position, so that a translation may reorder them."""
    found, following = Counter(), 1
    for match in CONVERSION.finditer(value):
        if match.group(2):
            position = int(match.group(1) or following)
            following += not match.group(1)
            found[position, match.group(2)] = 1
    return found


def check_characters(path, line, key, value, findings):
    """Whether what can be seen is written as it is, and the rest as an escape."""
    for escape in dict.fromkeys(ESCAPE.findall(key + value)):
        char = character(escape)
        if escape == "U":
            findings.add(path, line, f'"{key}": \\U needs four hexadecimal digits')
        elif len(escape) == 1 and escape not in (*ESCAPED, '"', "\\", "'"):
            findings.add(path, line, f'"{key}": unknown escape \\{escape}')
        elif is_seen(char) and char not in '"\\\ufffd':
            findings.add(path, line, f'"{key}": write {char} instead of \\{escape}')
    for char in dict.fromkeys(key + value):
        if not is_seen(char):
            findings.add(path, line, f'"{key}": write {escape_of(char)} for what cannot be seen')


def check_entry(path, line, key, value, findings):
    """The findings about a single entry."""
    check_characters(path, line, key, value, findings)
    text = unescaped(value)
    if "\ufffd" in text:
        findings.add(path, line, f'"{key}": half of a pair of \\U escapes')
    if "%" in CONVERSION.sub("", text):
        findings.add(path, line, f'"{key}": a bare percent sign; every text may be a format')
    if not text.strip():
        findings.add(path, line, f'"{key}" has no text')
    elif text != text.strip():
        findings.add(path, line, f'"{key}": blanks at the beginning or the end')


def table(root, path, findings):
    """One table as {key: (line, text)}; None when it cannot be read."""
    try:
        text = text_of(root / path)
    except UnicodeDecodeError as error:
        findings.add(path, error.object.count(b"\n", 0, error.start) + 1, "not UTF-8")
        return None
    if text.startswith("\ufeff"):
        findings.add(path, 1, "begins with a byte order mark, which UTF-8 has no need of")
        text = text[1:]
    found = {}
    try:
        for line, key, value in entries_of(text):
            if key in found:
                findings.add(path, line, f'"{key}" stands twice')
            found[key] = line, unescaped(value)
            check_entry(path, line, key, value, findings)
    except ValueError as error:
        findings.add(path, error.args[0], 'not of the form "key" = "text";')
    return found


def compare(reference, other, reference_path, path, findings):
    for key, (_, text) in reference.items():
        if key not in other:
            findings.add(path, 0, f'"{key}" of {reference_path} is missing')
            continue
        line, translation = other[key]
        if arguments(text) != arguments(translation):
            findings.add(path, line, f'"{key}": other format arguments than in {reference_path}')
        if text == translation and language_of(path) not in SAME_AS_ENGLISH.get(key, ()):
            findings.add(path, line, f'"{key}" is not translated')
        if text.endswith(":") and not translation.endswith(COLONS):
            findings.add(path, line, f'"{key}" ends without a colon')
    for key, (line, _) in other.items():
        if key not in reference:
            findings.add(path, line, f'"{key}" is not in {reference_path}')


def language_of(path):
    return path.parent.stem


def texts_in(root, path, findings):
    """The texts of an interface file and the values of its visible attributes."""
    try:
        elements = list(ElementTree.parse(root / path).iter())
    except ElementTree.ParseError as error:
        findings.add(path, error.position[0], "not well-formed XML")
        return set()
    attributes = {value for element in elements
                  for name, value in element.attrib.items() if name not in UNSEEN}
    return attributes | {(element.text or "").strip() for element in elements}


def check_uses(root, reference_path, reference, findings):
    """Every key that is looked up has a text, and every text is shown somewhere."""
    used = set()
    for path in tracked(root, suffixes=(".h", ".mm"), folders=APPLICATION_FOLDERS):
        source = read(root, path)
        used.update(literal for _, literal in literals(source))
        code = without_comments(source)
        for match in LOOKUP.finditer(code):
            if match.group(1) not in reference:
                line = code.count("\n", 0, match.start()) + 1
                findings.add(path, line, f'no table has the key "{match.group(1)}"')
    for path in tracked(root, suffixes=(".xib",), folders=("resources",)):
        texts = texts_in(root, path, findings)
        used |= texts
        for text in sorted(texts):
            if KEY.fullmatch(text) and text not in reference:
                findings.add(path, 0, f'no table has the key "{text}"')
    for key, (line, _) in reference.items():
        if key not in used:
            findings.add(reference_path, line, f'nothing uses "{key}"')


def lint(root):
    findings = Findings()
    found = {path: table(root, path, findings) for path in tracked(root, suffixes=(".strings",))}
    tables = {path: entries for path, entries in found.items()
              if path.parts[0] == "resources" and path.name == TABLE_NAME}
    if None in tables.values():
        return findings  # all other findings would follow from that
    paths = {language_of(path): path for path in tables}
    for language in LANGUAGES:
        if language not in paths:
            missing = Path("resources", f"{language}.lproj", TABLE_NAME)
            findings.add(missing, 0, "this language has no table")
    reference_path = paths.get(REFERENCE)
    reference = tables.get(reference_path, {})
    for path, entries in tables.items():
        if reference_path and path != reference_path:
            compare(reference, entries, reference_path, path, findings)
    check_uses(root, reference_path, reference, findings)
    return findings


if __name__ == "__main__":
    run(lint)
