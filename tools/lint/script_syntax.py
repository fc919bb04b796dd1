#!/usr/bin/env python3
"""Checks that every shell script and every Python program can be read by its interpreter."""

import subprocess

from project import Findings, run, tracked


def language(root, path):
    if path.suffix in (".sh", ".py"):
        return path.suffix
    with open(root / path, "rb") as file:
        first = file.readline(200)
    if not first.startswith(b"#!"):
        return ""
    if b"python" in first:
        return ".py"
    return ".sh" if first.split()[0].endswith(b"sh") or first.split()[-1].endswith(b"sh") else ""


def lint(root):
    findings = Findings()
    for path in tracked(root):
        kind = language(root, path)
        if kind == ".sh":
            result = subprocess.run(["bash", "-n", str(root / path)], capture_output=True, text=True)
            if result.returncode:
                findings.append(result.stderr.strip())
        elif kind == ".py":
            # As py_compile does, without leaving a compiled file behind.
            try:
                compile((root / path).read_bytes(), str(path), "exec")
            except SyntaxError as error:
                findings.add(path, error.lineno, error.msg)
    return findings


if __name__ == "__main__":
    run(lint)
