#!/usr/bin/env python3
"""Makes files of the packages from their templates, with the texts of the application's string
tables, so that each text stands in one place.

    generate.py texts OUTPUT [KEY...]             the texts as JSON, by language
    generate.py fill TEMPLATE OUTPUT [NAME=VALUE...]

In a template @NAME@ stands for a value. A line that holds @text:KEY@ is written once in English and
once for each other language, where the file's form has that: in a desktop entry as Name[de]=, in a
property list (*.plist) as a dictionary by the names that languages have there.
"""

import json
import re
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parents[1]
sys.path.insert(0, str(ROOT / "tools" / "lint"))
sys.dont_write_bytecode = True  # the tools' folder stays as it is

from string_tables import (  # noqa: E402  its place is known only now
    LANGUAGES, REFERENCE, TABLE_NAME, entries_of, text_of, unescaped)

# The locales of desktop entries that a localisation is for. A name without a country is for all of
# them; simplified Chinese is not.
LOCALES = {"pt-BR": ["pt"], "zh-Hans": ["zh_CN", "zh_SG"]}
# What GNUstep calls them.
GNUSTEP_LANGUAGES = {
    "en": ["default", "English"],
    "de": ["German"],
    "fr": ["French"],
    "es": ["Spanish"],
    "it": ["Italian"],
    "pt-BR": ["Portuguese", "BrasilPortuguese"],
    "ja": ["Japanese"],
    "zh-Hans": ["Chinese", "SimplifiedChinese", "SingaporeChinese"],
}

TEXT = re.compile(r"@text:(\w+)@")
VALUE = re.compile(r"@([A-Z][A-Z0-9_]*)@")


def tables():
    """{language: {key: text}}"""
    found = {}
    for language in LANGUAGES:
        text = text_of(ROOT / "resources" / f"{language}.lproj" / TABLE_NAME)
        found[language] = {key: unescaped(value) for _, key, value in entries_of(text)}
    return found


def desktop_lines(line, texts):
    """The line of a desktop entry, and its translations after it."""
    name, _, value = line.partition("=")
    yield TEXT.sub(lambda match: texts[REFERENCE][match[1]], line)
    for language in LANGUAGES:
        if language == REFERENCE:
            continue
        translated = TEXT.sub(lambda match, table=texts[language]: table[match[1]], value)
        for locale in LOCALES.get(language, [language]):
            yield f"{name}[{locale}]={translated}"


def quoted(text):
    """A string of a property list in its old form, in ASCII."""
    plain = text.replace("\\", "\\\\").replace('"', '\\"')
    units = plain.encode("utf-16-be")
    codes = [int.from_bytes(units[index:index + 2], "big") for index in range(0, len(units), 2)]
    return '"' + "".join(chr(code) if code < 128 else f"\\U{code:04x}" for code in codes) + '"'


def property_list_line(line, texts):
    """The line with a dictionary for what is after its first "=" and before its ";"."""
    head, _, value = line.partition("=")
    value = value.strip().rstrip(";").strip().strip('"')

    def text(language):
        return quoted(TEXT.sub(lambda match: texts[language][match[1]], value))

    entries = [f"{name} = {text(language)};"
               for language, names in GNUSTEP_LANGUAGES.items() for name in names]
    indent = " " * (len(head) - len(head.lstrip()) + 4)
    yield f"{head.rstrip()} = {{"
    yield from (indent + entry for entry in entries)
    yield indent[4:] + "};"


def filled(template, name, values, texts):
    localized = property_list_line if ".plist" in name else desktop_lines
    lines = []
    for line in template.splitlines():
        line = VALUE.sub(lambda match: values[match[1]], line)
        lines += localized(line, texts) if TEXT.search(line) else [line]
    return "\n".join(lines) + "\n"


def main(arguments):
    if len(arguments) >= 2 and arguments[0] == "texts":
        keys = arguments[2:]
        chosen = {language: {key: table[key] for key in keys or table}
                  for language, table in tables().items()}
        Path(arguments[1]).write_text(json.dumps(chosen, ensure_ascii=False, indent=1) + "\n",
                                      encoding="utf-8")
        return 0
    if len(arguments) >= 3 and arguments[0] == "fill":
        template, output = Path(arguments[1]), Path(arguments[2])
        values = dict(argument.split("=", 1) for argument in arguments[3:])
        text = filled(template.read_text(encoding="utf-8"), template.name, values, tables())
        output.write_text(text, encoding="utf-8")
        return 0
    print(__doc__.strip(), file=sys.stderr)
    return 2


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
