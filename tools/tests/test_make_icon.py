"""The icon file that make-icon writes, and how it reads its master."""

import importlib.machinery
import importlib.util
import struct
import subprocess
import sys
import tempfile
import unittest
import zlib
from pathlib import Path

TOOLS = Path(__file__).resolve().parents[1]
PROGRAM = str(TOOLS / "make-icon")
MASTER = TOOLS.parent / "resources" / "icon" / "icon.svg"

PNG_SIZES = {b"icp6": 64, b"ic08": 256, b"ic09": 512}
COLOUR_SIZES = {b"is32": 16, b"il32": 32, b"ih32": 48, b"it32": 128}
MASK_SIZES = {b"s8mk": 16, b"l8mk": 32, b"h8mk": 48, b"t8mk": 128}


def load():
    loader = importlib.machinery.SourceFileLoader("make_icon", PROGRAM)
    module = importlib.util.module_from_spec(importlib.util.spec_from_loader("make_icon", loader))
    sys.dont_write_bytecode = True  # it would be written next to the program
    loader.exec_module(module)
    return module


make_icon = load()


def unpacked(data):
    """Undoes the run-length code, by its definition."""
    result, position = bytearray(), 0
    while position < len(data):
        head = data[position]
        if head < 128:
            result += data[position + 1:position + 2 + head]
            position += 2 + head
        else:
            result += data[position + 1:position + 2] * (head - 125)
            position += 2
    return bytes(result)


def png(width, height, rows):
    """A PNG file of rows that are filtered already, each with its filter in front."""
    def chunk(kind, content):
        checksum = struct.pack(">I", zlib.crc32(kind + content))
        return struct.pack(">I", len(content)) + kind + content + checksum

    head = struct.pack(">IIBBBBB", width, height, 8, 6, 0, 0, 0)
    return (make_icon.PNG_SIGNATURE + chunk(b"IHDR", head)
            + chunk(b"IDAT", zlib.compress(b"".join(rows))) + chunk(b"IEND", b""))


class IconFile(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        with tempfile.TemporaryDirectory(prefix="icon-") as folder:
            icon = Path(folder, "new", "a.icns")
            subprocess.run([PROGRAM, str(MASTER), str(icon)], check=True)
            cls.file = icon.read_bytes()
            subprocess.run([PROGRAM, str(MASTER), str(icon)], check=True)
            cls.again = icon.read_bytes()

    def elements(self):
        found, position = [], 8
        while position < len(self.file):
            kind, length = struct.unpack_from(">4sI", self.file, position)
            self.assertGreater(length, 8)
            found.append((kind, self.file[position + 8:position + length]))
            position += length
        self.assertEqual(position, len(self.file))
        return found

    def test_its_head_tells_its_length(self):
        self.assertEqual(self.file[:8], b"icns" + struct.pack(">I", len(self.file)))

    def test_each_picture_stands_in_it_once(self):
        kinds = [kind for kind, _ in self.elements()]
        self.assertEqual(sorted(kinds), sorted([*PNG_SIZES, *COLOUR_SIZES, *MASK_SIZES]))

    def test_the_colours_of_every_size_are_complete_and_not_all_the_same(self):
        for kind, content in self.elements():
            if kind in COLOUR_SIZES:
                with self.subTest(kind):
                    if kind == b"it32":
                        self.assertEqual(content[:4], bytes(4))
                        content = content[4:]
                    colours = unpacked(content)
                    pixels = COLOUR_SIZES[kind] ** 2
                    self.assertEqual(len(colours), 3 * pixels)
                    planes = [colours[start:start + pixels]
                              for start in range(0, 3 * pixels, pixels)]
                    self.assertGreater(len(set(zip(*planes))), 20)
                    # The tile is green rather than red: the planes are in their order.
                    red, green, _ = (plane[pixels // 2 + COLOUR_SIZES[kind] // 8]
                                     for plane in planes)
                    self.assertGreater(green, 2 * red)

    def test_the_mask_of_every_size_is_clear_outside_and_opaque_inside(self):
        for kind, mask in self.elements():
            if kind in MASK_SIZES:
                with self.subTest(kind):
                    side = MASK_SIZES[kind]
                    self.assertEqual(len(mask), side * side)
                    self.assertEqual((mask[0], mask[side - 1], mask[-1]), (0, 0, 0))
                    self.assertEqual(mask[(side // 2) * side + side // 2], 255)

    def test_the_other_sizes_are_pictures_of_their_size(self):
        for kind, content in self.elements():
            if kind in PNG_SIZES:
                with self.subTest(kind):
                    side = PNG_SIZES[kind]
                    self.assertEqual(struct.unpack_from(">II", content, 16), (side, side))
                    pixels = make_icon.pixels(content)
                    self.assertEqual(len(pixels), 4 * side * side)
                    self.assertEqual(pixels[3], 0)
                    middle = 4 * (side // 2 * side + side // 2)
                    self.assertEqual(pixels[middle + 3], 255)
                    colours = set(zip(*(pixels[plane::4] for plane in range(3))))
                    self.assertGreater(len(colours), 100)

    def test_the_same_master_makes_the_same_file(self):
        self.assertEqual(self.again, self.file)


class Master(unittest.TestCase):
    SVG = b"""<svg xmlns="http://www.w3.org/2000/svg"><g id="from-64-a"><g id="until-100"/></g>
              <g id="until-48-b"/><g id="from-the-start"/></svg>"""

    def names(self, size):
        text = make_icon.master_for(size, self.SVG).decode()
        return [name for name in ("from-64-a", "until-100", "until-48-b", "from-the-start")
                if name in text]

    def test_a_detail_is_left_out_below_its_size(self):
        self.assertEqual(self.names(63), ["from-the-start"])
        self.assertEqual(self.names(64), ["from-64-a", "until-100", "from-the-start"])

    def test_a_makeshift_is_left_out_above_its_size(self):
        self.assertEqual(self.names(48), ["until-48-b", "from-the-start"])
        self.assertEqual(self.names(49), ["from-the-start"])

    def test_a_condition_inside_another_holds_too(self):
        self.assertEqual(self.names(101), ["from-64-a", "from-the-start"])

    def test_a_master_that_cannot_be_drawn_is_told(self):
        with tempfile.TemporaryDirectory(prefix="icon-") as folder:
            for content in ("no picture", '<svg xmlns="http://www.w3.org/2000/svg">'):
                master = Path(folder, "a.svg")
                master.write_text(content)
                icon = Path(folder, "a.icns")
                result = subprocess.run([PROGRAM, str(master), str(icon)], capture_output=True,
                                        text=True)
                self.assertEqual(result.returncode, 1)
                self.assertIn("make-icon: cannot draw", result.stderr)
                self.assertFalse(icon.exists())


class Codes(unittest.TestCase):
    def test_run_lengths_are_undone_by_their_definition(self):
        noise = bytes(index * 7 % 256 for index in range(300))
        samples = [b"", b"a", b"aa", b"aaa", b"ab", b"abb", b"abbbc", b"a" * 130, b"a" * 131,
                   b"a" * 133, noise[:128], noise[:129], noise, b"aab" * 100,
                   b"x" + b"y" * 400 + noise]
        for sample in samples:
            with self.subTest(sample):
                self.assertEqual(unpacked(make_icon.run_length(sample)), sample)

    def test_runs_become_short(self):
        self.assertEqual(make_icon.run_length(b"a" * 130 + b"bcd"), b"\xffa\x02bcd")

    def test_every_row_filter_of_png_is_undone(self):
        # What each filter subtracts from the second row [x], whose first row is [a]; left and upper
        # left are 0 for the first pixel.
        first = bytes([10, 20, 30, 40, 50, 60, 70, 80])
        second = bytes([11, 24, 28, 255, 90, 1, 66, 80])
        filtered = {
            0: second,
            1: second[:4] + bytes((second[i] - second[i - 4]) % 256 for i in range(4, 8)),
            2: bytes((second[i] - first[i]) % 256 for i in range(8)),
            3: bytes((second[i] - ((second[i - 4] if i >= 4 else 0) + first[i]) // 2) % 256
                     for i in range(8)),
            # The nearest of left, above and upper left to left + above - upper left, by hand:
            # above for the first pixel; 50 of (11, 50, 10), 60 of (24, 60, 20), 70 of (28, 70, 30),
            # 255 of (255, 80, 40) for the second.
            4: bytes((x - a) % 256 for x, a in zip(second, (10, 20, 30, 40, 50, 60, 70, 255))),
        }
        for kind, row in filtered.items():
            with self.subTest(kind):
                file = png(2, 2, [b"\0" + first, bytes([kind]) + row])
                self.assertEqual(make_icon.pixels(file), first + second)

    def test_a_picture_without_transparency_is_refused(self):
        file = bytearray(png(1, 1, [bytes(5)]))
        file[25] = 2
        with self.assertRaises(ValueError):
            make_icon.pixels(bytes(file))
