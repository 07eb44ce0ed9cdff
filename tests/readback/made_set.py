"""A shapefile in which everything that a layer has to care for occurs, and what its layer is to be.

Nine Regions with holes, several parts, rings that run either way, and none at all; their names have blanks,
umlauts, commas and quotes.
"""

import struct


def square(x, y, side):
    """A closed square that runs counter-clockwise from its lower left corner."""
    return [(x, y), (x + side, y), (x + side, y + side), (x, y + side), (x, y)]


def turned(ring):
    return ring[::-1]


OUTER, HOLE = turned(square(0, 0, 10)), square(2, 2, 3)
LAKE, ISLAND, POND = square(41, 1, 8), turned(square(42, 2, 6)), square(43, 3, 2)
TRIANGLE_AT_EDGE = [(80, 0), (83, 2), (82, 3), (80, 0)]  # touches its outer ring in a corner
COMB = [(100, 0), (110, 0), (110, 10), (108, 10), (108, 4), (102, 4), (102, 10), (100, 10), (100, 0)]

# Name, observed, expected, the rings as they stand in the file, and as they are to be: a list of outer rings
# with their holes, worked out by hand. All the file's outer rings run clockwise, but where the name says so.
REGIONS = [
    ("hole", 3, 2.5, [OUTER, HOLE], [[turned(OUTER), turned(HOLE)]]),
    ("Süd, Ost", 1, 1.25, [turned(square(20, 0, 5)), turned(square(26, 0, 2.5))],
     [[square(20, 0, 5)], [square(26, 0, 2.5)]]),
    ('an "island" in a lake', 4, 3.1, [turned(square(40, 0, 10)), LAKE, ISLAND, POND],
     [[square(40, 0, 10), turned(LAKE)], [turned(ISLAND), turned(POND)]]),
    ("all rings run the wrong way", 2, 2.7, [square(60, 0, 10), turned(square(61, 1, 3))],
     [[square(60, 0, 10), turned(square(61, 1, 3))]]),
    ("hole runs as its outer ring", 0, 0.1, [turned(square(80, 0, 10)), turned(TRIANGLE_AT_EDGE)],
     [[square(80, 0, 10), turned(TRIANGLE_AT_EDGE)]]),
    (" leading blank", 5, 4.0, [turned(COMB), turned(square(103, 5, 3))], [[COMB], [square(103, 5, 3)]]),
    ("no part", 0, 0.3, [], []),
    ("hole before its ring", 6, 5.5, [square(121, 1, 2), turned(square(130, 0, 4)), turned(square(120, 0, 9))],
     [[square(130, 0, 4)], [square(120, 0, 9), turned(square(121, 1, 2))]]),
    ("Åßø", 7, 1 / 3, [turned(square(0.1, 20.3, 1 / 3))], [[square(0.1, 20.3, 1 / 3)]]),
]


PERIODS = (1, 2, 3, 4)


def z(k, t):
    """A z-score of Region k in period t; Region 3 signals in period 2 alone, Region 9 at the end."""
    return {(3, 2): 12.5, (3, 3): -9.0, (9, 4): 10.75}.get((k, t), 0.25 * ((k * t) % 7) - 0.5)


def record(rings):
    points = [vertex for ring in rings for vertex in ring]
    box = [f(p[k] for p in points) if points else 0 for f in (min, max) for k in (0, 1)]
    firsts = [sum(map(len, rings[:k])) for k in range(len(rings))]
    return (struct.pack("<i4d2i", 5, *box, len(rings), len(points))
            + struct.pack("<%di" % len(firsts), *firsts)
            + b"".join(struct.pack("<2d", *p) for p in points))


def table(columns, rows):
    """A dBASE table; a column is a name, a type, a width and a number of decimals."""
    size = 32 + 32 * len(columns) + 1
    head = struct.pack("<4BiHH20x", 3, 126, 1, 1, len(rows), size, 1 + sum(c[2] for c in columns))
    for name, kind, width, decimals in columns:
        head += struct.pack("<11sc4xBB14x", name.encode(), kind.encode(), width, decimals)
    body = b""
    for row in rows:
        body += b" "
        for (_, kind, width, _), value in zip(columns, row):
            body += value.encode().ljust(width) if kind == "C" else repr(value).encode().rjust(width)
    return head + b"\r" + body + b"\x1a"


def write(folder, projection=None):
    """Writes made.shp and what goes with it; gives its path."""
    records = [record(rings) for _, _, _, rings, _ in REGIONS]
    points = [p for _, _, _, rings, _ in REGIONS for ring in rings for p in ring]
    box = [f(p[k] for p in points) for f in (min, max) for k in (0, 1)]
    shp = shx = b""
    for number, contents in enumerate(records, 1):
        shx += struct.pack(">2i", (100 + len(shp)) // 2, len(contents) // 2)
        shp += struct.pack(">2i", number, len(contents) // 2) + contents
    for ending, body in ((".shp", shp), (".shx", shx)):
        head = struct.pack(">i20xi", 9994, (100 + len(body)) // 2) + struct.pack("<2i4d32x", 1000, 5, *box)
        (folder / ("made" + ending)).write_bytes(head + body)
    columns = [("NAME", "C", 40, 0), ("CODE", "N", 4, 0), ("OBS", "N", 5, 0), ("EXP", "F", 22, 15)]
    columns += [("Z%d" % t, "F", 20, 8) for t in PERIODS]
    rows = [(name, 10 * k, obs, exp, *(z(k, t) for t in PERIODS)) for k, (name, obs, exp, _, _) in enumerate(REGIONS, 1)]
    (folder / "made.dbf").write_bytes(table(columns, rows))
    (folder / "made.cpg").write_text("UTF-8")
    if projection is not None:
        (folder / "made.prj").write_bytes(projection)
    return folder / "made.shp"
