"""Runs of the batch program that write layers, and what is to stand in them: the values from the JSON of the
same run, ids and vertices from the dataset by a reading of our own."""

import json
import shutil
import subprocess

import made_set
from shapefile_dataset import Shapes, Table, read_shapes, text_lines

GEOGRAPHIC = b'GEOGCS["GCS_WGS_1984",DATUM["D_WGS_1984",SPHEROID["WGS_1984",6378137.0,298.257223563]],' \
             b'PRIMEM["Greenwich",0.0],UNIT["Degree",0.0174532925199433]]'
PROJECTED = b'PROJCS["Plane",' + GEOGRAPHIC + b',PROJECTION["Transverse_Mercator"],' \
            b'PARAMETER["False_Easting",0.0],PARAMETER["False_Northing",0.0],PARAMETER["Central_Meridian",9.0],' \
            b'PARAMETER["Scale_Factor",1.0],PARAMETER["Latitude_Of_Origin",0.0],UNIT["Meter",1.0]]'

LOCAL = {"unadjusted": ["U", "ZU"], "adjusted": ["U", "ZU", "M"], "freeman-tukey": ["M"], "rossi": ["M"]}
KEYS = {"U": "LocalU", "ZU": "LocalZ", "M": "LocalM"}


class Run:
    """One run: its files, and the layer and the table as (names, rows)."""

    def __init__(self, name, folder, words, ids, rings=None, points=None, polygons=None, projection=None):
        self.name, self.folder = name, folder
        self.ids = ids  # one list, or two
        self.rings, self.points, self.polygons, self.projection = rings, points, polygons, projection
        self.errors = self.written(words, ["--layer", self.file("layer.geojson"), "--table", self.file("table.csv"),
                                           "--json", self.file("run.json")])
        self.written(words, ["--layer", self.file("layer.shp")])
        self.json = json.loads(self.file("run.json").read_text(encoding="utf-8"))
        self.layer, self.table = self.expected()

    def file(self, name):
        return self.folder / name

    @staticmethod
    def written(words, outputs):
        done = subprocess.run([str(w) for w in words + outputs], capture_output=True, text=True, check=False)
        assert done.returncode == 0, (words, done.stderr)
        assert done.stdout == "", words
        return done.stderr


class RetrospectiveRun(Run):
    def __init__(self, variable, *arguments, **named):
        self.variable = variable
        super().__init__(*arguments, **named)

    def expected(self):
        names = ["ID", "ID2"][: len(self.ids)] + ["X", "Y", "OBS", "EXP"]
        regions = [[*ids, *map(float, xy), float(obs), float(exp)] for ids, xy, obs, exp in zip(
            zip(*self.ids), self.json["RegionCentroid"], self.json["ObsCount"], self.json["ExpCount"])]
        if "BandwidthList" in self.json:
            return self.of_range(names, regions)
        adjusted = "Adjusted" if self.variable == "adjusted" else ""
        local = [self.json[KEYS[c] + (adjusted if c != "M" else "")] for c in LOCAL[self.variable]]
        rows = [r + list(map(float, l)) + [c] for r, l, c in zip(regions, zip(*local), self.json["ClassOf"])]
        both = (names + LOCAL[self.variable] + ["CLASS"], rows)
        return both, both

    def of_range(self, names, regions):
        table, sigmas = self.json["StatisticTable"], self.json["BandwidthList"]
        layer = [r + [float(step[i]) for step in table] for i, r in enumerate(regions)]
        long = [r + [k, float(sigma), float(step[i])]
                for i, r in enumerate(regions) for k, (sigma, step) in enumerate(zip(sigmas, table), 1)]
        return ((names + ["S%d" % k for k in range(1, len(table) + 1)], layer),
                (names + ["STEP", "SIGMA", "STAT"], long))


class WatchRun(Run):
    """A watch; `positions` are those of its Regions."""

    def __init__(self, positions, *arguments, **named):
        self.positions = positions
        super().__init__(*arguments, **named)

    def expected(self):
        h, names = self.json["HValue"], ["ID", "ID2"][: len(self.ids)]
        signals = [set(regions) for regions in self.json["Signals"]]
        layer, table = [], []
        for i, (ids, xy, cusum) in enumerate(zip(zip(*self.ids), self.positions, self.json["Cusum"]), 1):
            cusum = list(map(float, cusum))
            first = next((t for t, regions in enumerate(signals, 1) if i in regions), 0)
            largest, last = max(cusum), cusum[-1]
            # The classes are quarters of h, with their upper limits; beyond h stands the fifth.
            shade = 5 if last > h else 1 + sum(last > limit for limit in (h / 4, h / 2, h / 4 * 3))
            layer.append([*ids, *map(float, xy), last, shade, int(i in signals[-1]), first, largest,
                          cusum.index(largest) + 1])
            table += [[*ids, t, value, int(i in signals[t - 1])] for t, value in enumerate(cusum, 1)]
        return ((names + ["X", "Y", "CUSUM", "CLASS", "SIGNAL", "FIRST", "MAX", "MAXAT"], layer),
                (names + ["PERIOD", "CUSUM", "SIGNAL"], table))


def watches_of_points(program, samples, out):
    fields = [line.split(",") for line in text_lines(str(samples / "watch_xy.txt"))]
    points = [(float(f[1]), float(f[2])) for f in fields]
    for name, words in [("zero", ["--h", "3"]), ("fir", ["--start", "fir", "--sigma", "1", "--h", "4"]),
                        ("previous", ["--previous", samples / "watch_previous.txt", "--h", "2.5"])]:
        folder = out / name
        folder.mkdir(parents=True)
        words = [program, "prospective-points", "--ids", samples / "watch_xy.txt", "--z", samples / "watch_z.txt", *words]
        yield WatchRun(points, str(folder), folder, words, [[f[0] for f in fields]], points=points)


def watches_of_polygons(program, shapefile, ids, runs, out, **named):
    table, rings = Table(str(shapefile.with_suffix(".dbf"))), read_shapes(str(shapefile))
    centroids = Shapes(rings).centroids
    for k, run in enumerate(runs):
        folder = out / ("watch, %d" % k)
        folder.mkdir(parents=True)
        words = [program, "prospective-polygons", shapefile, *run]
        for option, column in zip(("--id", "--id2"), ids):
            words += [option, column]
        yield WatchRun(centroids, str(folder), folder, words, [table.texts(c) for c in ids], rings=rings,
                       projection=prj_of(shapefile), **named)


def copied(shapefile, folder):
    folder.mkdir()
    for file in shapefile.parent.glob(shapefile.stem + ".*"):
        shutil.copyfile(file, folder / file.name)
    return folder / shapefile.name


def prj_of(shapefile):
    prj = shapefile.with_suffix(".prj")
    return prj.read_bytes() if prj.exists() else None


def retrospective_polygons(program, shapefile, counts, ids, out, **named):
    """All variables with one bandwidth and one range, in a folder each."""
    table, rings = Table(str(shapefile.with_suffix(".dbf"))), read_shapes(str(shapefile))
    for variable, sigma in [("unadjusted", "0.5"), ("adjusted", "1"), ("freeman-tukey", "0.8"), ("rossi", "0"),
                            ("adjusted", None), ("rossi", None)]:
        folder = out / (variable + " " + (sigma or "range, ä"))
        folder.mkdir(parents=True)
        words = [program, "retrospective-polygons", shapefile, *counts, "--variable", variable]
        for option, column in zip(("--id", "--id2"), ids):
            words += [option, column]
        words += ["--sigma", sigma] if sigma else ["--from", "0.5", "--to", "1.2", "--step", "0.3"]
        yield RetrospectiveRun(variable, str(folder), folder, words, [table.texts(c) for c in ids], rings=rings,
                               projection=prj_of(shapefile), **named)


def retrospective_points(program, file, form, out):
    fields = [line.split(",") for line in text_lines(str(file))]
    points = [(float(f[1]), float(f[2])) for f in fields]
    for variable, sigma in [("unadjusted", "0.5"), ("adjusted", "0.7"), ("freeman-tukey", "1"), ("rossi", None)]:
        folder = out / (variable + " " + (sigma or "range"))
        folder.mkdir(parents=True)
        words = [program, "retrospective-points", file, "--format", form, "--variable", variable]
        words += ["--sigma", sigma] if sigma else ["--from", "0.5", "--to", "1.2", "--step", "0.3"]
        yield RetrospectiveRun(variable, str(folder), folder, words, [[f[0] for f in fields]], points=points)


def made_runs(program, folder):
    """The made set, without and with projections; its layers are told by hand."""
    for name, projection in (("none", None), ("geographic", GEOGRAPHIC), ("plane", PROJECTED)):
        data = folder / ("made, " + name)
        data.mkdir()
        shapefile = made_set.write(data, projection)
        yield from retrospective_polygons(program, shapefile, ["--obs", "OBS", "--exp", "EXP"], ["NAME", "CODE"],
                                          data / "öut put", polygons=[region[4] for region in made_set.REGIONS])
        yield from watches_of_polygons(program, shapefile, ["NAME", "CODE"],
                                       [["--fields", "Z1", "Z4"], ["--fields", "Z2", "Z3", "--h", "0"]],
                                       data / "wätch", polygons=[region[4] for region in made_set.REGIONS])


def all_runs(program, project, folder):
    samples, real = project / "samples", project.parent / "shared" / "data"
    yield from made_runs(program, folder)
    country = copied(samples / "country.shp", folder / "country")
    yield from retrospective_polygons(program, country, ["--pop", "POP", "--cases", "CASES"], ["NAME"],
                                      folder / "country" / "out")
    yield from watches_of_polygons(program, country, ["NAME"], [
        ["--z", samples / "watch_z.txt", "--h", "3"],
        ["--z", samples / "watch_z.txt", "--previous", samples / "watch_previous.csm", "--sigma", "1", "--h", "2"]],
        folder / "country" / "watches")
    yield from watches_of_points(program, samples, folder / "watches")
    yield from retrospective_points(program, samples / "country_pop.txt", "pop-case", folder / "points")
    for name, counts, ids in [("nc", ["--pop", "BIR74", "--cases", "SID74"], ["NAME", "FIPS"]),
                              ("scotlip", ["--obs", "CANCER", "--exp", "CEXP"], ["NAME"]),
                              ("imd_de", ["--obs", "IMD", "--exp", "EXPECTED"], ["NAME", "KEY"])]:
        shapefile = real / name / (name + ".shp")
        if shapefile.exists():
            yield from retrospective_polygons(program, copied(shapefile, folder / name), counts, ids,
                                              folder / name / "out")
