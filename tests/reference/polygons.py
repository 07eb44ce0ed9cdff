"""The tests on polygons and the export, worked out a second time and apart from the program.

What does not depend on the kind of the data (kernel, statistics, p-values, number patterns) is taken
from bandwidth.py, retrospective.py and number_text.py; compare_polygons.py holds the program against
what stands here.
"""

import math

from bandwidth import dot, kernel, m_critical
from number_text import Refused, RunTimeStop, is_numeric, num, number, pad
from retrospective import Run
from shapefile_dataset import Dataset, as_number, divided, general, numeric_value, text_lines

M_TEXTS = ["            < -M*", "-M* =<  -  < -0.5M*", "-0.5M* =<  -  < 0"]
M_TEXTS += ["0 =<  -  < 0.5M*", "0.5M* =<  -  < M*", "M* =< "]


# ---------------------------------------------------------------- the retrospective test


class Counts:
    """What the statistics read: places, observed, expected and proportions."""

    def __init__(self, data, first, second, population):
        """first and second are population and cases, or expected and observed."""
        a, b = (data.table.column(name, offered="NF") for name in (first, second))
        for base, count in zip(a, b):
            if (base is not None and base <= 0) or (count is not None and count < 0):
                raise Refused("Data include invalid values. Check data and try again!")
            if base is None or count is None:
                raise Refused("Data include null values. Check data and try again!")
        self.n = data.n
        self.x, self.y = ([c[k] for c in data.shapes.centroids] for k in (0, 1))
        missing = [0.0] * (self.n - len(a))
        base, self.obs = a + missing, b + missing
        self.total_obs = self.total_pop = 0.0
        for o in self.obs:
            self.total_obs += o
        if population:
            for p in base:
                self.total_pop += p
            self.exp = [divided(self.total_obs * p, self.total_pop) for p in base]
            self.ratio = [divided(p, self.total_pop) for p in base]
        else:
            self.exp = base
            self.ratio = [divided(e, self.total_obs) for e in base]
        if 0 in self.exp:  # the deviations taken with the columns divide by its root
            raise RunTimeStop(11)


class Area:
    """Stands in for the plot of a point test."""

    points, scale_x, scale_y = (), 0.0, 0.0

    def __init__(self, total):
        self.total = total

    def study_area(self):
        return self.total


SCORE_LIST_2 = (13, 13, 9, 9, 9, 9), ("ID(1)", "ID(2)", "U(i) ", "Z[U(i)]", "Obs", "Exp"), (13, 13, 10, 8, 9, 9)
SCORE_LIST_1 = {
    "unadjusted": ((13, 10, 10, 10, 12), ("ID", "U(i) ", "Z[U(i)]", "Observed", "Expected"), (13, 11, 9, 10, 12)),
    "adjusted": ((13, 10, 10, 10, 11), ("ID", "U(i) ", "Z[U(i)]", "Observed", "Expected"), (13, 11, 9, 10, 11)),
}
M_LIST_2 = (15, 13, 10, 10, 10), ("ID(1)", "ID(2)", "M(i) ", "Observed", "Expected"), (15, 13, 11, 9, 10)
M_LIST_1 = (13, 10, 10, 10), ("ID", "M(i) ", "Observed", "Expected"), (13, 11, 9, 10)


DEFAULTS = {"variable": "unadjusted", "from": "0.2", "to": "2.0", "step": "0.2"}


def joined(texts, widths):
    return "".join(pad(text, width) for text, width in zip(texts, widths))


class Retrospective(Run):
    """A run on polygons, in the rows of the polygon screen."""

    def __init__(self, path, ask, warn):
        data = Dataset(path)
        self.id_columns = [data.ids(ask[key]) for key in ("id", "id2") if key in ask]
        population = "pop" in ask
        counts = Counts(data, ask["pop" if population else "exp"], ask["cases" if population else "obs"], population)
        counts.ids = self.id_columns[0]
        ask = {**DEFAULTS, **ask, "alpha": float(ask.get("alpha", "0.05"))}
        super().__init__(counts, Area(data.shapes.total), ask, warn)
        self.warn = warn
        self.take_m_critical_again()  # for the legend

    def take_m_critical_again(self):
        """Its message comes with each call."""
        if self.single and not self.score:
            m_critical(self.single.sigma, self.alpha, self.data.n, self.warn)

    def sweep_rows(self):
        if self.variable == "unadjusted":
            heading = joined(("Sigma", "U", "Chi", "DF   ", "P-Val"), (6, 10, 9, 12, 6))
            return [heading, "-" * 50] + [self.sweep_row(s) for s in self.steps] + ["-" * 50]
        return super().sweep_rows()

    def sweep_row(self, s):
        sigma = num(s.shown_sigma, "0.00" if self.variable == "adjusted" else "0.000")
        if self.variable == "unadjusted":
            row = joined(
                (sigma, num(s.global_u, "0.00"), num(s.chi, "0.00"), num(s.df, "0.00")), (6, 10, 9, 9)
            )
            return row + ("   <0.001" if s.chi_p < 0.001 else pad(num(s.chi_p, "0.0000"), 9))
        if self.variable == "adjusted":
            small = s.chi_p < 0.001
            of_m = "0.0" if small else "0.00"
            row = joined((sigma, num(s.global_u, "0.0"), num(s.chi, "0.0"), num(s.df, "0.0")), (5, 7, 7, 6))
            row += pad(num(s.max_m, of_m), 5) + "(" + pad(num(s.m_critical, of_m), 3) + ")"
            return row + ("  <0.001" if small else pad(num(s.chi_p, "0.000"), 6))
        return joined((sigma, num(s.max_m, "0.00"), num(s.m_critical, "0.00")), (6, 6, 6))

    def local_rows(self):
        if not self.single:
            return []
        two = len(self.id_columns) == 2
        one_id = SCORE_LIST_1[self.variable] if self.score else M_LIST_1
        widths, heading, heading_widths = (SCORE_LIST_2 if self.score else M_LIST_2) if two else one_id
        dashes = "-" * 82
        rows = [joined(self.local_texts(i, "000"), widths) for i in range(self.data.n)]
        return [dashes, joined(heading, heading_widths), dashes] + rows + [dashes]

    def local_texts(self, i, decimals):
        s, plain = self.single, "0." + decimals
        texts = [column[i] for column in self.id_columns]
        texts += [num(s.u[i], plain), num(s.z[i], plain)] if self.score else [num(s.m[i], plain)]
        return texts + [num(self.data.obs[i], plain), num(self.data.exp[i], plain)]

    def single_report(self):
        self.take_m_critical_again()
        rows = super().single_report()
        first = len(rows) - 1 - self.data.n
        two = len(self.id_columns) == 2
        widths = [15] + [13] * two + [10] * (4 if self.score else 3)
        names = ["ID(1)", "ID(2)"] if two else ["ID"]
        names += ["U(i)", "Z[U(i)]"] if self.score else ["M(i)"]
        rows[first - 2] = joined(names + ["Observed", "Expected"], widths)
        rows[first:-1] = [joined(self.local_texts(i, "00"), widths) for i in range(self.data.n)]
        return rows

    def range_report(self):
        rows = super().range_report()
        rows[2] = rows[2].replace(pad("p-value    ", 16), pad("P-Val    ", 16))
        return rows

    def json(self):
        values = super().json()
        for of_points in ("PlottedPoints", "ScaleX", "ScaleY"):
            del values[of_points]
        values["TotalPop"] = self.data.total_pop
        if len(self.id_columns) == 2:
            values["RegionID2"] = self.id_columns[1]
        if "LegendTexts" in values and not self.score:
            values["LegendTexts"] = M_TEXTS
        return values

    def json_of_range(self):
        values, labels, x = super().json_of_range(), [], self.first
        for _ in self.steps:
            labels.append(num(x, "0.000"))
            x = x + self.step
        values["ChartLabels"] = labels
        return values


# ---------------------------------------------------------------- the prospective test


def check_z_field(values):
    for value in values:
        if not numeric_value(value):
            raise Refused("Data should be numerical values!")


def z_of_fields(data, names):
    first, last = (data.table.position(name) for name in names)
    check_z_field(data.table.columns[first])
    if first > last:
        raise Refused("Start and end priods were not set improperly!")
    check_z_field(data.table.columns[last])
    return data.table.columns[first : last + 1]


def z_of_file(path, n):
    lines = text_lines(path)
    if not lines:
        raise RunTimeStop(62)
    periods = lines[0].count(",") + 1
    table = [[0.0] * n for _ in range(periods)]
    for row, line in enumerate(lines):
        tokens = line.split(",") if line else []
        for t in range(periods):
            if t >= len(tokens) or row >= n:
                raise RunTimeStop(9)
            table[t][row] = number(tokens[t])
    return table


def read_cusum_file(path, n):
    """Columns of the saved cusums. What is no number, or missing, stays 0."""
    lines = text_lines(path)
    columns = [[0.0] * n for _ in range(lines[0].count(",") if lines else 0)]
    for row, line in enumerate(lines[1 : n + 1]):
        for column, token in zip(columns, line.split(",")):
            try:
                column[row] = number(token)
            except RunTimeStop:
                pass
    return columns


def parameters(ask):
    texts = [ask.get("k", "0.5"), ask.get("h", "9.3"), ask.get("sigma", "0")]
    if not all(is_numeric(text) for text in texts):
        raise Refused("Parameters are not properly input.")
    values = [number(text) for text in texts]
    if min(values) < 0:
        raise Refused("Parameters should be positive values.")
    return values


def filtered(data, sigma, z):
    """A row of smoothed values for each period."""
    places = data.shapes

    class Places:
        n, x, y = places.n, [c[0] for c in places.centroids], [c[1] for c in places.centroids]

    weights = kernel(Places, places.total, sigma)
    return [[dot(row, period) for row in weights] for period in z]


class Prospective:
    """A run on polygons; ask holds k, h, sigma, id, and z or fields, and if wanted id2, previous, show."""

    def __init__(self, path, ask):
        self.data = data = Dataset(path)
        names = [ask[key] for key in ("id", "id2") if key in ask]
        if len(names) == 2:
            data.table.position(names[1])
        ids = data.ids(names[0])
        self.from_file = "z" in ask
        z = None if self.from_file else z_of_fields(data, ask["fields"])
        self.k, self.h, self.sigma = parameters(ask)
        previous = read_cusum_file(ask["previous"], data.n) if "previous" in ask else None
        self.sigma = self.sigma or 1e-9
        if self.from_file:
            z = z_of_file(ask["z"], data.n)
        else:
            z = [[as_number(v) for v in column] + [0.0] * (data.n - len(column)) for column in z]
        self.both_ids = ids
        if len(names) == 2:
            self.both_ids = ["%s (%s) " % row for row in zip(ids, data.table.texts(names[1]))]
            self.both_ids += [""] * (data.n - data.table.rows)
        self.labels = ids if self.from_file else self.both_ids
        self.saved = previous or []
        smoothed = filtered(data, self.sigma, z)
        if not self.from_file and data.table.rows < data.n:
            raise RunTimeStop(3021)  # no record for the label of a Region
        self.run(smoothed, self.saved[-1] if self.saved else [0.0] * data.n)
        self.both = previous is not None and ask.get("show") == "both"

    def run(self, periods, start):
        self.columns, self.maxima, self.max_regions = [], [], []
        for f in periods:
            column, largest, region = [], 0.0, ""
            for i in range(self.data.n):
                s = (f[i] + start[i]) - self.k
                if s < 0:
                    s = 0.0
                if s > largest:
                    largest, region = s, self.labels[i]
                column.append(s)
            start = column
            self.columns.append(column)
            self.maxima.append(largest)
            self.max_regions.append(region)

    def signals(self, column):
        """The regions above the threshold, of those that have a record."""
        return [i for i in range(min(self.data.n, self.data.table.rows)) if column[i] > self.h]

    def lists(self):
        shift = len(self.saved) if self.both else 0
        rows = ["  Year   Cusum     Region of max cusum value", "-" * 82]
        for t, (largest, region) in enumerate(zip(self.maxima, self.max_regions), 1):
            rows.append(pad(str(t + shift), 5) + "  " + pad(num(largest, "0.00"), 7) + "     " + pad(region, 16))
        rows.append("-" * 82)
        for column in self.columns:
            signals = self.signals(column)
            if signals:
                rows.append("")
            rows += [pad(num(column[i], "0.00"), 8) + " <---" + pad(self.both_ids[i], 18) for i in signals]
        return "".join(row + "\n" for row in rows)

    def report(self):
        dashes, names = "-" * 344, ["period%d" % (t + 1) for t in range(len(self.columns))]

        def cells(texts, width):
            return "".join(pad(text, width) + ", " for text in texts)

        rows = ["                  Table of maximum cusum and corresponding region for each year             ", dashes]
        rows += [cells(names, 18), cells(self.max_regions, 18), cells([num(m, "0.0000") for m in self.maxima], 18)]
        rows += [dashes, "", ""]
        rows += ["                  Table of cusum for a given period in each region               ", ""]
        rows += [pad("RegionID", 36) + ", " + cells(names, 7), dashes]
        for i in range(self.data.n):
            rows.append(pad(self.labels[i], 36) + ", " + cells([num(c[i], "0.0000") for c in self.columns], 7))
        return "".join(row + "\n" for row in rows + [dashes])

    def cusum(self):
        rows = ["".join("period%d," % (t + 1) for t in range(len(self.columns)))]
        rows += ["".join(general(c[i]) + "," for c in self.columns) for i in range(self.data.table.rows)]
        return "".join(row + "\n" for row in rows)

    def json(self):
        before = [max(column) for column in self.saved] if self.both else []
        chart = [[m, self.h] for m in before + self.maxima]
        labelled = len(before) + 1 if self.both and self.from_file else len(chart)
        return {
            "NumRegion": self.data.n,
            "TotalShapeArea": self.data.shapes.total,
            "KValue": self.k,
            "HValue": self.h,
            "CurrentSigma": self.sigma,
            "Cusum": [list(row) for row in zip(*self.columns)],
            "MaxCusum": self.maxima,
            "MaxRegion": self.max_regions,
            "RegionLabel": self.labels,
            "Signals": [[i + 1 for i in self.signals(column)] for column in self.columns],
            "CusumChartData": chart,
            "ChartLabels": [str(r) if r <= labelled else "" for r in range(1, len(chart) + 1)],
        }


# ---------------------------------------------------------------- z-values of count columns


def check_counts(values):
    for value in values:
        if not numeric_value(value):
            raise Refused("Data should be numerical values!")
        if as_number(value) < 0:
            raise Refused("Data include invalid values. Check data and try again!")


def root(x):
    if x < 0:
        raise RunTimeStop(5)
    return math.sqrt(x)


EXPORT_SCORES = {
    "poisson": lambda o, e: divided(o - e, root(e)),
    "standard": lambda o, e: root(o) + root(o + 1) - root(4 * e + 1),
    "rossi": lambda o, e: divided(o - 3 * e + 2 * root(o * e), 2 * root(e)),
}


def export(path, ask):
    data = Dataset(path)
    table = data.table
    obs, exp = ([table.position(name) for name in ask[key]] for key in ("obs", "exp"))
    for first, last in (obs, exp):
        check_counts(table.columns[first])
        check_counts(table.columns[last])
        if first > last:
            raise Refused("Start and end priods were not set improperly!")
    if obs[1] - obs[0] != exp[1] - exp[0]:
        raise Refused("Periods for Obs and Exp are not identical. ")
    if not is_numeric(ask["sigma"]):
        raise Refused("Bandwidth should be numeric.")
    sigma = number(ask["sigma"]) or 1e-9
    if table.rows < data.n:
        raise RunTimeStop(3021)
    scores = []
    for t in range(obs[1] - obs[0] + 1):
        o, e = ([as_number(v) for v in table.columns[c[0] + t][: data.n]] for c in (obs, exp))
        scores.append([EXPORT_SCORES[ask["option"]](*pair) for pair in zip(o, e)])
    z = filtered(data, sigma, scores)
    return "".join(",".join(num(v, "0.0000") for v in row) + "\n" for row in zip(*z))
