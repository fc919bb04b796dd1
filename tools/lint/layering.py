#!/usr/bin/env python3
"""Checks that the application's folders include only what they may know, and that nothing in them
is compiled conditionally: what differs between platforms belongs to the platform layer."""

import re

from project import APPLICATION_FOLDERS, SOURCES, Findings, read, run, tracked, without_comments

DELEGATE = "app/ContextMenuAppAppDelegate.h"

# What each folder may include besides its own files: folders, or single files.
MAY_INCLUDE = {
    "app": set(APPLICATION_FOLDERS),
    "plugin": {"send", "share", "agent", DELEGATE},
    "send": {"agent", "ui", DELEGATE},
    "share": {"agent", "ui", "send", DELEGATE},
    "agent": set(),
    "ui": set(),
}

# Each condition that is needed, with its reason.
ALLOWED_CONDITIONS = {
    # A deployment may name another agent.
    ("agent/AgentIdentity.h", "#ifndef KRV_AGENT_BUNDLE_IDENTIFIER"),
    # The header is the library's, and C programs include it too.
    ("app/BVSyncEngine.h", "#ifdef __cplusplus"),
}

INCLUDE = re.compile(r'^\s*#\s*(?:include|import)\s*["<]([^">]+)[">]')
CONDITION = re.compile(r"^\s*#\s*(if|ifdef|ifndef|elif|elifdef|elifndef)\b(.*)")


def includes(root, path, findings, number, line):
    folder = path.parts[0]
    match = INCLUDE.match(line)
    if not match:
        return
    name = match.group(1)
    if (root / path.parent / name).is_file() and "/" not in name:
        findings.add(path, number, f'include "{name}" by its path from the root: "{path.parent}/{name}"')
        return
    if not (root / name).is_file() or name.startswith("/"):
        if ".." in name.split("/"):
            findings.add(path, number, f'include "{name}" by its path from the root')
        return  # the system's
    target = name.split("/")[0]
    if target != folder and target not in MAY_INCLUDE[folder] and name not in MAY_INCLUDE[folder]:
        findings.add(path, number, f"{folder}/ must not know {name}")


def conditions(path, findings, number, line):
    match = CONDITION.match(line)
    if match:
        directive = f"#{match.group(1)} {match.group(2).strip()}"
        if (path.as_posix(), directive) not in ALLOWED_CONDITIONS:
            findings.add(path, number, f"conditional compilation: {directive}")


def lint(root):
    findings = Findings()
    for path in tracked(root, suffixes=SOURCES, folders=APPLICATION_FOLDERS):
        for number, line in enumerate(without_comments(read(root, path)).splitlines(), 1):
            includes(root, path, findings, number, line)
            conditions(path, findings, number, line)
    return findings


if __name__ == "__main__":
    run(lint)
