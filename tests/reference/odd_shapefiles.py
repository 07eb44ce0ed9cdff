"""Small shapefiles that are awkward in one way each, byte by byte."""

import os
from struct import pack

POLYGON = 5
COLUMNS = [("ID", "C", 40), ("OBS", "N", 8), ("EXP", "N", 12), ("POP", "N", 10), ("Z1", "N", 10), ("Z2", "F", 10)]
COLUMNS += [("TEXTZ", "C", 8), ("GAP", "N", 6), ("DAY", "D", 8), ("YESNO", "L", 1), ("NEGATIVE", "N", 6)]
COLUMNS += [("BIG", "N", 20), ("zero", "N", 3)]


def rows(count):
    """Ids of every length and code page, a number as text, a null, a date, a logical, a negative count."""
    ids = [b"r0", "Köln".encode(), "Köln".encode("cp1252"), b"a name that is longer than its column", b"  lead", b""]
    for i in range(count):
        yield [
            ids[i % len(ids)] or b"r%d" % i,
            b"%d" % (i * 7 % 5),
            b"%.4f" % (1.25 + i / 2),
            b"%d" % (100 + 13 * i),
            b"%.3f" % (2.5 - i * 1.7 % 4),
            b"%.3f" % (i / 8 - 0.2),
            b" %d.5" % i if i % 2 else b"%de0" % i,
            b"" if i == 1 else b"%d" % i,
            b"202602%02d" % (1 + i % 28),
            b"TFyn"[i % 4 : i % 4 + 1],
            b"%d" % (1 - i),
            b"%d" % (123456789012345678 + i),
            b"0",
        ]


def cell(kind, width, text):
    return text.rjust(width) if kind in "NF" else text.ljust(width)


def table(count):
    fields = b"".join(pack("<11sc4xBB14x", n.encode(), k.encode(), w, 3 if k == "F" else 0) for n, k, w in COLUMNS)
    length = 1 + sum(width for _, _, width in COLUMNS)
    body = b"".join(b" " + b"".join(cell(k, w, t) for (_, k, w), t in zip(COLUMNS, row)) for row in rows(count))
    return pack("<4BiHH20x", 3, 126, 1, 1, count, 33 + len(fields), length) + fields + b"\r" + body + b"\x1a"


def contents(rings):
    first = [sum(map(len, rings[:k])) for k in range(len(rings))]
    counts = pack("<i32x2i", POLYGON, len(rings), sum(map(len, rings)))  # no reader of the tests looks at the box
    return counts + b"".join(pack("<i", f) for f in first) + b"".join(pack("<2d", *p) for r in rings for p in r)


def header(length):
    return pack(">7i", 9994, 0, 0, 0, 0, 0, (100 + length) // 2) + pack("<2i4d32x", 1000, POLYGON, 0, 0, 1, 1)


def write(folder, name, polygons, records=None):
    """The three files; records is the number of rows where it is not that of the polygons."""
    base, body, index = os.path.join(folder, name), b"", b""
    for number, rings in enumerate(polygons, 1):
        record = contents(rings)
        index += pack(">2i", (100 + len(body)) // 2, len(record) // 2)
        body += pack(">2i", number, len(record) // 2) + record
    files = {".shp": header(len(body)) + body, ".shx": header(len(index)) + index}
    files[".dbf"] = table(len(polygons) if records is None else records)
    for extension, data in files.items():
        with open(base + extension, "wb") as file:
            file.write(data)
    return base + ".shp"


def square(x, y, side=1.0, clockwise=True):
    ring = [(x, y), (x, y + side), (x + side, y + side), (x + side, y), (x, y)]
    return ring if clockwise else ring[::-1]


def grid(rings, n=3):
    return [rings(i, j) for j in range(n) for i in range(n)]


PLAIN = grid(lambda i, j: [square(i, j)])
SHAPES = {
    "plain": PLAIN,
    "turned": grid(lambda i, j: [square(i + 1, j + 2, clockwise=(i + j) % 2 > 0)]),
    "hole": grid(lambda i, j: [square(9 * i, 9 * j, 9), square(9 * i + 2, 9 * j + 3, 4, clockwise=i < 1)]),
    "islands": grid(lambda i, j: [square(9 * i + 2 * k, 9 * j + k, 1 + k / 7) for k in range(1 + (i + j) % 4)]),
    "vertex": grid(lambda i, j: [[(i, j)], [], square(i, j)]),
    "nothing": [[], [[(1, 2)]]] + PLAIN[2:],
    "line": PLAIN[1:] + [[square(0, 0), [(1, 1), (2, 2)]]],
    "cancel": PLAIN[1:] + [[square(0, 0), square(5, 5, clockwise=False)]],
    "repeated": PLAIN[1:] + [[[(0, 0), (0, 0), (0, 1), (1, 1), (1, 1), (1, 0), (0, 0), (0, 0)]]],
    "open": PLAIN[1:] + [[square(0, 0)[:-1]]],
    "bow": PLAIN[1:] + [[[(0, 0), (3, 3), (3, 0), (0, 2), (0, 0)]]],
    "tiny": grid(lambda i, j: [square(i * 1e-9, j * 1e-9, 1e-9)]),
    "tiniest": grid(lambda i, j: [square(i * 1e-170, j * 1e-170, 1e-170)]),
    "metres": grid(lambda i, j: [square(4.5e6 + i * 1234.56789, 5.8e6 + j * 1111.1111, 777.77)]),
    "huge": grid(lambda i, j: [square(i * 1e75, j * 1e75, 1e75)]),
    "hugest": grid(lambda i, j: [square(i * 1e300, j * 1e300, 1e300)]),
    "same": [[square(0, 0)], [square(0, 0)]],
    "one": [[square(5, 5)]],
    "toolong99": PLAIN,
}
