#!/usr/bin/env python3
"""Holds vastrel-batch's commands on shapefiles against polygons.py.

    compare_polygons.py PROGRAM SAMPLES

Texts are compared to the letter, the numbers of JSON and cusum files as compare_retrospective.py does,
and refusals by their status and message.
"""

import os
import subprocess
import sys
import tempfile

sys.dont_write_bytecode = True

import odd_shapefiles
import polygons
from compare_retrospective import Difference
from number_text import Refused, RunTimeStop
from retrospective import VARIABLES
from shapefile_dataset import Dataset, WrongUse

OUTPUTS = {
    "retrospective": ("lists", "report", "json"),
    "prospective": ("lists", "report", "cusum", "json"),
    "centroids": ("out",),
    "export": ("out",),
}
STOPPED = "Run-time error '"
DEGREES = "Note: the coordinates look like degrees. Distances are computed in the plane: project the data first."


def look_like_degrees(places):
    return all(-180 <= x <= 360 and -90 <= y <= 90 for x, y in places)


def expected(kind, path, ask):
    """Exit status, messages and the texts of the files."""
    messages = []
    try:
        if kind == "centroids":
            return 0, messages, {"out": Dataset(path).shapes.centroid_file()}
        if kind == "export":
            return 0, messages, {"out": polygons.export(path, ask)}
        if kind == "retrospective":
            run = polygons.Retrospective(path, ask, messages.append)
        else:
            run = polygons.Prospective(path, ask)
        if look_like_degrees(Dataset(path).shapes.centroids):
            messages.insert(0, DEGREES)
        return 0, messages, {what: getattr(run, what)() for what in outputs(kind, ask)}
    except Refused as refused:
        return 3, messages + [str(refused)], {}
    except WrongUse:
        return 2, messages, {}
    except RunTimeStop as stop:
        return 4, messages + [str(stop)], {}
    except (ArithmeticError, ValueError):
        return 4, messages + [STOPPED], {}
    except OSError as fault:
        return 4, messages + [STOPPED + ("75'" if isinstance(fault, IsADirectoryError) else "53'")], {}


def outputs(kind, ask):
    return [what for what in OUTPUTS[kind] if what != "cusum" or "previous" not in ask]


def options(ask):
    words = []
    for key, value in ask.items():
        words += ["--" + key] + ([str(value)] if not isinstance(value, (list, tuple)) else list(value))
    return words


def printed(program, kind, path, ask, folder):
    names = {what: os.path.join(folder, what) for what in outputs(kind, ask)}
    for name in names.values():
        if os.path.exists(name):
            os.remove(name)
    command = [program, kind if kind in ("centroids", "export") else kind + "-polygons", path]
    command += options(ask) + options(names)
    done = subprocess.run(command, capture_output=True, text=True)
    texts = {}
    for what, name in names.items():
        if os.path.exists(name):
            with open(name, encoding="utf-8", newline="") as file:
                texts[what] = file.read()
    return done.returncode, done.stderr, texts


def fields(text):
    """The lines of a cusum file, whose fields are full numbers but for the titles."""
    return [[number_or_text(field) for field in line.split(",")] for line in text.split("\n")]


def number_or_text(field):
    try:
        return float(field)
    except ValueError:
        return field


def compare(program, kind, path, ask, folder):
    status, messages, ours = expected(kind, path, ask)
    got, errors, theirs = printed(program, kind, path, ask, folder)
    difference = Difference()
    if got != status:
        difference.wrong.append("status %d, program %d: %s" % (status, got, errors.strip()))
    if set(ours) != set(theirs):
        difference.wrong.append("files %s, program %s" % (sorted(ours), sorted(theirs)))
    elif status > 2 and messages[-1] not in errors:
        difference.wrong.append("message %r, program %r" % (messages[-1], errors))
    elif status == 0 and messages != errors.splitlines():
        difference.wrong.append("messages %r, program %r" % (messages, errors))
    for what in set(ours) & set(theirs):
        if what == "json":
            difference.compare_json(ours[what], theirs[what])
        elif what == "cusum":
            difference.compare(what, fields(ours[what]), fields(theirs[what]))
        elif ours[what] != theirs[what]:
            difference.compare(what, ours[what].split("\n"), theirs[what].split("\n"))
    return difference


def asks(path):
    """The runs on one of the odd shapefiles."""
    yield "centroids", {}
    for variable in VARIABLES:
        yield "retrospective", {"obs": "OBS", "exp": "EXP", "id": "ID", "variable": variable, "sigma": "0.8"}
        yield "retrospective", {"obs": "OBS", "exp": "EXP", "id": "ID", "variable": variable, "sigma": "9"}
        population = {"pop": "pop", "cases": "obs", "id": "BIG", "id2": "Day", "alpha": "0.01"}
        yield "retrospective", {**population, "variable": variable, "sigma": "0"}
        yield "retrospective", {**population, "variable": variable, "from": "0", "to": "1", "step": "0.4"}
    for option in polygons.EXPORT_SCORES:
        yield "export", {"obs": ["OBS", "EXP"], "exp": ["EXP", "POP"], "option": option, "sigma": "-1"}
    saved = os.path.join(os.path.dirname(path), "saved.csm")
    z = {"z": os.path.join(os.path.dirname(path), "z.txt"), "id": "ID", "id2": "YESNO", "h": "1.5"}
    for more in ({}, {"previous": saved}, {"previous": saved, "show": "both"}):
        yield "prospective", {**z, **more}
        yield "prospective", {"fields": ["Z1", "TEXTZ"], "id": "ID", "id2": "POP", "k": "0", "sigma": "1", **more}


def refusals():
    """What the columns and texts of the plain shapefile make of every place where they can stand."""
    counts, z = {"obs": "OBS", "exp": "EXP", "id": "ID"}, {"fields": ["Z1", "Z2"], "id": "ID"}
    for name in [column[0] for column in odd_shapefiles.COLUMNS] + ["NONE"]:
        for place in counts:
            yield "retrospective", {**counts, place: name, "sigma": "1", "variable": "rossi"}
        yield "retrospective", {"pop": name, "cases": "OBS", "id": "ID", "sigma": "1"}
        for fields in ([name, "Z2"], ["Z1", name], [name, name]):
            yield "prospective", {**z, "fields": fields}
        for pair in (("obs", "exp"), ("exp", "obs")):
            columns = {pair[0]: [name, name], pair[1]: ["POP", "POP"]}
            yield "export", {**columns, "option": "standard", "sigma": "1"}
    for text in ("", "x", "-1", " 2 ", "1d0", "1,5", "1e400"):
        yield "retrospective", {**counts, "sigma": text}
        yield "retrospective", {**counts, "to": text, "variable": "freeman-tukey"}
        yield "prospective", {**z, "sigma": text}
        yield "prospective", {**z, "h": text}
        yield "export", {"obs": ["OBS", "OBS"], "exp": ["EXP", "EXP"], "option": "rossi", "sigma": text}


def sample_runs(samples):
    path = os.path.join(samples, "country.shp")
    yield path, "centroids", {}
    yield path, "retrospective", {"pop": "POP", "cases": "CASES", "id": "NAME", "sigma": "1", "variable": "adjusted"}
    yield path, "prospective", {"fields": ["OBS01", "OBS24"], "id": "NAME", "id2": "ID", "k": "25", "sigma": "0.5"}
    z = {"z": os.path.join(samples, "watch_z.txt"), "id": "NAME"}
    yield path, "prospective", {**z, "previous": os.path.join(samples, "watch_previous.csm"), "show": "both"}


def all_runs(folder, samples):
    with open(os.path.join(folder, "saved.csm"), "w", encoding="utf-8") as file:
        file.write("period1,period2,\n0.5,1.25,\nx,2,\n\n3,\n-1,-2,7\n")
    with open(os.path.join(folder, "z.txt"), "w", encoding="utf-8") as file:
        file.write("1,-2, .5\n2d0,0,3\n")
    shapefiles = {name: (shapes, None) for name, shapes in odd_shapefiles.SHAPES.items()}
    shapefiles["fewer"] = (odd_shapefiles.PLAIN, 4)
    shapefiles["more"] = (odd_shapefiles.PLAIN, 10)
    for name, (shapes, records) in shapefiles.items():
        path = odd_shapefiles.write(folder, name, shapes, records)
        for kind, ask in asks(path):
            yield path, kind, ask
    for kind, ask in refusals():
        yield os.path.join(folder, "plain.shp"), kind, ask
    yield from sample_runs(samples)


def main():
    program, samples = sys.argv[1:]
    runs = failed = values = equal = 0
    with tempfile.TemporaryDirectory() as folder:
        for path, kind, ask in all_runs(folder, samples):
            d = compare(program, kind, path, ask, folder)
            runs, values, equal = runs + 1, values + d.values, equal + d.equal
            if d.wrong:
                failed += 1
                print(os.path.basename(path), kind, ask)
                print("    " + "\n    ".join(d.wrong[:6]))
    print("%d runs, %d differ; %d of %d numbers equal" % (runs, failed, equal, values))
    return 1 if failed or runs == 0 or values == 0 else 0


if __name__ == "__main__":
    sys.exit(main())
