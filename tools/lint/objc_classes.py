"""What the program's own classes declare to interface files: outlets and actions. Good for the
declarations as this project writes them, not for all of Objective-C."""

import re
from dataclasses import dataclass, field

from project import APPLICATION_FOLDERS, read, tracked, without_comments

INTERFACE = re.compile(
    r"@interface\s+(?P<name>\w+)\s*(?::\s*(?P<superclass>\w+)|(?P<category>\([^)]*\)))?(?P<body>.*?)@end\b",
    re.DOTALL)
# An instance variable or a property; several may share the type.
OUTLET = re.compile(r"\bIBOutlet\s+(?P<declaration>[^;]+);")
ACTION = re.compile(r"-\s*\(\s*IBAction\s*\)(?P<declaration>[^;{]+)")
PARENTHESES = re.compile(r"\([^()]*\)")


@dataclass
class Outlet:
    type: str  # the class's name, or "id"
    path: str
    line: int


@dataclass
class ProgramClass:
    """superclass is None where the program only adds to a class of the platform."""
    superclass: str = None
    outlets: dict = field(default_factory=dict)
    actions: set = field(default_factory=set)


def outlets_in(declaration):
    """Names and type of what follows IBOutlet: "NSButton *first, *second"."""
    declaration = declaration.split("__attribute__")[0]
    match = re.match(r"\s*(?:const\s+)?(\w+)\s*(?:<[^>]*>)?(.*)", declaration, re.DOTALL)
    return re.findall(r"\w+", match.group(2)), match.group(1)


def selector_in(declaration):
    """The selector of what follows a method's type: "send:(id)sender"."""
    plain = declaration
    while PARENTHESES.search(plain):
        plain = PARENTHESES.sub(" ", plain)
    parts = re.findall(r"(\w*)\s*:", plain)
    return "".join(f"{part}:" for part in parts) or plain.strip()


def add_declarations(path, text, found):
    code = without_comments(text)
    for interface in INTERFACE.finditer(code):
        each = found.setdefault(interface.group("name"), ProgramClass())
        if interface.group("superclass"):
            each.superclass = interface.group("superclass")
        body, start = interface.group("body"), interface.start("body")
        for outlet in OUTLET.finditer(body):
            names, kind = outlets_in(outlet.group("declaration"))
            line = code.count("\n", 0, start + outlet.start()) + 1
            for name in names:
                each.outlets[name] = Outlet(kind, path, line)
        for action in ACTION.finditer(body):
            each.actions.add(selector_in(action.group("declaration")))


def program_classes(root):
    """The classes that the program declares, in headers or beside their implementation, by name."""
    found = {}
    for path in tracked(root, suffixes=(".h", ".mm"), folders=(*APPLICATION_FOLDERS, "platform")):
        add_declarations(path, read(root, path), found)
    return found
