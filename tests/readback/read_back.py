#!/usr/bin/env python3
"""Reads the layers and tables of the batch program with an independent reader, and holds every value against
the JSON of the same run, and every vertex against the dataset.

    read_back.py PROGRAM PROJECT_FOLDER json|pyshp|gdal

"json" reads GeoJSON and CSV with the language's own modules, "pyshp" the shapefiles with that library, and
"gdal" both kinds of layer with ogr2ogr. Exit status 77 where the reader is not installed.
"""

import contextlib
import csv
import io
import json
import shutil
import sqlite3
import struct
import subprocess
import sys
import tempfile
from pathlib import Path

sys.path.append(str(Path(__file__).resolve().parent.parent / "reference"))
sys.path.append("/usr/lib/python3/dist-packages")  # for a Python that is not the system's own

from shapefile_dataset import Table  # noqa: E402
from runs import all_runs  # noqa: E402

SKIPPED = 77


def signed_area(ring):
    """Positive where the ring runs counter-clockwise; about its first vertex."""
    x, y = ring[0][0], ring[0][1]
    return sum((a[0] - x) * (b[1] - y) - (b[0] - x) * (a[1] - y) for a, b in zip(ring, ring[1:])) / 2


def right_handed(ring, hole):
    return ring if (signed_area(ring) > 0) != hole else ring[::-1]


def expected_polygons(rings):
    """Of real data, whose outer rings run clockwise and whose holes do not: the outer rings and the holes."""
    outer = [right_handed(r, False) for r in rings if signed_area(r) < 0]
    holes = [right_handed(r, True) for r in rings if signed_area(r) > 0]
    return sorted(outer), sorted(holes)


def tuples(ring):
    return [tuple(vertex) for vertex in ring]


def lies_in(ring, outer):
    """Whether a ring that does not cross `outer` lies in it: a vertex off its edge, or an edge's middle, does."""
    def inside(x, y):
        odd = False
        for (ax, ay), (bx, by) in zip(outer, outer[1:]):
            if (ay > y) != (by > y) and x < ax + (y - ay) / (by - ay) * (bx - ax):
                odd = not odd
        return odd
    corners = set(outer)
    tests = [v for v in ring if v not in corners] or [
        ((a[0] + b[0]) / 2, (a[1] + b[1]) / 2) for a, b in zip(ring, ring[1:])]
    return sum(inside(*v) for v in tests) * 2 > len(tests)


def check_multipolygon(run, region, geometry):
    """One Region of a GeoJSON layer."""
    if not run.rings[region]:
        assert geometry is None, (run.name, region)
        return
    assert geometry["type"] == "MultiPolygon"
    polygons = [[tuples(ring) for ring in polygon] for polygon in geometry["coordinates"]]
    if run.polygons is not None:
        assert polygons == run.polygons[region], (run.name, region, polygons)
        return
    outer, holes = expected_polygons(run.rings[region])
    assert sorted(p[0] for p in polygons) == outer, (run.name, region)
    assert sorted(r for p in polygons for r in p[1:]) == holes, (run.name, region)
    assert all(lies_in(hole, p[0]) for p in polygons for hole in p[1:]), (run.name, region)


def same(a, b):
    """The same value, in every bit where it is a number."""
    return type(a) in (int, float) and float(a).hex() == float(b).hex() or a == b


def check_rows(run, names, rows, expected_names, expected_rows):
    assert list(names) == expected_names, (run.name, names)
    assert all(len(name) <= 10 for name in names)
    assert len(rows) == len(expected_rows), (run.name, len(rows))
    for i, (row, wanted) in enumerate(zip(rows, expected_rows)):
        for name, a, b in zip(names, row, wanted):
            assert same(a, b), (run.name, i, name, a, b)


def check_geojson(run):
    layer = json.loads(run.file("layer.geojson").read_text(encoding="utf-8"))
    assert layer["type"] == "FeatureCollection"
    wants_crs = run.projection is not None and not run.projection.startswith(b"GEOGCS")
    assert ("crs" in layer) == wants_crs and ('"crs"' in run.errors) == wants_crs, (run.name, run.errors)
    if wants_crs:
        assert layer["crs"] == {"type": "name", "properties": {"name": run.projection.decode()}}
    features = layer["features"]
    check_rows(run, features[0]["properties"], [list(f["properties"].values()) for f in features], *run.layer)
    for i, feature in enumerate(features):
        assert list(feature) == ["type", "id", "properties", "geometry"]
        assert feature["type"] == "Feature" and feature["id"] == i + 1
        assert list(feature["properties"]) == run.layer[0]
        if run.rings is None:
            assert feature["geometry"] == {"type": "Point", "coordinates": list(run.points[i])}
        else:
            check_multipolygon(run, i, feature["geometry"])


def check_csv(run):
    data = run.file("table.csv").read_bytes()
    assert not data.startswith(b"\xef\xbb\xbf") and b"\r" not in data and data.endswith(b"\n")
    names, *rows = csv.reader(io.StringIO(data.decode("utf-8"), newline=""), strict=True)
    kinds = [type(value) for value in run.table[1][0]]
    check_rows(run, names, [[kind(v) for kind, v in zip(kinds, row)] for row in rows], *run.table)


def without_blanks(rows):
    """Readers of tables cut the blanks of a text on both sides, though they stand in the file."""
    return [[v.strip(" ") if isinstance(v, str) else v for v in row] for row in rows]


def check_pyshp(run):
    import shapefile

    with shapefile.Reader(str(run.file("layer.shp")), encoding="utf-8") as layer:
        wanted = without_blanks(run.layer[1])
        check_rows(run, [f[0] for f in layer.fields[1:]], [list(r) for r in layer.records()], run.layer[0], wanted)
        ids = Table(str(run.file("layer.dbf")))
        for name, column in zip(("ID", "ID2"), run.ids):
            assert ids.texts(name) == [text.rstrip(" ") for text in column], run.name
        assert layer.shapeType == (1 if run.rings is None else 5)
        for i, shape in enumerate(layer.shapes()):
            if run.rings is None:
                assert tuples(shape.points) == [run.points[i]]
                continue
            ends = list(shape.parts[1:]) + [len(shape.points)]
            assert [tuples(shape.points[a:b]) for a, b in zip(shape.parts, ends)] == run.rings[i], run.name
        boxes = [v for rings in run.rings for r in rings for v in r] if run.rings else run.points
        assert tuple(layer.bbox) == tuple(f(v[k] for v in boxes) for f in (min, max) for k in (0, 1))
    assert run.file("layer.cpg").read_text() == "UTF-8"
    written = run.file("layer.prj")
    assert (written.read_bytes() if written.exists() else None) == run.projection


def rings_of_wkb(data, at=0):
    """The rings of a polygon or multipolygon in the well-known binary form, or the position of a point; and
    where it ends."""
    kind = struct.unpack_from("<I", data, at + 1)[0]
    assert data[at] == 1 and kind in (1, 3, 6), kind
    at += 5
    if kind == 1:
        return struct.unpack_from("<2d", data, at), at + 16
    count = struct.unpack_from("<I", data, at)[0]
    at += 4
    rings = []
    for _ in range(count):
        if kind == 6:
            inner, at = rings_of_wkb(data, at)
            rings += inner
            continue
        length = struct.unpack_from("<I", data, at)[0]
        flat = struct.unpack_from("<%dd" % (2 * length), data, at + 4)
        rings.append(list(zip(flat[0::2], flat[1::2])))
        at += 4 + 16 * length
    return rings, at


def rows_of_gdal(run, source):
    """A layer through ogr2ogr into a database, which holds numbers as they are: names, rows, geometries."""
    target = run.file("gdal.gpkg")
    subprocess.run(["ogr2ogr", "-f", "GPKG", target, run.file(source), "-nln", "layer", "-lco", "FID=feature_no",
                    "-lco", "GEOMETRY_NAME=shape", "-lco", "SPATIAL_INDEX=NO"], check=True, capture_output=True)
    with contextlib.closing(sqlite3.connect(target)) as database:
        cursor = database.execute("SELECT * FROM layer ORDER BY feature_no")
        names = [column[0] for column in cursor.description][2:]
        rows = cursor.fetchall()
    target.unlink()
    return names, [list(row[2:]) for row in rows], [row[1] for row in rows]


def check_gdal(run):
    for source in ("layer.geojson", "layer.shp"):
        names, rows, geometries = rows_of_gdal(run, source)
        wanted = run.layer[1] if source == "layer.geojson" else without_blanks(run.layer[1])
        check_rows(run, names, rows, run.layer[0], wanted)
        for i, geometry in enumerate(geometries):
            if run.rings is not None and not run.rings[i]:
                assert geometry is None or geometry[3] & 16, (run.name, source, i)  # the flag of an empty one
                continue
            envelope = {0: 0, 1: 32}[geometry[3] >> 1 & 7]
            read = rings_of_wkb(geometry[8 + envelope :])[0]
            if run.rings is None:
                assert read == run.points[i], (run.name, source, i)
            else:
                assert sorted(right_handed(r, False) for r in read) == sorted(
                    right_handed(r, False) for r in run.rings[i]), (run.name, source, i)


CHECKS = {"json": [check_geojson, check_csv], "pyshp": [check_pyshp], "gdal": [check_gdal]}


def is_installed(reader):
    if reader == "gdal":
        return shutil.which("ogr2ogr") is not None
    try:
        __import__({"json": "json", "pyshp": "shapefile"}[reader])
    except ImportError:
        return False
    return True


def main():
    program, project, reader = sys.argv[1:]
    if not is_installed(reader):
        print(reader, "is not installed; nothing was read with it.")
        sys.exit(SKIPPED)
    count = 0
    with tempfile.TemporaryDirectory() as folder:
        for run in all_runs(program, Path(project), Path(folder)):
            for check in CHECKS[reader]:
                check(run)
            count += 1
    print(count, "runs read back with", reader)
    sys.exit(0 if count >= 10 else 1)


main()
