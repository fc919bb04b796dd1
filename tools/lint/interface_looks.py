"""The part of the lint of interface files that checks what a user sees: texts, fonts, colours, keys
and positions."""

import re
from itertools import combinations

from interface_frames import frames
from string_tables import REFERENCE, TABLE_NAME, entries_of, text_of

TEXTS = ("title", "alternateTitle", "label", "placeholderString", "toolTip", "headerTitle")
ACCESSIBILITY_TEXTS = ("description", "help", "title")
TEXT_VIEW_COLOURS = ("textColor", "backgroundColor", "insertionPointColor")
BORDERS = ("bezel", "border")
# Elements whose own title tells what they are for, and others that need a description. The title of
# a pop-up button is what has been chosen in it.
LABELLED_CONTROLS = ("button",)
DESCRIBED_CONTROLS = ("popUpButton", "textField", "secureTextField", "comboBox", "tokenField",
                      "textView")
LETTER = re.compile(r"[^\W\d_]")


def text_keys(root):
    """The keys of the reference table. Another lint reports a table that cannot be read."""
    path = root / "resources" / f"{REFERENCE}.lproj" / TABLE_NAME
    keys = set()
    try:
        keys.update(key for _, key, _ in entries_of(text_of(path)))
    except (OSError, ValueError):
        pass
    return keys


def check(interface, keys):
    for element in interface.root.descendants():
        texts(interface, element, keys)
        fonts(interface, element)
        cells(interface, element)
        names(interface, element)
        for rule in RULES.get(element.tag, ()):
            rule(interface, element)
        if element.get("borderType") == "bezel":
            interface.add(element, 'borderType="bezel" is what it is without saying, and only logs'
                                   " a warning")
    key_equivalents(interface)
    frames(interface)


# Texts

def is_shown(element, attribute):
    """A menu that is not the submenu of an item shows its title nowhere."""
    return element.tag != "menu" or attribute != "title" or element.get("key") == "submenu"


def texts(interface, element, keys):
    attributes = ACCESSIBILITY_TEXTS if element.tag == "accessibility" else TEXTS
    for attribute in attributes:
        text = element.string(attribute)
        # Numbers and marks are the same in every language.
        if LETTER.search(text) and is_shown(element, attribute) and text not in keys:
            interface.add(element, f'{attribute} "{text}" is no key of the {REFERENCE}'
                                   " string table")


def fonts(interface, element):
    if element.tag == "font" and not element.get("size"):
        interface.add(element, "a font without a size makes text of one point")


# Controls

def is_editable(element):
    cell = element.named("cell")
    return element.tag != "textField" or (cell is not None and cell.get("editable") == "YES")


def described(element):
    """Whether the element or its cell has a description or is connected to its label."""
    for each in (element, element.named("cell")):
        for accessibility in each.all("accessibility") if each else ():
            connected = any(connection.get("property") == "title"
                            for connections in accessibility.all("connections")
                            for connection in connections.all("accessibilityConnection"))
            if accessibility.get("description").strip() or connected:
                return True
    return False


def names(interface, element):
    cell = element.named("cell")
    titled = (element.tag in LABELLED_CONTROLS and cell is not None
              and cell.string("title").strip() and cell.get("imagePosition") != "only")
    if element.tag in LABELLED_CONTROLS + DESCRIBED_CONTROLS and is_editable(element):
        if not titled and not described(element):
            interface.add(element, f"{element} tells nobody what it is for: it needs a title of its"
                                   " own or an <accessibility description>")


def cells(interface, element):
    if (element.tag == "textFieldCell" and element.get("borderStyle") not in BORDERS
            and element.get("editable") != "NO"):
        interface.add(element, f'{element} is a label: without editable="NO" it takes the keyboard')


def progress_indicator(interface, element):
    if element.get("hidden") != "YES":
        interface.add(element, f'{element} needs hidden="YES": it is drawn even while it stands'
                               " still")


def text_view(interface, element):
    for colour in TEXT_VIEW_COLOURS:
        if element.named(colour) is None:
            interface.add(element, f"{element} without a {colour} is a black box")


def collection_row(interface, item):
    """A row is copied from the item's view by way of an archive, which keeps plain pop-ups only."""
    views = [item.named("view")]
    for connections in item.all("connections"):
        views += [interface.elements.get(outlet.get("destination"))
                  for outlet in connections.all("outlet") if outlet.get("property") == "view"]
    for view in filter(None, views):
        for element in view.descendants():
            cell = element.named("cell")
            pulls_down = cell is not None and cell.get("pullsDown") == "YES"
            if element.tag == "popUpButton" and (pulls_down or element.get("customClass")):
                interface.add(element, f"{element} stands in the row of a collection: it must be a"
                                       " plain pop-up button")


RULES = {
    "collectionViewItem": (collection_row,),
    "progressIndicator": (progress_indicator,),
    "textView": (text_view,),
}


# Keys

def key_of(button):
    """The key that presses the button, with its modifiers; None for none."""
    cell = button.named("cell")
    key = cell.string("keyEquivalent") if cell is not None else ""
    if not key:
        return None
    mask = cell.named("keyEquivalentModifierMask")
    modifiers = frozenset(mask.attributes.items()) if mask is not None else frozenset()
    return key, modifiers - {("key", "keyEquivalentModifierMask")}


def scopes_of(element):
    """The tabs and the window or top-level view that contain the element, innermost first."""
    around = list(element.ancestors())
    inner = [each for each in around if each.tag in ("tabViewItem", "window", "panel")]
    return inner or around[-3:-2]  # below <document> and <objects>


def key_equivalents(interface):
    buttons = [element for element in interface.root.descendants()
               if element.tag == "button" and key_of(element) is not None]
    for first, second in combinations(buttons, 2):
        one, other = scopes_of(first), scopes_of(second)
        seen_together = one and other and (one[0] in other or other[0] in one)
        if seen_together and key_of(first) == key_of(second):
            interface.add(second, f"{second} has the same key equivalent as {first},"
                                  f" line {first.line}")
