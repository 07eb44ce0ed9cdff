#!/usr/bin/env python3
"""The retrospective test on points, worked out a second time and apart from the program.

Plain loops over plain lists, every sum in the order of its definition, and nothing but the standard
library: what the program prints is held against what this prints (compare_retrospective.py).

    retrospective.py FILE --format obs-exp|pop-case [--variable V] [--sigma S | --from A --to B --step C]
                     [--alpha 0.05|0.01] [--surface W,H,SW,SH] [--zoom Z] [--what lists|report|json]
"""

import argparse
import json
import math
import re
import struct
import sys
from decimal import ROUND_HALF_UP, Context, Decimal

PI_SHORT = 3.14159265
EVERY_DIGIT = Context(prec=400, rounding=ROUND_HALF_UP)
VARIABLES = ("unadjusted", "adjusted", "freeman-tukey", "rossi")


class Refused(Exception):
    """A message of the screens' own, after which nothing is computed."""


class RunTimeStop(Exception):
    """A fault that nothing catches."""

    def __init__(self, number):
        super().__init__("Run-time error '%d'" % number)
        self.number = number


# ---------------------------------------------------------------- numbers and text


def single(x):
    return struct.unpack("f", struct.pack("f", x))[0]


def num(value, pattern):
    blanks = len(pattern) - len(pattern.lstrip(" "))
    decimals = len(pattern.split(".")[1])
    quantum = Decimal(1).scaleb(-decimals)
    text = format(Decimal("%.15g" % abs(value)).quantize(quantum, context=EVERY_DIGIT), "f")
    return " " * blanks + ("-" if value < 0 else "") + text


def pad(text, n):
    return " " * (n - len(text)) + text


NUMERIC = re.compile(r"^[ \t]*[+-]?([0-9]+\.?[0-9]*|\.[0-9]+)([eEdD][+-]?[0-9]+)?[ \t]*$")


def is_numeric(text):
    return NUMERIC.match(text) is not None


def number(text):
    if not is_numeric(text):
        raise RunTimeStop(13)
    value = float(text.strip(" \t").replace("d", "e").replace("D", "e"))
    if math.isinf(value):
        raise RunTimeStop(6)
    return value


def round_to_int32(x):
    n = round(x)  # ties to the even neighbour
    if not -(2**31) <= n < 2**31:
        raise RunTimeStop(6)
    return n


def int32(n):
    if not -(2**31) <= n < 2**31:
        raise RunTimeStop(6)
    return n


# ---------------------------------------------------------------- the dataset


class Dataset:
    """ids, x, y, observed, expected and expected proportions, each a list from 0."""

    def __init__(self, path, population):
        with open(path, encoding="utf-8-sig", newline="") as file:
            text = file.read().replace("\r\n", "\n").replace("\r", "\n")
        lines = text.split("\n")
        if lines[-1] == "":
            lines.pop()
        if len(lines[0].split(",")) != 5:
            raise Refused("Data does not fit the required format. Check the data and requirement, please.")
        self.ids, self.x, self.y, first, second = [], [], [], [], []
        for line in lines:
            fields = line.split(",")
            if len(fields) < 5:
                raise RunTimeStop(9)
            self.ids.append(fields[0])
            self.x.append(number(fields[1]))
            self.y.append(number(fields[2]))
            first.append(number(fields[3]))
            second.append(number(fields[4]))
        self.n = len(lines)
        if population:
            total_pop = 0.0
            self.total_obs = 0.0
            for pop, cases in zip(first, second):
                total_pop += pop
                self.total_obs += cases
            self.obs = second
            self.exp = [(self.total_obs / total_pop) * pop for pop in first]
            self.ratio = [pop / total_pop for pop in first]
        else:
            self.total_obs = 0.0
            for obs in first:
                self.total_obs += obs
            self.obs = first
            self.exp = second
            self.ratio = [e / self.total_obs for e in second]


# ---------------------------------------------------------------- plotted positions and study area


class Plot:
    """The points as whole pixels of the map, the scales of the map, and the area of their hull."""

    def __init__(self, data, surface, zoom):
        width, height, scale_width, scale_height = (single(s) for s in surface)
        margin_x = (max(data.x) - min(data.x)) / 20
        margin_y = (max(data.y) - min(data.y)) / 20
        view_x_min = min(data.x) - margin_x
        view_y_max = margin_y + max(data.y)
        view_width = abs((margin_x + max(data.x)) - (min(data.x) - margin_x))
        view_height = abs((margin_y + max(data.y)) - (min(data.y) - margin_y))
        self.points = []
        self.scale_x = self.scale_y = 0.0
        if view_width == 0 or view_height == 0:
            return
        aspect = view_height / view_width
        factor = single(height / width) * zoom
        if view_height < view_width:
            drawn_height = scale_width * aspect * factor
            drawn_width = scale_width * factor
        else:
            drawn_height = scale_height * factor
            drawn_width = scale_height / aspect * factor
        centre_x = scale_width / 2 - drawn_width / 2
        centre_y = scale_height / 2 - drawn_height / 2
        self.scale_x = drawn_width / view_width
        self.scale_y = drawn_height / view_height
        shift_x = -view_x_min
        shift_y = -(view_y_max - view_height)
        for x, y in zip(data.x, data.y):
            px = x * self.scale_x + shift_x * self.scale_x + centre_x
            py = -(y * self.scale_y + shift_y * self.scale_y) + drawn_height + centre_y
            self.points.append((round_to_int32(px), round_to_int32(py)))

    def study_area(self):
        hull = self.wrap()
        if len(hull) < 3:
            return 0.0
        total = 0.0
        for k in range(1, len(hull) - 1):
            (x1, y1), (x2, y2) = hull[k], hull[k + 1]
            total += 0.5 * (int32(x1 * y2) - int32(x2 * y1))
        return abs(total) * (1 / self.scale_x) * (1 / self.scale_y)

    def wrap(self):
        """Package wrapping; swaps the points of the hull to the front of the list."""
        p = self.points
        if not p:
            return []
        lowest = 0
        for i in range(1, len(p)):
            if p[i][1] < p[lowest][1] or (p[i][1] == p[lowest][1] and p[i][0] < p[lowest][0]):
                lowest = i
        p[0], p[lowest] = p[lowest], p[0]
        previous, m = 0.0, 1
        while True:
            smallest, kept = 360.0, None
            for i in range(m, len(p)):
                angle = pseudo_angle(p[m - 1], p[i])
                if previous <= angle < smallest:
                    smallest, kept = angle, i
            back = pseudo_angle(p[m - 1], p[0])
            if previous <= back <= smallest or kept is None:
                return p[:m]
            m += 1
            p[m - 1], p[kept] = p[kept], p[m - 1]
            previous = smallest


def pseudo_angle(a, b):
    dx, dy = single(b[0] - a[0]), single(b[1] - a[1])
    reach = single(abs(dx) + abs(dy))
    t = single(360.0 / 9.0) if reach == 0 else single(dy / reach)
    if dx < 0:
        t = single(2 - t)
    elif dy < 0:
        t = single(4 + t)
    return single(t * 90)


# ---------------------------------------------------------------- probabilities


def normal_p_value(z):
    if z > 4.5:
        return 0.0
    x = z if z > 0 else -z
    area, h, s = 0.0, 0.0001, 1.0
    c = math.sqrt(6.2831853)
    while x > 0:
        f1 = math.exp((-x * x) / ((s * s) * 2)) * (1 / (c * s))
        x = x - h
        f2 = math.exp((-x * x) / ((s * s) * 2)) * (1 / (c * s))
        area = area + h * ((f2 + f1) / 2)
        if 0.5 - area < 0.00001:
            break
    return 0.0 if area > 0.5 else 0.5 - area


def chi_square_p_value(chi, df):
    if chi / df < 0:
        raise RunTimeStop(5)
    a = (chi / df) ** 0.33333
    a = a - 1
    a = a + 2 / (df * 9)
    return normal_p_value(math.sqrt((df * 9) / 2) * a)


def chi_critical(alpha, df):
    z = {0.01: 2.57, 0.05: 1.96}.get(alpha)
    if z is None:
        return 0.0
    q = 2 / (df * 9)
    v = math.sqrt(q) * z
    v = v + 1
    v = v - q
    return v ** (1 / 0.33333) * df


# ---------------------------------------------------------------- one bandwidth


def kernel(data, area, sigma):
    n = data.n
    r = math.sqrt(PI_SHORT)
    rows = []
    for i in range(n):
        row = []
        for j in range(n):
            if i == j:
                row.append(1 / (sigma * r))
                continue
            d = ((data.x[i] - data.x[j]) ** 2.0 + (data.y[i] - data.y[j]) ** 2.0) ** 0.5
            e = math.exp((d**2.0 * -1.0) / ((sigma**2.0 + sigma**2.0) * (area / n)))
            row.append((1 / (sigma * r)) * e)
        s = 0.0
        for k in row:
            s += k * k
        root = math.sqrt(s)
        rows.append([k / root for k in row])
    return rows


def dot(a, b):
    s = 0.0
    for x, y in zip(a, b):
        s += x * y
    return s


def transposed(matrix):
    return [list(column) for column in zip(*matrix)]


class Bandwidth:
    """All results of one bandwidth."""

    def __init__(self, data, plot, sigma, variable, alpha, sweep, warn):
        self.sigma = sigma
        self.variable = variable
        score = variable in ("unadjusted", "adjusted")
        if variable == "adjusted" and sweep:
            self.run_m(data, plot)
        if score:
            self.run_score(data, plot, alpha)
        if variable != "unadjusted" and not (variable == "adjusted" and sweep):
            self.run_m(data, plot)
        if variable != "unadjusted":
            self.max_m = max(self.m)
            self.m_critical = m_critical(sigma, alpha, data.n, warn)

    def run_m(self, data, plot):
        self.area = plot.study_area()
        w = kernel(data, self.area, self.sigma)
        self.dev = [deviation(self.variable, o, e) for o, e in zip(data.obs, data.exp)]
        self.m = [dot(self.dev, row) for row in w]

    def run_score(self, data, plot, alpha):
        adjusted = self.variable == "adjusted"
        n, total = data.n, data.total_obs
        self.area = plot.study_area()
        w = kernel(data, self.area, self.sigma)
        columns = transposed(w)
        gram = [[0.0] * n for _ in range(n)]
        for i in range(n):
            for j in range(i, n):  # x * y is y * x to the last bit, so the other half is the same
                gram[i][j] = gram[j][i] = dot(columns[i], columns[j])
        if adjusted:
            w = [[w[a][b] / math.sqrt(data.exp[b]) for b in range(n)] for a in range(n)]
            gram = [
                [gram[a][b] / math.sqrt(data.ratio[a] * data.ratio[b]) for b in range(n)] for a in range(n)
            ]
        self.u, self.z, self.global_u = [], [], 0.0
        for row in w:
            a = b = c = 0.0
            for weight, o, e in zip(row, data.obs, data.exp):
                a += (o - e) * weight
                b += weight * weight * e
                c += (e * weight) / total
            self.u.append(a)
            self.z.append(a / math.sqrt(b - c))
            self.global_u += a * a
        self.moments(gram, data.ratio, total)
        scaled = self.global_u / total if adjusted else self.global_u / (total * total)
        self.score_z = (scaled - self.mean) / math.sqrt(self.var)
        self.chi = self.score_z * math.sqrt(self.df + self.df) + self.df
        self.chi_p = chi_square_p_value(self.chi, self.df)
        self.normal_p = normal_p_value(self.score_z)
        self.chi_critical = chi_critical(alpha, self.df)

    def moments(self, gram, ratio, total):
        n = len(ratio)
        v = [[(ratio[i] if i == j else 0.0) - ratio[i] * ratio[j] for j in range(n)] for i in range(n)]
        v_columns = transposed(v)
        a = [[dot(column, row) for column in v_columns] for row in gram]
        a_columns = transposed(a)
        b = [[dot(column, row) for column in a_columns] for row in a]
        t1 = t2 = t3 = 0.0
        for i in range(n):
            t1 += a[i][i]
            t2 += b[i][i]
            t3 += dot(a_columns[i], b[i])  # the diagonal of b times a
        root = t2**1.5 / t3
        self.df = root * root
        self.mean = t1 / total
        self.var = (t2 + t2) / (total * total)


def deviation(variable, o, e):
    if variable == "adjusted":
        return (o - e) / math.sqrt(e)
    if variable == "freeman-tukey":
        return math.sqrt(o) + math.sqrt(o + 1) - math.sqrt(e * 4 + 1)
    a, b = math.sqrt(o * e), math.sqrt(e)
    return ((o - e * 3) + (a + a)) / (b + b)


def m_critical(sigma, alpha, n, warn):
    x = ((sigma * sigma * 0.81 + 1) * (alpha * 4)) / n
    if x <= 0:
        warn("Error!")
        return 0.0
    y = (-math.sqrt(PI_SHORT)) * math.log(x)
    if y <= 0:
        warn("Error!")
        return 0.0
    return float(num(math.sqrt(y), "###0.0000"))


# ---------------------------------------------------------------- legend of the map


def legend(values, m_star):
    """Limits 1 to 6, texts and the class of each value. m_star is None for the score rule."""
    ordered = sorted(values)
    if m_star is not None:
        limits = [-m_star, -0.5 * m_star, 0.0, 0.5 * m_star, m_star, 0.0]
    else:
        below = [0.0] + [v for v in ordered if v < 0]
        above = [0.0] + [v for v in ordered if v >= 0]
        n, p = len(below) - 1, len(above) - 1
        limits = [
            below[math.floor(n / 3)],
            below[math.floor(2 * n / 3)],
            0.0,
            above[math.floor(p / 3)],
            above[math.floor(2 * p / 3)],
            0.0,
        ]
    texts = []
    if m_star is None:
        texts.append(num(ordered[0], " 0.0000") + "   -  " + num(limits[0], " 0.0000"))
        for lower, upper in zip(limits[0:4], limits[1:5]):
            first = num(lower, " 0.0000" if lower < 0 else "  0.0000")
            between = "   -  " if lower < 0 and upper < 0 else "   -   "
            texts.append(first + between + num(upper, " 0.0000"))
        texts.append(num(limits[4], "  0.0000") + "   -   " + num(ordered[-1], " 0.0000"))
    return limits, texts, [class_of(v, limits) for v in values]


def class_of(v, limits):
    if v < limits[0]:
        return 1
    for k in range(1, 5):
        if limits[k - 1] <= v < limits[k]:
            return k + 1
    return 6 if v >= limits[4] else 0


# ---------------------------------------------------------------- a whole run


class Run:
    """A test as asked for: one bandwidth in .single, or the steps of a range in .steps."""

    def __init__(self, data, plot, ask, warn=lambda text: None):
        self.data, self.plot, self.variable, self.alpha = data, plot, ask["variable"], ask["alpha"]
        self.score = self.variable in ("unadjusted", "adjusted")
        self.single, self.steps = None, []
        if ask.get("sigma") is not None:
            sigma = single_bandwidth(ask["sigma"])
            self.single = Bandwidth(data, plot, sigma, self.variable, self.alpha, False, warn)
        else:
            self.sweep(ask["from"], ask["to"], ask["step"], warn)

    def sweep(self, from_text, to_text, step_text, warn):
        if not (is_numeric(from_text) and is_numeric(to_text) and is_numeric(step_text)):
            raise Refused("A range of bandwidth parameters should be numeric.")
        first, last, step = number(from_text), number(to_text), number(step_text)
        if first < 0 or last <= 0 or first >= last or step <= 0:
            raise Refused("Ivalid range of bandwidth was input. Check the parameters!")
        count = round(abs(first - last) / step + 1)
        if count > 32767:
            raise RunTimeStop(6)
        self.first, self.step = first, step
        sigma = first if first != 0 else 0.00000001
        for _ in range(count):
            result = Bandwidth(self.data, self.plot, sigma, self.variable, self.alpha, True, warn)
            sigma = min(sigma, last)  # after the work: the last step may overshoot, and is shown cut
            result.shown_sigma = sigma
            self.steps.append(result)
            sigma = sigma + step

    # the rows of the two lists

    def global_rows(self):
        return self.single_rows() if self.single else self.sweep_rows()

    def single_rows(self):
        s = self.single
        if not self.score:
            return ["", "Maximum M-statistic = " + num(s.max_m, "0.000"), ""] + [
                "M Critical (M*) = " + num(s.m_critical, "0.000"),
                "",
            ]
        head = "U statistic (adjusted) = " if self.variable == "adjusted" else "U-statistic (unadjusted) = "
        rows = ["", head + num(s.global_u, "0.000"), ""]
        rows.append("A chi-squared approximation = " + num(s.chi, "0.000"))
        rows.append("Degree of Freedom = " + num(s.df, "0.000"))
        rows.append("Critical Value = " + num(s.chi_critical, "0.000"))
        small = "   ---> p-value < 0.001"
        rows.append(small if s.chi_p < 0.001 else "   ---> p-value = " + num(s.chi_p, "0.0000"))
        rows += ["", "A normal approximation = " + num(s.score_z, "0.000")]
        if s.normal_p >= 0.001:
            rows.append("   ---> p-value = " + num(s.normal_p, "0.0000"))
        elif s.chi_p < 0.001:
            rows.append(small)
        if self.variable == "adjusted":
            rows += ["", "Maximum M statistic = " + num(s.max_m, "0.000"), ""]
            rows += ["M Critical (M*) = " + num(s.m_critical, "0.000"), ""]
        return rows

    def sweep_rows(self):
        if self.variable == "unadjusted":
            heading = pad("Sigma", 6) + pad("U", 9) + pad("Chi", 8) + pad("DF   ", 11) + pad("P-Val", 7)
        elif self.variable == "adjusted":
            heading = pad("Sigma", 5) + pad("U", 7) + pad("Chi ", 8) + pad("DF  ", 7)
            heading += pad("M(M*)", 8) + pad("P-Val", 8)
        else:
            heading = pad("Sigma", 6) + pad("M  ", 8) + pad("M* ", 5)
        return [heading, "-" * 50] + [self.sweep_row(s) for s in self.steps] + ["-" * 50]

    def sweep_row(self, s):
        if not self.score:
            return (
                pad(num(s.shown_sigma, "0.00"), 6)
                + pad(num(s.max_m, "0.00"), 6)
                + pad(num(s.m_critical, "0.00"), 6)
            )
        if self.variable == "unadjusted":
            row = pad(num(s.shown_sigma, "0.00"), 6) + pad(num(s.global_u, "0.0"), 9)
            row += pad(num(s.chi, "0.0"), 8) + pad(num(s.df, "0.00"), 8)
            return row + (pad(" <0.001", 10) if s.chi_p < 0.001 else pad(num(s.chi_p, "0.0000"), 9))
        row = pad(num(s.shown_sigma, "0.00"), 5) + pad(num(s.global_u, "0.0"), 7)
        row += pad(num(s.chi, "0.0"), 7) + pad(num(s.df, "0.0"), 6)
        row += pad(num(s.max_m, "0.0"), 5) + "(" + pad(num(s.m_critical, "0.0"), 3) + ")"
        return row + (pad(" <0.001", 8) if s.chi_p < 0.001 else pad(num(s.chi_p, "0.0000"), 8))

    def local_rows(self):
        if not self.single:
            return []
        dashes = "-" * 82
        if self.score:
            heading = pad("ID", 13) + pad("U(i) ", 11) + pad("Z[U(i)]", 9)
            heading += pad("Observed", 11) + pad("Expected", 11)
        else:
            heading = pad("ID", 13) + pad("M(i) ", 11) + pad("Observed", 10) + pad("Expected", 11)
        rows = [dashes, heading, dashes]
        for i in range(self.data.n):
            row = pad(self.data.ids[i], 13)
            if self.score:
                row += pad(num(self.single.u[i], "###0.000"), 10) + pad(num(self.single.z[i], "0.000"), 10)
            else:
                row += pad(num(self.single.m[i], "###0.000"), 10)
            row += pad(num(self.data.obs[i], "0.000"), 11) + pad(num(self.data.exp[i], "0.000"), 11)
            rows.append(row)
        return rows + [dashes]

    def lists(self):
        return "".join(row + "\n" for row in self.global_rows() + [""] + self.local_rows())

    # the file of the save button

    def report(self):
        return "".join(row + "\n" for row in (self.single_report() if self.single else self.range_report()))

    def single_report(self):
        s, d58 = self.single, "-" * 58
        if self.score:
            if self.variable == "adjusted":
                title = "Summary of Global Score and Maximum M Statistic                         "
                local = "Summary of Local Score and M Statistic                         "
            else:
                title = "Summary of Global Score Statistic                         "
                local = "Summary of Local Score Statistic                         "
            rows = [title, d58, "U-statistic (%s) = " % self.variable + num(s.global_u, "0.000")]
            rows.append("A chi-squared approximation = " + num(s.chi, "0.000"))
            rows.append("Degree of Freedom = " + num(s.df, "0.000"))
            rows.append("   ---> p-value: " + num(s.chi_p, "0.0000"))
            rows.append("A normal approximation = " + num(s.score_z, "0.000"))
            rows.append("   ---> p-value: " + num(s.normal_p, "0.0000"))
            heading = pad("ID", 15) + pad("U(i)", 10) + pad("Z[U(i)]", 10)
        else:
            rows = [
                "Summary of Maximum M Statistic (Rossi)                    "
                if self.variable == "rossi"
                else "Summary of Maximum M Statistic (Standard)                 "
            ]
            rows += [d58, "Maximum M-statistic = " + num(s.max_m, "0.000")]
            rows.append("M Critical (M*) = " + num(s.m_critical, "0.000"))
            local = "Summary of Local M Statistic                         "
            heading = pad("ID", 15) + pad("M(i)", 10)
        heading += pad("Observed", 10) + pad("Expected", 10)
        rows += [d58, "", local, d58, heading, d58]
        for i in range(self.data.n):
            row = pad(self.data.ids[i], 15)
            if self.score:
                row += pad(num(s.u[i], "###0.00"), 10) + pad(num(s.z[i], "0.00"), 10)
            else:
                row += pad(num(s.m[i], "###0.00"), 10)
            rows.append(row + pad(num(self.data.obs[i], "0.00"), 10) + pad(num(self.data.exp[i], "0.00"), 10))
        return rows + [d58]

    def range_report(self):
        kind = {
            "unadjusted": "Score statistic - unadjusted",
            "adjusted": "Score statistic - adjusted",
            "freeman-tukey": "M statistic - standard",
            "rossi": "M statistic - Rossi",
        }[self.variable]
        dashes = "-" * (78 if self.variable == "adjusted" else 58)
        if self.variable == "unadjusted":
            heading = pad("Sigma", 6) + pad("U-Stats", 12) + pad("Chi", 12) + pad("DF", 8)
            heading += pad("p-value    ", 16)
        elif self.variable == "adjusted":
            heading = pad("Sigma", 6) + pad("U-Stats", 12) + pad("Chi ", 12) + pad("DF  ", 8)
            heading += pad("M  ", 6) + pad("M* ", 6) + pad("p-value    ", 16)
        else:
            heading = pad("Sigma", 6) + pad("M  ", 6) + pad("M* ", 6)
        rows = ["A summary for a range of bandwidths (%s)" % kind, "", heading, dashes]
        for s in self.steps:
            row = pad(num(s.shown_sigma, "0.000"), 6)
            if self.score:
                row += pad(num(s.global_u, "0.00"), 12) + pad(num(s.chi, "0.00"), 12)
                row += pad(num(s.df, "0.00"), 8)
            if self.variable != "unadjusted":
                row += pad(num(s.max_m, "0.00"), 6) + pad(num(s.m_critical, "0.00"), 6)
            if self.score:
                row += pad(num(s.chi_p, "0.000000000000"), 16)
            rows.append(row)
        return rows + [dashes]

    # every number

    def json(self):
        d, last = self.data, self.single or self.steps[-1]
        values = {
            "NumRegion": d.n,
            "RegionID": d.ids,
            "TotalShapeArea": last.area,
            "RegionCentroid": [[x, y] for x, y in zip(d.x, d.y)],
            "ObsCount": d.obs,
            "ExpCount": d.exp,
            "ExpRatio": d.ratio,
            "TotalObs": d.total_obs,
            "TotalPop": 0,
            "AlphaLevel": self.alpha,
            "PlottedPoints": [list(p) for p in self.plot.points],
            "ScaleX": self.plot.scale_x,
            "ScaleY": self.plot.scale_y,
        }
        values.update(self.json_of_one() if self.single else self.json_of_range())
        return values

    def json_of_one(self):
        s, values = self.single, {"CurrentSigma": self.single.sigma}
        if self.score:
            suffix = "Adjusted" if self.variable == "adjusted" else ""
            values["LocalU" + suffix] = s.u
            values["LocalZ" + suffix] = s.z
            values["GlobalU" + suffix] = s.global_u
            values.update(ScoreMean=s.mean, ScoreVar=s.var, ScoreDF=s.df, ScoreZ=s.score_z, ScoreChi=s.chi)
            values.update(ChiPValue=s.chi_p, NormalPValue=s.normal_p, ChiCritical=s.chi_critical)
        if self.variable != "unadjusted":
            transform = {"adjusted": "DevPearson", "freeman-tukey": "DevFreemanTukey", "rossi": "DevRossi"}
            values.update(LocalM=s.m, MaxLocalM=s.max_m, MCritical=s.m_critical)
            values[transform[self.variable]] = s.dev
        limits, texts, classes = legend(s.u, None) if self.score else legend(s.m, s.m_critical)
        values.update(LegendLimits=limits, LegendTexts=texts, ClassOf=classes)
        return values

    def json_of_range(self):
        def each(name, used=True):
            return [getattr(s, name) if used else 0.0 for s in self.steps]

        with_m = self.variable != "unadjusted"
        chart = [[s.chi, s.chi_critical] if self.score else [s.max_m, s.m_critical] for s in self.steps]
        labels, x = [], self.first
        for _ in self.steps:
            labels.append(num(x, "0.00"))
            x = x + self.step
        return {
            "BandwidthList": each("shown_sigma"),
            "SweepStat": each("global_u" if self.score else "max_m"),
            "SweepChi": each("chi", self.score),
            "SweepChiCritical": each("chi_critical", self.score),
            "SweepDF": each("df", self.score),
            "SweepPValue": each("chi_p", self.score),
            "SweepMaxM": each("max_m", self.variable == "adjusted"),
            "SweepMCritical": each("m_critical", with_m),
            "StatisticTable": each("u" if self.score else "m"),
            "ChartData": chart,
            "ChartLabels": labels,
        }


def single_bandwidth(text):
    if not is_numeric(text):
        raise Refused("Bandwidth should be numerical.")
    value = number(text)
    if value < 0:
        raise Refused("Bandwidth should not be negative.")
    return value if value > 0 else 0.00000001


SURFACE = (5595, 4275, 369, 281)
ZOOM = 1.2


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("file")
    parser.add_argument("--format", choices=("obs-exp", "pop-case"), required=True)
    parser.add_argument("--variable", choices=VARIABLES, default="unadjusted")
    parser.add_argument("--sigma")
    parser.add_argument("--from", default="0.2")
    parser.add_argument("--to", default="2.0")
    parser.add_argument("--step", default="0.2")
    parser.add_argument("--alpha", type=float, choices=(0.05, 0.01), default=0.05)
    parser.add_argument("--surface", type=lambda t: [float(s) for s in t.split(",")], default=SURFACE)
    parser.add_argument("--zoom", type=float, default=ZOOM)
    parser.add_argument("--what", choices=("lists", "report", "json"), default="lists")
    ask = vars(parser.parse_args())
    try:
        data = Dataset(ask["file"], ask["format"] == "pop-case")
        plot = Plot(data, ask["surface"], ask["zoom"])
        run = Run(data, plot, ask, warn=lambda text: print(text, file=sys.stderr))
    except Refused as refused:
        print(refused, file=sys.stderr)
        return 3
    except (RunTimeStop, ArithmeticError, ValueError) as fault:
        print(fault, file=sys.stderr)
        return 4
    if ask["what"] == "json":
        json.dump(run.json(), sys.stdout)
        print()
    else:
        sys.stdout.write(run.lists() if ask["what"] == "lists" else run.report())
    return 0


if __name__ == "__main__":
    sys.exit(main())
