#!/usr/bin/env python3
"""Checks that the program links for the Mac with the frameworks that the build names and the
libraries that every program has (mac/sdk lists what is used of each), and what the linked program
demands of a system. LLVM's linker does not link for 32-bit Intel: there the symbols are compared.

    mac_linking.py [ROOT [BUILD]]
"""

import re
import subprocess

from mac_objects import OURS, compile_all, compilers, run_if_there_are_headers, sources
from project import Findings, read, tracked

SDK = OURS / "sdk"
FRAMEWORKS_OF_BUILD = "cmake/Cocoa.cmake"
FRAMEWORK = re.compile(r"-framework (\w+)")
# A C++ compiler links every program with these.
LIBRARIES = ("c++", "System")
# Where the stubs of the closed libraries are, which the build links.
STUBS = "packaging"

LINKER = "ld64.lld-14"
NOT_LINKED = ("i386",)

# Where the libraries of the system are, and where the closed ones are, which have stubs.
SYSTEM_LIBRARY = re.compile(r"/usr/lib/|/System/Library/Frameworks/")
CLOSED_LIBRARIES = "/usr/local/lib/"
INSTALL_NAME = re.compile(r"^install-name: +'?([^'\s]+)", re.MULTILINE)
# What "nm" prints of each symbol: its name and its type, a capital letter if other objects see it.
# (With its option for these it leaves the first one of a list out.)
SYMBOL = re.compile(r"^(\S+) [A-Z](?: |$)", re.MULTILINE)
# What "otool -l" prints of each load command.
COMMAND = re.compile(r"^Load command \d+$", re.MULTILINE)
# The field with the oldest system, in the load commands that have one.
MINIMUM = {"LC_BUILD_VERSION": "minos", "LC_VERSION_MIN_MACOSX": "version"}
FIELD = re.compile(r"^ *(\w+) (.+?)(?: \(offset \d+\))?$", re.MULTILINE)


def output_of(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


def frameworks(root):
    """Those that the build names."""
    return sorted(set(FRAMEWORK.findall(re.sub(r"#.*", "", read(root, FRAMEWORKS_OF_BUILD)))))


def stubs(root):
    return [root / path for path in tracked(root, (".tbd",), (STUBS,))]


def symbols(architecture, option, files):
    return set(SYMBOL.findall(output_of("llvm-nm-14", option, "--format=posix",
                                        f"--arch={architecture}", *map(str, files))))


def libraries_in_sdk(root):
    """What is linked of the SDK, and what that re-exports."""
    named = [SDK / f"System/Library/Frameworks/{name}.framework/{name}.tbd"
             for name in frameworks(root)]
    named += [SDK / f"usr/lib/lib{name}.tbd" for name in LIBRARIES]
    by_name = {INSTALL_NAME.search(path.read_text()).group(1): path for path in SDK.rglob("*.tbd")}
    reexported = [path for name, path in by_name.items() for each in named
                  if each != path and name in each.read_text()]
    return [*named, *reexported]


def missing_symbols(root, architecture, objects):
    """What the objects use and neither they nor a library have."""
    found = Findings()
    needed = symbols(architecture, "--undefined-only", objects)
    there = symbols(architecture, "--defined-only", objects)
    for library in (*libraries_in_sdk(root), *stubs(root)):
        there |= symbols(architecture, "--defined-only", [library])
    for symbol in sorted(needed - there):
        # The linker makes it.
        if symbol != "___dso_handle":
            found.append(f"{architecture}: undefined symbol: {symbol}")
    return found


def link(root, compiler, objects, options=()):
    """Links the program; returns its path and what the linker printed if it failed."""
    program = compiler.folder / "ContextMenuApp"
    done = subprocess.run(
        [LINKER, "-arch", compiler.variant.processor, "-platform_version", "macos",
         compiler.variant.minimum, "14.0", "-syslibroot", str(SDK),
         *(each for name in frameworks(root) for each in ("-framework", name)),
         *(f"-l{name}" for name in LIBRARIES), "-fatal_warnings", "--error-limit=0", *options,
         "-o", str(program), *map(str, (*objects, *stubs(root)))], capture_output=True, text=True)
    # A symbol is reported for each reference to it.
    reported = [line for line in dict.fromkeys(done.stderr.splitlines()) if line.startswith(LINKER)]
    return program, "\n".join(reported) or done.stderr if done.returncode else None


def load_commands(program):
    """The fields of each load command."""
    printed = output_of("llvm-otool-14", "-l", str(program))
    return [dict(FIELD.findall(text)) for text in COMMAND.split(printed)[1:]]


def demands(root, program, minimum, places):
    """What is wrong with what the program demands of a system. places: folders that it must not
    name."""
    found = Findings()
    closed = {name for path in stubs(root) for name in INSTALL_NAME.findall(path.read_text())
              if name.startswith(CLOSED_LIBRARIES)}
    versions = set()
    for command in load_commands(program):
        kind, name = command["cmd"], command.get("name", command.get("path"))
        if kind in MINIMUM:
            versions.add(command[MINIMUM[kind]])
        if kind.endswith("_DYLIB") and not SYSTEM_LIBRARY.match(name) and name not in closed:
            found.append(f"{program.name} needs {name}, which no system has")
        if kind == "LC_LOAD_WEAK_DYLIB":
            found.append(f"{program.name} starts without {name}, and would fail later")
        if kind == "LC_RPATH":
            found.append(f"{program.name} looks for libraries in {name}")
    if versions != {minimum}:
        found.append(f"{program.name} is for macOS {', '.join(sorted(versions)) or 'of any age'}"
                     f" and later, not for {minimum}")
    content = program.read_bytes()
    found.extend(f"{program.name} has the name of a folder of the build: {place}"
                 for place in places if str(place).encode() in content)
    return found


def lint(root, build, headers):
    if findings := compile_all(root, build, headers):
        return findings
    findings = Findings()
    for processor, compiler in compilers(root, build, headers).items():
        objects = [compiler.object(source) for source in sources(root)]
        if processor in NOT_LINKED:
            findings += missing_symbols(root, processor, objects)
            continue
        program, failure = link(root, compiler, objects)
        findings += ([failure] if failure else
                     demands(root, program, compiler.variant.minimum, (root, build, headers)))
    return findings


if __name__ == "__main__":
    run_if_there_are_headers(lint)
