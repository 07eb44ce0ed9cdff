"""The raw counts of the study, and how they are told: shares and means with their 95 % intervals."""
import csv
import math
from pathlib import Path

Z95 = 1.959964


class Counts:
    """The files of a folder of results; a file or a row that is not there yet gives nothing."""

    def __init__(self, folder):
        self.folder = Path(folder)
        self.files = {}

    def rows(self, file, **wanted):
        """The rows of a file in which each column has the wanted text, or one of several."""
        if file not in self.files:
            path = self.folder / file
            self.files[file] = list(csv.DictReader(path.open(newline=""))) if path.exists() else []
        return [row for row in self.files[file] if all(
            row[name] in value if isinstance(value, (list, tuple)) else row[name] == value
            for name, value in wanted.items())]

    def row(self, file, **wanted):
        rows = self.rows(file, **wanted)
        if len(rows) > 1:
            raise ValueError(f"{file} has {len(rows)} rows of {wanted}")
        return rows[0] if rows else None


def wilson(hits, n):
    """The 95 % interval of a share after E. B. Wilson, J. Amer. Statist. Assoc. 22 (1927)."""
    p, z = hits / n, Z95
    middle = (p + z * z / (2 * n)) / (1 + z * z / n)
    half = z * math.sqrt(p * (1 - p) / n + z * z / (4 * n * n)) / (1 + z * z / n)
    return max(middle - half, 0), min(middle + half, 1)


def share_of(row):
    return int(row["hits"]) / int(row["replications"])


def share(row):
    """4.6 (4.2 to 5.0), in percent."""
    if row is None:
        return "not yet"
    low, high = wilson(int(row["hits"]), int(row["replications"]))
    return f"{100 * share_of(row):.1f} ({100 * low:.1f} to {100 * high:.1f})"


def percent(row):
    return "not yet" if row is None else f"{100 * share_of(row):.1f} %"


def mean_of(row):
    n = int(row["replications"])
    mean = float(row["periods"]) / n
    return mean, Z95 * math.sqrt(max(float(row["squares"]) / n - mean * mean, 0) / n)


def rounded(value):
    """A run length to three significant digits or whole periods."""
    return f"{value:.2f}" if value < 10 else f"{value:.1f}" if value < 100 else f"{value:,.0f}"


def mean(row):
    """165 (160 to 170); "at least" where runs ended without a signal."""
    if row is None:
        return "not yet"
    value, half = mean_of(row)
    short = "at least " if int(row["unfinished"]) else ""
    return f"{short}{rounded(value)} ({rounded(value - half)} to {rounded(value + half)})"


def table(head, rows):
    lines = ["| " + " | ".join(head) + " |", "|" + " --- |" * len(head)]
    return "\n".join(lines + ["| " + " | ".join(map(str, row)) + " |" for row in rows])
