#!/usr/bin/env python3
"""Holds vastrel-batch's export of z-values against a second working out, from the bytes of the files on.

    compare_export.py PROGRAM SHAPEFILE OBS_FIRST OBS_LAST EXP_FIRST EXP_LAST

Shapes, table, areas, centroids, kernel and deviations are done anew here, in sums without rounding
errors and with the height of the kernel left out, which the scaling of a row takes out again. The
files have to be equal text for text.
"""

import math
import struct
import subprocess
import sys

SCORES = {
    "poisson": lambda o, e: (o - e) / math.sqrt(e),
    "standard": lambda o, e: math.sqrt(o) + math.sqrt(o + 1) - math.sqrt(4 * e + 1),
    "rossi": lambda o, e: (o - 3 * e + 2 * math.sqrt(o * e)) / (2 * math.sqrt(e)),
}
SIGMAS = ("0.5", "1", "3")


def read_polygons(path):
    """One list of rings for each record, a ring being a list of (x, y)."""
    with open(path, "rb") as file:
        data = file.read()
    polygons, at = [], 100
    while at < len(data):
        size = 2 * struct.unpack(">i", data[at + 4 : at + 8])[0]
        record = data[at + 8 : at + 8 + size]
        at += 8 + size
        parts, points = struct.unpack("<2i", record[36:44])
        first = list(struct.unpack("<%di" % parts, record[44 : 44 + 4 * parts])) + [points]
        flat = struct.unpack("<%dd" % (2 * points), record[44 + 4 * parts :])
        vertices = list(zip(flat[0::2], flat[1::2]))
        polygons.append([vertices[a:b] for a, b in zip(first, first[1:])])
    return polygons


def read_table(path):
    """The columns in their order, as a dict from name to texts."""
    with open(path, "rb") as file:
        data = file.read()
    rows, header, length = struct.unpack("<ihh", data[4:12])
    columns, place, at = {}, 1, 32
    while data[at] != 0x0D:
        name = data[at : at + 11].split(b"\0")[0].decode()
        width = data[at + 16]
        starts = [header + row * length + place for row in range(rows)]
        columns[name] = [data[start : start + width].decode("latin-1").strip() for start in starts]
        place += width
        at += 32
    return columns


def area_and_centroid(ring):
    """The signed area, and the centroid with the sign that a clockwise ring makes right."""
    crosses = [b[1] * a[0] - a[1] * b[0] for a, b in zip(ring, ring[1:])]
    area = math.fsum(crosses) / 2
    centre = [
        math.fsum(-c * (a[k] + b[k]) for c, a, b in zip(crosses, ring, ring[1:])) / (6 * abs(area))
        for k in (0, 1)
    ]
    return area, centre


def places(polygons):
    """The total area and the location of each region; a part counts with its gross area."""
    total, centroids = 0, []
    for rings in polygons:
        parts = [area_and_centroid(ring) for ring in rings]
        net = abs(math.fsum(area for area, _ in parts))
        total += net
        shares = [abs(area) / net for area, _ in parts] if len(parts) > 1 else [1]
        centroids.append([math.fsum(s * c[k] for s, (_, c) in zip(shares, parts)) for k in (0, 1)])
    return total, centroids


def smoothed(centroids, mean_area, sigma, scores):
    for here in centroids:
        kernel = [math.exp(-math.dist(here, c) ** 2 / (2 * sigma**2 * mean_area)) for c in centroids]
        length = math.sqrt(math.fsum(k * k for k in kernel))
        yield [math.fsum(k * s for k, s in zip(kernel, period)) / length for period in scores]


def main():
    program, shapefile, *ranges = sys.argv[1:]
    total, centroids = places(read_polygons(shapefile))
    table = read_table(shapefile[:-3] + "dbf")
    names = list(table)
    observed, expected = (
        [[float(v) for v in table[name]] for name in names[names.index(a) : names.index(b) + 1]]
        for a, b in (ranges[:2], ranges[2:])
    )
    wrong = 0
    for option, score in SCORES.items():
        scores = [[score(o, e) for o, e in zip(*period)] for period in zip(observed, expected)]
        for sigma in SIGMAS:
            rows = smoothed(centroids, total / len(centroids), float(sigma), scores)
            ours = [",".join("%.4f" % z for z in row) for row in rows]
            words = ["--obs", *ranges[:2], "--exp", *ranges[2:], "--option", option, "--sigma", sigma]
            theirs = subprocess.run(
                [program, "export", shapefile, *words, "--out", "-"], capture_output=True, check=True, text=True
            ).stdout.splitlines()
            differ = sum(a != b for a, b in zip(ours, theirs)) + abs(len(ours) - len(theirs))
            print("%s, sigma %s: %d rows, %d differ" % (option, sigma, len(theirs), differ))
            wrong += differ
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main())
