#!/usr/bin/python3
"""Checks the interface files: that they can be read, that each connection joins two things that
exist and fit, that nothing declared is left unconnected, (interface_format.py) that the Mac's tools
compile them for the oldest system, and (interface_looks.py) that each control can be seen, read and
named. What the program's classes declare is read with the commands of the build.

    interface_files.py [ROOT [BUILD]]
"""

from xml.parsers import expat

import appkit
import interface_format
import interface_looks
from objc_classes import Unreadable, program_classes
from project import Findings, read, run_with_build, tracked
from xib import REFERENCES, parse

# Outlets that no interface file connects, each with its reason.
ALLOWED_UNCONNECTED = {
    # Nothing reads it, and the application has no window of its own.
    ("ContextMenuAppAppDelegate", "window"),
}

# The first responder; its class exists in interface files only.
FIRST_RESPONDER = "-1"
FIRST_RESPONDER_CLASS = "FirstResponder"


class Interface:
    """One interface file among the classes of the program."""

    def __init__(self, path, root, classes, findings):
        self.path = path
        self.root = root
        self.classes = classes
        self.findings = findings
        self.elements = {}

    def add(self, element, text):
        self.findings.add(self.path, element.line, text)

    def class_of(self, element):
        """The name of the class that the element makes, "" where it is not known."""
        return element.get("customClass") or appkit.ELEMENT_CLASSES.get(element.tag, "")

    def ancestry(self, name):
        """A class and its superclasses, as far as they are known."""
        seen = []
        while name and name not in seen:
            seen.append(name)
            own = self.classes.get(name)
            name = (own.superclass if own else None) or appkit.SUPERCLASSES.get(name)
        return seen

    def is_declared(self, name):
        own = self.classes.get(name)
        return name in appkit.SUPERCLASSES or (own is not None and own.superclass is not None)

    def fits(self, name, wanted):
        """Whether an object of the class may be used as one of the other class. True in doubt."""
        chain = self.ancestry(name)
        in_doubt = not chain or chain[-1] != "NSObject" or not self.is_declared(wanted)
        return wanted == "id" or in_doubt or wanted in chain

    def outlet_type(self, name, outlet):
        """The class that an outlet takes, None where there is no such outlet."""
        for each in self.ancestry(name):
            own = self.classes.get(each)
            if own and outlet in own.outlets:
                return own.outlets[outlet].type
            if outlet in appkit.OUTLETS.get(each, ()):
                return appkit.OUTLETS[each][outlet]
        return None

    def has_action(self, name, selector):
        return any(selector in appkit.ACTIONS.get(each, ())
                   or (each in self.classes and selector in self.classes[each].actions)
                   for each in self.ancestry(name))

    def check(self):
        for element in self.root.descendants():
            if element.get("id"):
                self.identifier(element)
        for element in self.root.descendants():
            self.references(element)
            self.custom_class(element)
            if element.parent is not None and element.parent.tag == "connections":
                if element.tag == "outlet":
                    self.outlet(element)
                elif element.tag == "action":
                    self.action(element)

    def identifier(self, element):
        first = self.elements.setdefault(element.get("id"), element)
        if first is not element:
            self.add(element, f'the id "{element.get("id")}" stands twice,'
                              f" first in line {first.line}")

    def references(self, element):
        for attribute in REFERENCES:
            name = element.get(attribute)
            if name and name not in self.elements:
                self.add(element, f'{attribute}="{name}": there is no such id')

    def custom_class(self, element):
        name = element.get("customClass")
        stands_in = element.get("id") == FIRST_RESPONDER and name == FIRST_RESPONDER_CLASS
        if name and not self.is_declared(name) and not stands_in:
            self.add(element, f"no header declares the class {name}; the whole file would not load")

    def is_undeclared(self, element):
        """Whether the element cannot be checked because its class is not declared, which is
        reported already."""
        return bool(element.get("customClass")) and not self.is_declared(element.get("customClass"))

    def outlet(self, element):
        source, name = element.parent.parent, element.get("property")
        destination = self.elements.get(element.get("destination"))
        source_class = self.class_of(source)
        wanted = self.outlet_type(source_class, name)
        if not element.get("destination"):
            self.add(element, f"the outlet {name} has no destination")
        if self.is_undeclared(source):
            return
        if wanted is None:
            self.add(element, f"{source_class or source.tag} has no outlet {name}")
        elif destination is not None and not self.fits(self.class_of(destination), wanted):
            self.add(element, f"the outlet {name} takes a {wanted}, and {destination} is a"
                              f" {self.class_of(destination)}")

    def action(self, element):
        selector, target = element.get("selector"), element.get("target")
        if not target:
            self.add(element, f"the action {selector} has no target")
        elif target == FIRST_RESPONDER:
            if selector not in appkit.FIRST_RESPONDER_ACTIONS:
                self.add(element, f"{selector} is none of the known actions of the first responder")
        elif target in self.elements:
            receiver = self.elements[target]
            name = self.class_of(receiver)
            if not self.is_undeclared(receiver) and not self.has_action(name, selector):
                self.add(element, f"{name or receiver.tag} declares no action {selector}")

    def connected(self):
        """The outlets that are connected here, as (class, outlet), superclasses included, and the
        classes that are made here."""
        made, outlets = set(), set()
        for element in self.elements.values():
            chain = self.ancestry(element.get("customClass"))
            made.update(chain)
            for connections in element.all("connections"):
                outlets.update((name, outlet.get("property")) for name in chain
                               for outlet in connections.all("outlet"))
        return made, outlets


def unconnected(interfaces, classes, findings):
    made, connected = set(), set()
    for interface in interfaces:
        its_made, its_connected = interface.connected()
        made |= its_made
        connected |= its_connected
    for name in sorted(made & classes.keys()):
        for outlet, declaration in classes[name].outlets.items():
            if (name, outlet) not in connected | ALLOWED_UNCONNECTED:
                findings.add(declaration.path, declaration.line,
                             f"no interface file connects the outlet {outlet} of {name}")


def check(root, classes):
    findings = Findings()
    keys = interface_looks.text_keys(root)
    interfaces = []
    paths = tracked(root, suffixes=(".xib",), folders=("resources",))
    for path in paths:
        try:
            document = parse(read(root, path))
        except expat.ExpatError as error:
            findings.add(path, error.lineno, expat.ErrorString(error.code))
            continue
        interface = Interface(path, document, classes, findings)
        interface.check()
        interface_format.check(interface)
        interface_looks.check(interface, keys)
        interfaces.append(interface)
    if len(interfaces) == len(paths):  # otherwise an unreadable one may have the connection
        unconnected(interfaces, classes, findings)
    return findings


def lint(root, build):
    try:
        return check(root, program_classes(root, build))
    except Unreadable as error:
        return [str(error)]


if __name__ == "__main__":
    run_with_build(lint)
