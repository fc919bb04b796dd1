"""Texts in the user's language. They are those of the application; texts.json is made of its string
tables by the build."""

import functools
import json
import os

DEVELOPMENT_LANGUAGE = "en"


def languages_wanted(environment):
    """The user's languages as locales, the most wanted first."""
    def named(locales):
        return [locale for locale in locales if locale.split(".")[0] not in ("", "C", "POSIX")]
    listed = named(environment.get("LANGUAGE", "").split(":"))
    if listed:
        return listed
    for variable in ("LC_ALL", "LC_MESSAGES", "LANG"):
        if environment.get(variable):
            return named([environment[variable]])
    return []


def localization_for(locale, available):
    """The name of the localisation, as the application would choose it; None when there is none."""
    locale = locale.split(".")[0].split("@")[0].replace("-", "_")
    language = locale.split("_")[0].lower()
    if language == "zh":
        # Written in the simplified script, except where it is not.
        other_script = any(part.lower() in ("tw", "hk", "mo", "hant") for part in locale.split("_"))
        return None if other_script else "zh-Hans"
    for name in available:
        if name.split("-")[0] == language:
            return name
    return None


@functools.lru_cache(maxsize=None)
def _table():
    place = os.path.join(os.path.dirname(os.path.abspath(__file__)), "texts.json")
    with open(place, encoding="utf-8") as file:
        tables = json.load(file)
    for locale in languages_wanted(os.environ):
        name = localization_for(locale, tables)
        if name in tables:
            return tables[name]
    return tables[DEVELOPMENT_LANGUAGE]


def text(key):
    """The text of a key of the application's string tables."""
    return _table()[key]
