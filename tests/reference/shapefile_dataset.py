"""Shapefiles and their tables, read and worked out a second time and apart from the program."""

import math
import os
import re
import struct

from number_text import Refused, RunTimeStop, is_numeric, num, number, pad

MAX_COUNTER = 32767
UNUSED_IN_1252 = b"\x81\x8d\x8f\x90\x9d"


class WrongUse(Exception):
    """A command line that asks for what no screen offers."""


def finite(x):
    if not math.isfinite(x):
        raise RunTimeStop(6)
    return x


def divided(a, b):
    if b == 0:
        raise RunTimeStop(11)
    return finite(a / b)


def general(x):
    """The text of a double with up to 15 digits."""
    if x == 0:
        return "0"
    text = "%.15g" % x
    mantissa, _, exponent = ("%.14e" % x).partition("e")
    if -5 < int(exponent) < 15:
        return text if "e" not in text else "%d" % x
    return mantissa.rstrip("0").rstrip(".") + "E" + exponent


def decoded(data):
    try:
        return data.decode("utf-8")
    except UnicodeDecodeError:
        return "".join(bytes([b]).decode("latin-1" if b in UNUSED_IN_1252 else "cp1252") for b in data)


def text_lines(path):
    """The lines of a text file; a line end at its end starts no further line."""
    with open(path, "rb") as file:
        data = file.read()
    text = decoded(data[3:] if data.startswith(b"\xef\xbb\xbf") else data)
    lines = re.split("\r\n|\n|\r", text)
    if lines[-1] == "":
        lines.pop()
    return lines


# ---------------------------------------------------------------- shapes


def read_shapes(path):
    """A list of polygons, a polygon being a list of rings and a ring a list of (x, y)."""
    with open(path, "rb") as file:
        main = file.read()
    with open(path[:-3] + "shx", "rb") as file:
        index = file.read()
    for head in (index, main):
        if struct.unpack(">i", head[:4])[0] != 9994:
            raise RunTimeStop("invalid shape code")
    words = struct.unpack(">i", index[24:28])[0]
    kind = struct.unpack("<i", main[32:36])[0]
    if kind != 5:
        raise RunTimeStop("no polygons")
    polygons = []
    for number_of_record in range(1, round((words - 50) / 4) + 1):
        entry = 100 + 8 * (number_of_record - 1)
        if entry + 1 > 2 * words - 7:
            raise RunTimeStop("beyond the index")
        at = 2 * struct.unpack(">i", index[entry : entry + 4])[0]
        found, _, shape = struct.unpack(">ii", main[at : at + 8]) + struct.unpack("<i", main[at + 8 : at + 12])
        if found != number_of_record:
            raise RunTimeStop("Index Record does not match main file Record")
        if shape != kind:
            raise RunTimeStop("A shape type does not match main header type.")
        parts, points = struct.unpack("<2i", main[at + 44 : at + 52])
        at += 52
        first = list(struct.unpack("<%di" % parts, main[at : at + 4 * parts])) + [points]
        at += 4 * parts
        flat = struct.unpack("<%dd" % (2 * points), main[at : at + 16 * points])
        vertices = list(zip(flat[0::2], flat[1::2]))
        polygons.append([vertices[a:b] for a, b in zip(first, first[1:])])
    return polygons


class Shapes:
    """Areas and centroids: a part counts with its own sign in the area, and without it in the centroid."""

    def __init__(self, polygons):
        self.n = len(polygons)
        most_parts = max(len(rings) for rings in polygons) if polygons else 0
        if most_parts < 1:
            raise RunTimeStop(9)
        self.total = 0.0
        part_areas, region_areas = [], []
        for rings in polygons:
            signed = 0.0
            areas = []
            for ring in rings:
                if len(ring) > MAX_COUNTER:
                    raise RunTimeStop(6)
                p = 0.0
                for (x, y), (next_x, next_y) in zip(ring, ring[1:]):
                    p += (next_y * x - y * next_x) * 0.5
                areas.append(abs(finite(p)))
                signed += p
            part_areas.append(areas)
            region_areas.append(abs(signed))
            self.total += abs(signed)
        self.centroids = [
            self.centroid(*of_region) for of_region in zip(polygons, part_areas, region_areas)
        ]

    @staticmethod
    def centroid(rings, areas, region_area):
        x_sum = y_sum = 0.0
        for ring, area in zip(rings, areas):
            cx = cy = 0.0
            for (x, y), (next_x, next_y) in zip(ring, ring[1:]):
                c = -(next_y * x - y * next_x)
                cx += divided(c * (next_x + x), 6 * area)
                cy += divided(c * (next_y + y), 6 * area)
            if len(rings) == 1:
                return [cx, cy]
            x_sum += divided(cx * area, region_area)
            y_sum += divided(cy * area, region_area)
        return [x_sum, y_sum]

    def centroid_file(self):
        lines = [" ID,           CentX,           CentY"]
        for i, (x, y) in enumerate(self.centroids, 1):
            lines.append(
                ",".join((pad(str(i), 3), pad(num(x, "###0.000000"), 18), pad(num(y, "###0.000000"), 18)))
            )
        return "".join(line + "\r\n" for line in lines)


# ---------------------------------------------------------------- the table


class Table:
    """Columns in their order: names, dBASE types and values (float, str or None)."""

    def __init__(self, path):
        with open(path, "rb") as file:
            data = file.read()
        self.rows, header, length = struct.unpack("<iHH", data[4:12])
        self.names, self.types, self.columns = [], [], []
        place, at = 1, 32
        while data[at] != 0x0D:
            self.names.append(decoded(data[at : at + 11].split(b"\0")[0]))
            kind, width = chr(data[at + 11]), data[at + 16]
            self.types.append(kind)
            cells = [header + row * length + place for row in range(self.rows)]
            self.columns.append([value_of(kind, data[cell : cell + width]) for cell in cells])
            place += width
            at += 32

    def position(self, name, offered=None):
        for same in (lambda a: a == name, lambda a: a.lower() == name.lower()):
            for k, candidate in enumerate(self.names):
                if same(candidate):
                    if offered and self.types[k] not in offered:
                        raise WrongUse(name)
                    return k
        raise WrongUse(name)

    def column(self, name, offered=None):
        return self.columns[self.position(name, offered)]

    def texts(self, name):
        """A column as ids. A null has no text."""
        values = self.column(name)
        if None in values:
            raise RunTimeStop(94)
        return [as_text(v) for v in values]


def value_of(kind, data):
    if kind in "NF":
        text = data.decode("latin-1").strip()
        return number(text) if is_numeric(text) else None
    text = decoded(data).rstrip(" \0")
    if kind == "D":
        text = text.strip()
        return text[:4] + "-" + text[4:6] + "-" + text[6:] if text.isdigit() and len(text) == 8 else None
    if kind == "L":
        return {"T": "True", "Y": "True", "F": "False", "N": "False"}.get(text.upper())
    if kind == "M":
        return None
    return text


def as_text(value):
    return value if isinstance(value, str) else general(value)


def as_number(value):
    if value is None:
        raise RunTimeStop(94)
    return value if isinstance(value, float) else number(value)


def numeric_value(value):
    return isinstance(value, float) or (isinstance(value, str) and is_numeric(value))


class Dataset:
    """A shapefile and its table."""

    def __init__(self, path):
        title = os.path.basename(path)
        if len(title.partition(".")[0]) >= 9:
            raise Refused("The length of filename should be less than 8.")
        self.shapes = Shapes(read_shapes(path))
        self.table = Table(path[:-3] + "dbf")
        self.n = self.shapes.n

    def ids(self, name):
        """One text for each region, from a column that may have fewer values than there are regions."""
        texts = self.table.texts(name)
        if len(texts) > self.n:
            raise RunTimeStop(9)
        return texts + [""] * (self.n - len(texts))
