#!/usr/bin/env python3
"""Checks what only programs for 32-bit Intel Macs get wrong, in the code that the compiler makes
for them (mac_objects.py):

- An exception of the platform skips destructors there (clean_ups.py). So no local object's
  destructor may do more than free memory: agent/RestoringAfterwards.h restores what must be
  restored.
- What the platform calls by a selector has no integers of 64 bits: NSInteger has 32 there.

    mac_32_bit.py [ROOT [BUILD]]
"""

import re
import subprocess

from clean_ups import FUNCTION, name_of, skipped_clean_ups
from mac_objects import compile_all, compilers, run_if_there_are_headers, sources
from project import APPLICATION_FOLDERS, SOURCES, Findings, read, tracked

# The classes whose destructors only free memory. What is in none of these is a finding.
MEMORY_ONLY = (
    r"CompletionIndex::Matches",
    r"EntryFormat",
    r"EntryFormat::Piece",
    r"EntrySet",
    r"agent::\(anonymous namespace\)::RecordReader",
    # Strings, arrays of such elements, and functions, which hold references only.
    r"std::__1::basic_string<char(16_t)?, .*>",
    r"std::__1::vector<(unsigned int|NSString\*|objc_object\*|EntryFormat::Piece|"
    r"agent::\(anonymous namespace\)::Column), .*>",
    r"std::__1::function<.*>",
    r"std::__1::__function::.*",
)
# Within a function of the library that makes the copy of a closure, whose name is not readable.
MEMORY_ONLY_ENCODED = re.compile(r"_ZNSt3__110unique_ptrINS_10__function6__func.*D[12]Ev")

# These free memory, too, or end the process.
HARMLESS = ("operator delete(void*)", "__clang_call_terminate", "__cxa_begin_catch",
            "__cxa_end_catch", "__cxa_free_exception")

# An initialiser of a static variable that an exception ends leaves it locked. Those of these raise
# none: they make objects from constants.
GUARD = "__cxa_guard_abort"
STATIC = "guard variable for "
INITIALISED_FROM_CONSTANTS = (
    "(anonymous namespace)::addressPattern()::pattern",
    "(anonymous namespace)::reportMissing(NSString*)::reported",
    "addressBookEntry(NSString*, NSString*, EntryFormat const&)::plainFormat",
    "agent::(anonymous namespace)::joinedAndSplit(objc_object*)::separator",
    "agent::visitAccessEntries(objc_object*, std::__1::function<void (agent::AccessEntry const&)>"
    " const&)::keys",
    "agent::visitContactRecords(objc_object*, std::__1::function<void (NSString*, NSString*)>"
    " const&)::keys",
    "platformCaseFolding()::folding",
    # In a method, whose names are not readable.
    "_ZGVZ53-[ContextMenuAppAppDelegate(AddressBooks) completion]E10completion",
)

PROCESSOR = "i386"

# The functions of the C++ library themselves.
LIBRARY = ("_ZNSt", "_ZNKSt", "_ZSt")

DESTRUCTOR = re.compile(rf"({'|'.join(MEMORY_ONLY)})::~\w+\(\)")
METHOD = re.compile(r"[-+]\[[^ ]+ ([^\]]+)\]")
SELECTOR = re.compile(r"@selector\(([\w:]+)\)")


def readable(names):
    """The names as in the source, by those in the code."""
    names = sorted(names)
    shown = subprocess.run(["llvm-cxxfilt-14"], input="\n".join(names), check=True,
                           capture_output=True, text=True).stdout.splitlines()
    return dict(zip(names, shown))


def is_harmless(skipped, names):
    callee = names[skipped.callee]
    if callee == GUARD:
        return names[skipped.argument].removeprefix(STATIC) in INITIALISED_FROM_CONSTANTS
    return (callee in HARMLESS or DESTRUCTOR.fullmatch(callee) is not None
            or MEMORY_ONLY_ENCODED.fullmatch(callee) is not None)


def exceptions(codes):
    """The clean-ups that are skipped, from the intermediate code by source."""
    found = {(source, each) for source, code in codes.items() for each in skipped_clean_ups(code)
             if not each.caller.startswith(LIBRARY)}
    names = readable({name for _, each in found for name in each if name})
    findings = Findings()
    for source, each in sorted(found, key=str):
        if not is_harmless(each, names):
            what = names[each.callee] if each.callee != GUARD else names[each.argument]
            findings.add(source, 0, f"on 32 bit an exception in {names[each.caller]} skips {what};"
                                    " restore by agent/RestoringAfterwards.h")
    return findings


def selectors(root):
    """All that are named in the sources."""
    return {selector for path in tracked(root, SOURCES, APPLICATION_FOLDERS)
            for selector in SELECTOR.findall(read(root, path))}


def wide_arguments(codes, named):
    """The methods with integers of 64 bits among those that the platform may call by a selector."""
    findings = Findings()
    for source, code in codes.items():
        for definition in FUNCTION.finditer(code):
            method = METHOD.fullmatch(name_of(definition.group(1)))
            head = definition.group().split("\n", 1)[0]
            if method and method.group(1) in named and re.search(r"\bi64\b", head):
                findings.add(source, 0, f"{method.group()} is called by a selector: the platform's"
                                        " integers have 32 bits on 32-bit Macs (NSInteger)")
    return findings


def lint(root, build, headers):
    if findings := compile_all(root, build, headers, [PROCESSOR]):
        return findings
    compiler = compilers(root, build, headers)[PROCESSOR]
    codes = {source: compiler.code(source).read_text() for source in sources(root)}
    return exceptions(codes) + wide_arguments(codes, selectors(root))


if __name__ == "__main__":
    run_if_there_are_headers(lint)
