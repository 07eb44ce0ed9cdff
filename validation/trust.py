#!/usr/bin/env python3
"""Makes docs/trust.md, and its pictures, of the raw counts in validation/results.

    trust.py [PROGRAMS]             writes the page, and with the folder of the built programs the pictures
    trust.py --check                fails where the page is not the one of the counts
"""
import subprocess
import sys
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent))
import cluster_map
import summary
from counts import Counts, mean, rounded, share, share_of, table

ROOT = Path(__file__).resolve().parent.parent
PAGE = ROOT / "docs" / "trust.md"
PICTURES = ROOT / "docs" / "pictures"
COUNTS = Counts(ROOT / "validation" / "results")
SECOND = Counts(ROOT / "validation" / "check")

MAPS = {"country": "the sample, 207 regions", "country-points": "the sample as points",
        "grid-100": "grid of 100", "grid-400": "grid of 400", "grid-1600": "grid of 1,600",
        "unequal-400": "400 regions, very unequal"}
AVERAGES = ("1", "5", "20", "100")
SIGMAS = ("0", "0.2", "0.4", "0.6", "0.8", "1", "1.2", "1.4", "1.6", "1.8", "2", "3")
M_KINDS = {"M Pearson": "Adjusted - Poisson", "M Freeman-Tukey": "Freeman-Tukey", "M Rossi": "Rossi"}
OPTIONS = {"overall": "Overall Region", "bonferroni": "Bonferroni", "spatial": "Spatial"}


def alarm(map_name, average, sigma, statistic, rule, model="multinomial"):
    return COUNTS.row("false-alarms.csv", map=map_name, expected=average, sigma=sigma, statistic=statistic, rule=rule,
                      model=model)


def replications(rows):
    """For how many datasets the rows stand."""
    numbers = sorted({int(row["replications"]) for row in rows if row})
    return " or ".join(f"{number:,}" for number in numbers) or "no"


# ---- Tables: each a head and rows of cells, from the counts alone

def m_by_map(sigma="1", model="multinomial", alpha="0.05"):
    rule = f"above M* {alpha}"
    return table(["Map", "Expected", *M_KINDS.values()],
                 [[MAPS[name], average, *(share(alarm(name, average, sigma, kind, rule, model)) for kind in M_KINDS)]
                  for name in MAPS for average in AVERAGES])


def m_by_sigma(average):
    return table(["sigma", *M_KINDS.values()],
                 [[sigma, *(share(alarm("country", average, sigma, kind, "above M* 0.05")) for kind in M_KINDS)]
                  for sigma in SIGMAS])


U_RULES = {"chi-squared z above 0 and p below 0.05": "chi-squared p", "normal z above 0 and p below 0.05": "normal p",
           "chi above chi* 0.05": "*Critical Value*"}


def u_by_map(statistic, model="multinomial"):
    return table(["Map", "Expected", *U_RULES.values()],
                 [[MAPS[name], average, *(share(alarm(name, average, "1", statistic, rule, model)) for rule in U_RULES)]
                  for name in MAPS for average in AVERAGES if alarm(name, average, "1", statistic, rule_of_u(), model)
                  or model == "multinomial"])


def rule_of_u():
    return next(iter(U_RULES))


def stopped(row):
    return "not yet" if row is None else f"{100 * int(row['stopped']) / int(row['replications']):.1f}"


def u_by_sigma(average):
    def cells(statistic, sigma):
        return [*(share(alarm("country", average, sigma, statistic, rule)) for rule in U_RULES),
                stopped(alarm("country", average, sigma, statistic, "chi-squared p below 0.05"))]
    return table(["Variable", "sigma", *U_RULES.values(), "stops"],
                 [[statistic[2:].capitalize(), sigma, *cells(statistic, sigma)]
                  for statistic in ("U unadjusted", "U adjusted") for sigma in SIGMAS])


def quantiles():
    limits = ("0.001", "0.005", "0.01", "0.02", "0.05", "0.1", "0.2", "0.3", "0.4")
    ways = [(statistic, way) for statistic in ("U unadjusted", "U adjusted") for way in ("chi-squared", "normal")]
    return table(["p below", "there should be", *(f"{statistic[2:]}, {way}" for statistic, way in ways)],
                 [[limit, f"{200 * float(limit):g}",
                   *(share(alarm("country", "20", "1", statistic, f"{way} p below {limit}")) for statistic, way in ways)]
                  for limit in limits])


def sweep_alarms():
    rules = [(kind, "above M* 0.05") for kind in M_KINDS] + [("U adjusted", rule_of_u()), ("U unadjusted", rule_of_u())]
    return table(["Map", "Expected", *(f"M {name}" for name in M_KINDS.values()), "U adjusted", "U unadjusted"],
                 [[MAPS[name], average, *(share(alarm(name, average, "range", *rule)) for rule in rules)]
                  for name in MAPS for average in AVERAGES])


def critical(name, average, statistic, alpha):
    row = COUNTS.row("critical-values.csv", map=name, expected=average, sigma="range", statistic=statistic, alpha=alpha,
                     model="multinomial")
    if row is None:
        return "not yet"
    digits = 2 if statistic[0] == "M" else 4
    return " ".join([f"{float(row['value']):.{digits}f}",
                     f"({float(row['lower']):.{digits}f} to {float(row['upper']):.{digits}f})"])


def sweep_values(alpha):
    return table(["Map", "Expected", *(f"M {name}" for name in M_KINDS.values()), "p of U adjusted", "p of U unadjusted"],
                 [[MAPS[name], average, *(critical(name, average, statistic, alpha)
                                          for statistic in (*M_KINDS, "U adjusted", "U unadjusted"))]
                  for name in MAPS for average in AVERAGES])


def found(name, average, risk, share_of_people, statistic, rule, sigma):
    return COUNTS.row("clusters.csv", map=name, expected=average, risk=risk, share=share_of_people, sigma=sigma,
                      statistic=statistic, rule=rule)


def best(name, average, risk, part, statistic, rule):
    rows = [row for row in COUNTS.rows("clusters.csv", map=name, expected=average, risk=risk, share=part,
                                       statistic=statistic, rule=rule) if row["sigma"] != "range"]
    return max(rows, key=share_of, default=None)


def cluster_table(name, statistic, rule):
    rows = []
    for average in AVERAGES:
        for risk in ("1.5", "2"):
            for part in ("0.01", "0.05", "0.2"):
                at_best = best(name, average, risk, part, statistic, rule)
                cell = share(at_best) + (f" at {at_best['sigma']}" if at_best else "")
                rows.append([average, risk, f"{100 * float(part):g} %", cell,
                             *(share(found(name, average, risk, part, statistic, which, sigma))
                               for which, sigma in ((rule, "1"), (rule, "range"), ("above simulated 0.05", "range")))])
    return table(["Expected", "Risk", "People", "best sigma", "sigma 1", "sweep, program's limit",
                  "sweep, simulated limit"], rows)


def one_region():
    return table(["k", "wanted", "h of the calculator", "run length", "the same, FIR", "h for just that"],
                 [[row["k"], f"{int(row['arl0']):,}", row["h"], rounded(float(row["run_length"])),
                   rounded(float(row["run_length_fir"])), row["h_exact"]] for row in COUNTS.rows("one-region.csv")])


WATCHED = {"grid-25": "25", "grid-100": "100", "country": "207", "grid-1024": "1,024"}


def map_run_lengths(arl0, start):
    rows = []
    for name, regions in WATCHED.items():
        for sigma in ("0", "0.5", "1", "2"):
            of = [COUNTS.row("run-lengths.csv", map=name, arl0=arl0, sigma=sigma, start=start, option=option)
                  for option in OPTIONS]
            rows.append([regions, sigma, *map(mean, of), replications(of)])
    return table(["Regions", "sigma", *OPTIONS.values(), "runs"], rows)


def delays():
    rows = []
    for part, where in (("0", "one region"), ("0.05", "a disc")):
        for shift in ("0.5", "1", "2"):
            for sigma, options in (("0", ("bonferroni",)), ("1", ("bonferroni", "spatial"))):
                of = [COUNTS.row("delays.csv", map="country", share=part, shift=shift, sigma=sigma, option=option)
                      for option in options]
                rows.append([where, shift, sigma, *map(mean, of), *[""] * (2 - len(of)), replications(of)])
    return table(["Raised", "by", "sigma", "Bonferroni", "Spatial", "runs"], rows)


TRANSFORMS = {"poisson": "Poisson", "standard": "Standard", "rossi": "Rossi"}


def counts_of_one():
    return table(["Expected", *TRANSFORMS.values()],
                 [[average, *(mean(COUNTS.row("count-run-lengths.csv", map="one-region", expected=average,
                                              transform=transform)) for transform in TRANSFORMS)]
                  for average in ("1", "2", "5", "10", "20", "50", "100")])


def counts_of_map():
    return table(["sigma", "Expected", *TRANSFORMS.values()],
                 [[sigma, average, *(mean(COUNTS.row("count-run-lengths.csv", map="country", expected=average, sigma=sigma,
                                                     option="bonferroni" if sigma == "0" else "spatial",
                                                     transform=transform)) for transform in TRANSFORMS)]
                  for sigma in ("0", "1") for average in AVERAGES])


def told(row):
    """A share, a mean or a value, with its interval where it has one."""
    if row is None:
        return "not yet"
    if row.get("hits"):
        return share(row)
    if row.get("periods"):
        return mean({"unfinished": "0", **row})
    value = rounded(float(row.get("value") or row["run_length"]))
    between = f" ({rounded(float(row['lower']))} to {rounded(float(row['upper']))})" if row.get("lower") else ""
    return value + between


def second_pair_of_eyes():
    rows = []
    for other in SECOND.rows("second.csv"):
        ours = COUNTS.row(other["file"], **dict(pair.split("=") for pair in other["key"].split(";")))
        rows.append([other["what"], told(ours), told(other)])
    return table(["What", "by the study", "by the other program"], rows)


def fewer_than_ten_thousand():
    """How many cells of each kind have how many replications, and of which maps those with fewer are."""
    rows = []
    for kind, name in KINDS.items():
        done, few = 0, {}
        for row in COUNTS.rows("cells.csv"):
            if not row["cell"].startswith(kind + " "):
                continue
            done += 1
            if int(row["replications"]) < 10_000:
                few.setdefault(int(row["replications"]), []).append(row["cell"][len(kind) + 1:].split()[0])
        told_few = [f"{len(maps)} with {number:,} ({', '.join(sorted(set(maps)))})" for number, maps in sorted(few.items())]
        rows.append([name, done, "; ".join(told_few) or "none"])
    rows.append(["Adjusted and unadjusted U, Poisson counts", *poisson_scores()])
    return table(["Table", "cells done", "those with fewer"], rows)


def poisson_scores():
    rows = COUNTS.rows("false-alarms.csv", model="poisson", statistic="U adjusted", sigma="1", rule=rule_of_u())
    return len(rows), f"all: {replications(rows)}" if rows else "none"


KINDS = {"false alarms": "Without a cluster", "clusters": "With a cluster", "run length": "Run lengths",
         "delay": "Delays", "counts": "Counts that are not normal"}


# ---- Pictures

def percent_points(row):
    return 100 * share_of(row)


def pictures():
    """{file: (title of the axis, two names, rows of a label and two values)}; only those whose counts are there."""
    charts = {}
    rows = [[alarm("country", "20", sigma, kind, "above M* 0.05") for kind in ("M Pearson", "M Freeman-Tukey")]
            for sigma in SIGMAS]
    if all(all(row) for row in rows):
        charts["trust-sigma.png"] = ("False alarms of M in 100 datasets, by sigma", "Adjusted - Poisson", "Freeman-Tukey",
                                     [(sigma, *map(percent_points, row)) for sigma, row in zip(SIGMAS, rows)])
    limits = ("0.001", "0.005", "0.01", "0.02", "0.05", "0.1", "0.2", "0.3", "0.4")
    rows = [alarm("country", "20", "1", "U adjusted", f"chi-squared p below {limit}") for limit in limits]
    if all(rows):
        charts["trust-p-values.png"] = ("Datasets in 100 whose p-value is below", "found", "expected",
                                        [(limit, percent_points(row), 200 * float(limit))
                                         for limit, row in zip(limits, rows)])
    rows = [[COUNTS.row("run-lengths.csv", map="country", arl0="100", sigma=sigma, start="zero", option=option)
             for option in ("bonferroni", "spatial")] for sigma in ("0", "0.5", "1", "2")]
    if all(all(row) for row in rows):
        charts["trust-run-length.png"] = ("Run length where 100 periods are wanted, by sigma", "Bonferroni", "Spatial",
                                          [(sigma, *(float(one["periods"]) / int(one["replications"]) for one in row))
                                           for sigma, row in zip(("0", "0.5", "1", "2"), rows)])
    return charts


def draw_charts(programs):
    for file, (title, first, second, rows) in pictures().items():
        lines = ["\t".join((title, first, second)), *("\t".join(map(str, row)) for row in rows)]
        subprocess.run([programs / "vastrel-validation-pictures", PICTURES / file], input="\n".join(lines) + "\n", text=True,
                       check=True)


# ---- The page

def page():
    text = (Path(__file__).resolve().parent / "trust.template.md").read_text()
    for name, function in FILLS.items():
        text = text.replace("{{" + name + "}}", function())
    if "{{" in text:
        raise ValueError("The template names what nothing fills: " + text[text.index("{{"):][:60])
    return text


FILLS = {
    "summary": lambda: summary.lines(COUNTS),
    "m by map": m_by_map,
    "m by map 0.01": lambda: m_by_map(alpha="0.01"),
    "m by map poisson": lambda: m_by_map(model="poisson"),
    "m by sigma 5": lambda: m_by_sigma("5"),
    "m by sigma 100": lambda: m_by_sigma("100"),
    "adjusted by map": lambda: u_by_map("U adjusted"),
    "unadjusted by map": lambda: u_by_map("U unadjusted"),
    "adjusted by map poisson": lambda: u_by_map("U adjusted", "poisson"),
    "u by sigma": lambda: u_by_sigma("5"),
    "quantiles": quantiles,
    "sweep alarms": sweep_alarms,
    "sweep values 0.05": lambda: sweep_values("0.05"),
    "sweep values 0.01": lambda: sweep_values("0.01"),
    "clusters freeman-tukey": lambda: cluster_table("country", "M Freeman-Tukey", "above M* 0.05"),
    "clusters rossi": lambda: cluster_table("country", "M Rossi", "above M* 0.05"),
    "clusters adjusted": lambda: cluster_table("country", "U adjusted", rule_of_u()),
    "one region": one_region,
    "run lengths 100": lambda: map_run_lengths("100", "zero"),
    "run lengths 500": lambda: map_run_lengths("500", "zero"),
    "run lengths 100 fir": lambda: map_run_lengths("100", "FIR"),
    "delays": delays,
    "counts of one": counts_of_one,
    "counts of a map": counts_of_map,
    "second": second_pair_of_eyes,
    "fewer": fewer_than_ten_thousand,
}


def main(arguments):
    if arguments == ["--check"]:
        if PAGE.read_text() != page():
            sys.exit("docs/trust.md is not the page of the counts: run validation/trust.py.")
        return
    PAGE.write_text(page())
    if arguments:
        programs = Path(arguments[0])
        draw_charts(programs)
        cluster_map.draw(programs, PICTURES / "trust-cluster.png")


if __name__ == "__main__":
    main(sys.argv[1:])
