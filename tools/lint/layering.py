#!/usr/bin/env python3
"""Checks that the rooms of the product include only what their targets are linked to
(cmake/Rooms.cmake), and that nothing in them is compiled conditionally: what differs between
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
ROOM = re.compile(r"^add_room\((\w+)\s", re.M)
LINKED = re.compile(r"^link_rooms\((\w+)\s+([^)]*)\)", re.M)


def rooms(root, findings):
    """The folder of each room, and the folders of all rooms that it is linked to."""
    folders, linked = {}, {}
    for path in tracked(root, suffixes=(".txt",), folders=APPLICATION_FOLDERS):
        if path.name != "CMakeLists.txt":
            continue
        text = re.sub(r"#.*", "", read(root, path))
        for name in ROOM.findall(text):
            folders[name] = path.parent.as_posix()
        for name, known in LINKED.findall(text):
            linked.setdefault(name, set()).update(known.split())

    def reached(name, above=()):
        if name in above:
            findings.append(f"rooms are linked in a circle: {' '.join([*above, name])}")
            return set()
        known = linked.get(name, set())
        return known.union(*(reached(other, (*above, name)) for other in known))

    return {folder: {folders[other] for other in reached(name) if other in folders}
            for name, folder in folders.items()}


def room_of(path, folders):
    """The innermost room that a path lies in, None for one outside of all."""
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
    room = room_of(path.as_posix(), known)
    target = room_of(name, known)
    if target != room and target not in known.get(room, ()):
        findings.add(path, number, f"{room or path.parts[0]}/ is not linked to the room of {name}")


def conditions(path, findings, number, line):
    match = CONDITION.match(line)
    if match:
        directive = f"#{match.group(1)} {match.group(2).strip()}"
        if (path.as_posix(), directive) not in ALLOWED_CONDITIONS:
            findings.add(path, number, f"conditional compilation: {directive}")


def lint(root):
    findings = Findings()
    known = rooms(root, findings)
    for path in tracked(root, suffixes=SOURCES, folders=APPLICATION_FOLDERS):
        for number, line in enumerate(without_comments(read(root, path)).splitlines(), 1):
            includes(root, path, known, findings, number, line)
            conditions(path, findings, number, line)
    return findings


if __name__ == "__main__":
    run(lint)
