"""The part of the lint of interface files that checks positions: inside their superviews, and not
on top of each other. Only at views with fixed frames; layout rules move the others."""

from dataclasses import dataclass
from itertools import combinations

# How far a control's frame may reach beyond what is seen of it, in points.
PADDING = {"push": 6, "popUp": 3, "check": 2, "radio": 2}
# These must not lie on one another.
CONTROLS = ("button", "popUpButton", "comboBox", "textField", "secureTextField", "tokenField",
            "progressIndicator", "imageView", "scrollView", "tabView", "box")


@dataclass
class Frame:
    left: float
    bottom: float
    right: float
    top: float

    def overlap(self, other):
        """Width and height of the intersection, 0 or less where there is none."""
        return (min(self.right, other.right) - max(self.left, other.left),
                min(self.top, other.top) - max(self.bottom, other.bottom))

    def holds(self, other):
        return (self.left <= other.left and self.bottom <= other.bottom
                and other.right <= self.right and other.top <= self.top)

    def without(self, padding):
        return Frame(self.left + padding, self.bottom + padding, self.right - padding,
                     self.top - padding)

    def __str__(self):
        numbers = (self.left, self.bottom, self.right - self.left, self.top - self.bottom)
        return "{" + ", ".join(f"{number:g}" for number in numbers) + "}"


def frame_of(element, key="frame"):
    rect = element.named(key)
    if rect is None:
        return None
    try:
        left, bottom, width, height = (float(rect.get(name))
                                       for name in ("x", "y", "width", "height"))
    except ValueError:
        return None
    return Frame(left, bottom, left + width, bottom + height)


def inside_of(element):
    """The room that an element gives to its subviews, in their coordinates; None where it sets no
    limit (what a clip view shows may be larger) or where it is not known."""
    frame = frame_of(element, "contentRect" if element.tag in ("window", "panel") else "frame")
    if frame is None or element.tag == "clipView":
        return None
    return Frame(0, 0, frame.right - frame.left, frame.top - frame.bottom)


def superview(element):
    """What holds a view: the nearest element around it that has room of its own."""
    return next((each for each in element.ancestors() if frame_of(each) is not None
                 or each.tag in ("window", "panel", "clipView")), None)


def padding(element):
    if element.tag == "popUpButton":
        return PADDING["popUp"]
    cell = element.named("cell")
    return PADDING.get(cell.get("type"), 0) if cell is not None and element.tag == "button" else 0


def seen(element):
    return frame_of(element).without(padding(element))


def is_fixed(element):
    return element.get("fixedFrame") == "YES" and frame_of(element) is not None


def may_be_seen(element):
    """A hidden view replaces another one when it is shown; a progress indicator is shown beside
    them."""
    return element.get("hidden") != "YES" or element.tag == "progressIndicator"


def within(interface, element):
    holder = superview(element)
    room = inside_of(holder) if holder is not None else None
    if room is not None and not room.holds(seen(element)):
        interface.add(element, f"{element} at {frame_of(element)} sticks out of {holder}, which has"
                               f" {room}")


def apart(interface, siblings):
    for first, second in combinations(siblings, 2):
        width, height = seen(first).overlap(seen(second))
        if width > 0 and height > 0:
            interface.add(second, f"{second} at {frame_of(second)} lies on {first} at"
                                  f" {frame_of(first)}, line {first.line}")


def frames(interface):
    for element in interface.root.descendants():
        if is_fixed(element) or (element.get("key") in ("view", "contentView")
                                 and frame_of(element) is not None):
            within(interface, element)
        if element.tag == "subviews":
            apart(interface, [child for child in element.children
                              if child.tag in CONTROLS and is_fixed(child) and may_be_seen(child)])
