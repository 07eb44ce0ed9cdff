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
import sys

from bandwidth import Bandwidth
from number_text import Refused, RunTimeStop, is_numeric, num, number, pad
from points import Dataset, Plot

VARIABLES = ("unadjusted", "adjusted", "freeman-tukey", "rossi")


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
