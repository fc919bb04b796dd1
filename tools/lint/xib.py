"""Reading of interface files (.xib, format 3.0) with the line of each element."""

import base64
from dataclasses import dataclass, field
from xml.parsers import expat

# Attributes that name another element by its id.
REFERENCES = ("destination", "target", "selectedItem", "initialItem", "headerView", "cornerView",
              "firstItem", "secondItem", "reference", "parentMenuItem")


@dataclass(eq=False)
class Element:
    """One element. parent is None for the document itself only."""
    tag: str
    attributes: dict
    line: int
    parent: "Element" = None
    children: list = field(default_factory=list)
    text: str = ""

    def get(self, name, default=""):
        return self.attributes.get(name, default)

    def descendants(self):
        """This element and all below it, in the order of the file."""
        yield self
        for child in self.children:
            yield from child.descendants()

    def ancestors(self):
        element = self.parent
        while element is not None:
            yield element
            element = element.parent

    def named(self, key):
        """The child that the element knows by this key ("frame", "cell"), or None."""
        return next((child for child in self.children if child.get("key") == key), None)

    def all(self, tag):
        """The children of one kind."""
        return [child for child in self.children if child.tag == tag]

    def string(self, name):
        """A text in an attribute or, when it is long or has special characters, in a child: <string
        key="..." base64-UTF8="YES">."""
        child = self.named(name)
        if child is None or child.tag not in ("string", "mutableString"):
            return self.get(name)
        if child.get("base64-UTF8") != "YES":
            return child.text
        packed = "".join(child.text.split())
        return base64.b64decode(packed + "=" * (-len(packed) % 4)).decode("utf-8")

    def __str__(self):
        return f'{self.tag} "{self.get("id")}"' if self.get("id") else self.tag


def parse(text):
    """The document element; raises expat.ExpatError, which has a lineno."""
    parser = expat.ParserCreate()
    document = Element("", {}, 0)
    open_elements = [document]

    def start(tag, attributes):
        parent = open_elements[-1]
        element = Element(tag, attributes, parser.CurrentLineNumber,
                          parent if parent is not document else None)
        parent.children.append(element)
        open_elements.append(element)

    def end(_tag):
        open_elements.pop()

    def characters(data):
        open_elements[-1].text += data

    parser.StartElementHandler = start
    parser.EndElementHandler = end
    parser.CharacterDataHandler = characters
    parser.Parse(text, True)
    return document.children[0]
