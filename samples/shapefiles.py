"""Writes the three files of a polygon shapefile: .shp, .shx and .dbf."""
from pathlib import Path
from struct import pack
from typing import NamedTuple

POLYGON = 5
DATE = (126, 1, 1)  # 1 January 2026, so that every run writes the same bytes


class Column(NamedTuple):
    name: str  # up to 10 characters
    kind: str  # "C" text, "N" number
    width: int
    decimals: int = 0

    def text(self, value):
        text = f"{value:>{self.width}.{self.decimals}f}" if self.kind == "N" else f"{value:<{self.width}}"
        assert len(text) == self.width, f"{self.name}: {text}"
        return text.encode("utf-8")


def box(points):
    xs, ys = zip(*points)
    return pack("<4d", min(xs), min(ys), max(xs), max(ys))


def record(ring):
    """A polygon of one ring, which runs clockwise and repeats its first point."""
    counts_and_first = pack("<3i", 1, len(ring), 0)
    return pack("<i", POLYGON) + box(ring) + counts_and_first + b"".join(pack("<2d", *p) for p in ring)


def main_header(rings, body):
    words = (100 + len(body)) // 2
    points = [point for ring in rings for point in ring]
    return pack(">7i", 9994, 0, 0, 0, 0, 0, words) + pack("<2i", 1000, POLYGON) + box(points) + bytes(32)


def shapes(rings):
    """The bytes of the .shp and of the .shx."""
    body, index = b"", b""
    for number, contents in enumerate(map(record, rings), start=1):
        words = len(contents) // 2
        index += pack(">2i", (100 + len(body)) // 2, words)
        body += pack(">2i", number, words) + contents
    return main_header(rings, body) + body, main_header(rings, index) + index


def table(columns, rows):
    """The bytes of the .dbf."""
    fields = b"".join(pack("<11sc4xBB14x", column.name.encode("ascii"), column.kind.encode("ascii"),
                           column.width, column.decimals) for column in columns)
    length = 1 + sum(column.width for column in columns)
    head = pack("<4BIHH20x", 3, *DATE, len(rows), 32 + len(fields) + 1, length)
    body = b"".join(b" " + b"".join(column.text(value) for column, value in zip(columns, row)) for row in rows)
    return head + fields + b"\r" + body + b"\x1a"


def write_shapefile(base: Path, rings, columns, rows):
    shp, shx = shapes(rings)
    base.with_suffix(".shp").write_bytes(shp)
    base.with_suffix(".shx").write_bytes(shx)
    base.with_suffix(".dbf").write_bytes(table(columns, rows))
    base.with_suffix(".cpg").write_bytes(b"UTF-8\n")
