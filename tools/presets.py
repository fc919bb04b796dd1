"""The presets of a project's CMakePresets.json, each with all that it inherits."""

import json
from pathlib import Path


def read_presets(project, kind):
    """Those of a kind ("configurePresets", "testPresets") by name, also hidden ones."""
    presets = json.loads((Path(project) / "CMakePresets.json").read_text(encoding="utf-8"))[kind]
    by_name = {preset["name"]: preset for preset in presets}
    return {name: merged(by_name, name) for name in by_name}


def merged(presets, name):
    """A preset's own values override inherited ones, and those of its first parent override the
    next one's."""
    parents = presets[name].get("inherits", [])
    found = {}
    for parent in reversed([parents] if isinstance(parents, str) else parents):
        found = joined(found, merged(presets, parent))
    found.pop("hidden", None)  # is not inherited
    return joined(found, presets[name])


def joined(less, more):
    found = dict(less)
    for key, value in more.items():
        found[key] = {**found.get(key, {}), **value} if isinstance(value, dict) else value
    return found


def build_of(project, preset):
    """The folder of the build that a test preset is for, and the environment that it sets."""
    tests = read_presets(project, "testPresets").get(preset)
    if tests is None:
        raise SystemExit(f'CMakePresets.json has no test preset "{preset}"')
    build = read_presets(project, "configurePresets")[tests["configurePreset"]]["binaryDir"]
    folder = Path(build.replace("${sourceDir}", str(project))).resolve()
    return folder, tests.get("environment", {})
