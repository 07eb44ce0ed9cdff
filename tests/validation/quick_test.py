#!/usr/bin/env python3
"""Runs the quick form of the study and holds it against the results that are kept, with wide bounds.

    quick_test.py VASTREL_VALIDATION PROJECT
"""
import csv
import math
import subprocess
import sys
import tempfile
from pathlib import Path

COUNTED = ("hits", "replications", "stopped", "periods", "squares", "unfinished")
FILES = ("false-alarms.csv", "clusters.csv", "run-lengths.csv", "delays.csv", "count-run-lengths.csv",
         "one-region.csv")
STANDARD_ERRORS = 6
SLACK = 0.01  # of a share, and of a run length


def rows_of(folder, file):
    """{what identifies a row: the row} of a file of counts."""
    path = Path(folder) / file
    if not path.exists():
        return {}
    with path.open(newline="") as stream:
        rows = list(csv.DictReader(stream))
    return {tuple((name, row[name]) for name in row if name not in COUNTED and not name.startswith("run_length")
                  and name != "h_exact"): row for row in rows}


def share(row):
    """A share and its variance; two hits are added on both sides, so that none has a variance of 0."""
    n = float(row["replications"]) + 4
    p = (float(row["hits"]) + 2) / n
    return p, p * (1 - p) / n


def mean(row):
    n = float(row["replications"])
    value = float(row["periods"]) / n
    return value, max(float(row["squares"]) / n - value * value, 0) / n


def agree(quick, kept):
    if "h_exact" in quick:
        return all(math.isclose(float(quick[name]), float(kept[name]), rel_tol=1e-4)
                   for name in ("run_length", "run_length_fir", "h_exact"))
    value = share if "hits" in quick else mean
    (a, va), (b, vb) = value(quick), value(kept)
    return abs(a - b) <= STANDARD_ERRORS * math.sqrt(va + vb) + SLACK * (1 if "hits" in quick else b)


def main(program, project):
    with tempfile.TemporaryDirectory() as folder:
        subprocess.run([program, "--quick", "--results", folder, "--samples", f"{project}/samples"], check=True)
        compared, failures = 0, []
        for file in FILES:
            kept, common = rows_of(f"{project}/validation/results", file), 0
            for key, row in rows_of(folder, file).items():
                if key in kept and dict(key).get("sigma") != "range":  # the quick range has other bandwidths
                    common += 1
                    if not agree(row, kept[key]):
                        failures.append(f"{file}: {row} is far from {kept[key]}")
            print(f"{file}: {common} rows compared")
            compared += common
            if common == 0:
                failures.append(f"{file}: nothing to compare")
    print("\n".join(failures))
    sys.exit(1 if failures else 0)


if __name__ == "__main__":
    main(*sys.argv[1:3])
