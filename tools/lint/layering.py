#!/usr/bin/env python3
"""Checks that the components of the product include only what their targets are linked to
(cmake/Components.cmake), and that nothing in them is compiled conditionally: what differs between
platforms belongs to the platform layer."""

import re

from project import APPLICATION_FOLDERS, SOURCES, Findings, read, run, tracked, without_comments

# Each condition that is needed, with its reason.
ALLOWED_CONDITIONS = {
    # A deployment may name another agent.
    ("agent/AgentIdentity.h", "#ifndef KRV_AGENT_BUNDLE_IDENTIFIER"),
    # The header is the library's, and C programs include it too.
    ("app/BVSyncEngine.h", "#ifdef __cplusplus"),
}

INCLUDE = re.compile(r'^\s*#\s*(?:include|import)\s*["<]([^">]+)[">]')
CONDITION = re.compile(r"^\s*#\s*(if|ifdef|ifndef|elif|elifdef|elifndef)\b(.*)")
COMPONENT = re.compile(r"^add_component\((\w+)\s", re.M)
LINKED = re.compile(r"^link_components\((\w+)\s+([^)]*)\)", re.M)


def components(root, findings):
    """The folder of each component, and the folders of all components that it is linked to."""
    folders, linked = {}, {}
    for path in tracked(root, suffixes=(".txt",), folders=APPLICATION_FOLDERS):
        if path.name != "CMakeLists.txt":
            continue
        text = re.sub(r"#.*", "", read(root, path))
        for name in COMPONENT.findall(text):
            folders[name] = path.parent.as_posix()
        for name, known in LINKED.findall(text):
            linked.setdefault(name, set()).update(known.split())

    def reached(name, above=()):
        if name in above:
            findings.append(f"components are linked in a circle: {' '.join([*above, name])}")
            return set()
        known = linked.get(name, set())
        return known.union(*(reached(other, (*above, name)) for other in known))

    return {folder: {folders[other] for other in reached(name) if other in folders}
            for name, folder in folders.items()}


def component_of(path, folders):
    """The innermost component that a path lies in, None for one outside of all."""
    return max((folder for folder in folders if f"{path}/".startswith(f"{folder}/")), key=len,
               default=None)


def includes(root, path, known, findings, number, line):
    match = INCLUDE.match(line)
    if not match:
        return
    name = match.group(1)
    if (root / path.parent / name).is_file() and "/" not in name:
        findings.add(path, number,
                     f'include "{name}" by its path from the root: "{path.parent}/{name}"')
        return
    if not (root / name).is_file() or name.startswith("/"):
        if ".." in name.split("/"):
            findings.add(path, number, f'include "{name}" by its path from the root')
        return  # the system's
    component = component_of(path.as_posix(), known)
    target = component_of(name, known)
    if target != component and target not in known.get(component, ()):
        findings.add(path, number,
                     f"{component or path.parts[0]}/ is not linked to the component of {name}")


def conditions(path, findings, number, line):
    match = CONDITION.match(line)
    if match:
        directive = f"#{match.group(1)} {match.group(2).strip()}"
        if (path.as_posix(), directive) not in ALLOWED_CONDITIONS:
            findings.add(path, number, f"conditional compilation: {directive}")


def lint(root):
    findings = Findings()
    known = components(root, findings)
    for path in tracked(root, suffixes=SOURCES, folders=APPLICATION_FOLDERS):
        for number, line in enumerate(without_comments(read(root, path)).splitlines(), 1):
            includes(root, path, known, findings, number, line)
            conditions(path, findings, number, line)
    return findings


if __name__ == "__main__":
    run(lint)
