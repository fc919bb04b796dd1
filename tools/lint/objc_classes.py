"""What the program's own classes declare to interface files: outlets and actions, as the compiler
reads them in the sources that the build compiles and in their headers."""

import os
from concurrent.futures import ThreadPoolExecutor
from dataclasses import dataclass, field
from functools import lru_cache
from pathlib import Path

from clang.cindex import CursorKind, Diagnostic, Index, TranslationUnit

from compilation import batches, units
from project import APPLICATION_FOLDERS

FOLDERS = APPLICATION_FOLDERS

# A class extension is a category, too.
CLASSES = (CursorKind.OBJC_INTERFACE_DECL, CursorKind.OBJC_CATEGORY_DECL)

# The platform's headers are read once for so many sources.
BATCH_SIZE = 48


@dataclass
class Outlet:
    type: str  # the class's name, or "id"
    path: Path
    line: int


@dataclass
class ProgramClass:
    """superclass is None where the program only adds to a class of the platform."""
    superclass: str = None
    outlets: dict = field(default_factory=dict)
    actions: set = field(default_factory=set)


class Unreadable(Exception):
    """A source that does not compile; what it declares is not known."""


def is_kind(cursor, kind):
    try:
        return cursor.kind == kind
    except ValueError:  # a kind that the Python library does not know
        return False


def child(cursor, kind):
    """The first child of that kind, or None."""
    return next((each for each in cursor.get_children() if is_kind(each, kind)), None)


def class_taken(type_):
    """The class that a variable of the type takes, "id" for any."""
    canonical = type_.get_canonical()
    pointee = canonical.get_pointee().spelling or canonical.spelling
    return pointee.removeprefix("const ").split("<")[0].strip()


@lru_cache(maxsize=None)
def resolved(name):
    return Path(name).resolve()


def path_of(root, cursor):
    """Where the cursor's file is below the root, None elsewhere."""
    file = cursor.location.file
    path = resolved(file.name) if file else None
    return path.relative_to(root) if path and path.is_relative_to(root) else None


def add_declarations(root, cursor, found):
    """What an interface, a category or a class extension says of its class."""
    extended = is_kind(cursor, CursorKind.OBJC_CATEGORY_DECL)
    name = child(cursor, CursorKind.OBJC_CLASS_REF).spelling if extended else cursor.spelling
    each = found.setdefault(name, ProgramClass())
    if is_kind(cursor, CursorKind.OBJC_INTERFACE_DECL):
        superclass = child(cursor, CursorKind.OBJC_SUPER_CLASS_REF)
        each.superclass = superclass.spelling if superclass else None
    for declared in cursor.get_children():
        if child(declared, CursorKind.IB_OUTLET_ATTR):
            each.outlets[declared.spelling] = Outlet(
                class_taken(declared.type), path_of(root, declared), declared.location.line)
        elif child(declared, CursorKind.IB_ACTION_ATTR):
            each.actions.add(declared.spelling)


def read_together(root, batch, found):
    """Adds what the sources declare, read as one; raises Unreadable when these do not compile."""
    name = str(batch[0].directory / f"classes{batch[0].source.suffix}")
    text = "".join(f'#include "{unit.path}"\n' for unit in batch)
    translation = Index.create().parse(
        name, [*batch[0].flags()[1:], "-Wno-everything"], unsaved_files=[(name, text)],
        options=TranslationUnit.PARSE_SKIP_FUNCTION_BODIES)
    errors = [each for each in translation.diagnostics if each.severity >= Diagnostic.Error]
    if errors:
        raise Unreadable(errors[0].format())
    for cursor in translation.cursor.get_children():
        if any(is_kind(cursor, kind) for kind in CLASSES) and path_of(root, cursor):
            add_declarations(root, cursor, found)


def read(root, batch):
    """What the sources declare. Sources that do not compile together are split in halves."""
    found = {}
    try:
        read_together(root, batch, found)
        return [found]
    except Unreadable:
        if len(batch) == 1:
            raise
    half = len(batch) // 2
    return read(root, batch[:half]) + read(root, batch[half:])


def program_classes(root, build):
    """The classes that the program declares, in headers or beside their implementation, by name;
    raises Unreadable where a source does not compile."""
    found = {}
    together = batches(units(root, build, FOLDERS, (".mm",)), BATCH_SIZE)
    with ThreadPoolExecutor(os.cpu_count()) as pool:
        parts = [part for parts in pool.map(lambda batch: read(root, batch), together)
                 for part in parts]
    for part in parts:
        for name, declared in part.items():
            each = found.setdefault(name, ProgramClass())
            each.superclass = each.superclass or declared.superclass
            each.outlets |= declared.outlets
            each.actions |= declared.actions
    return found
