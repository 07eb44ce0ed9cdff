"""The map of one dataset with a cluster, for docs/trust.md: what the shares of found clusters are shares of."""
import collections
import csv
import math
import random
import subprocess
import tempfile
from pathlib import Path

SAMPLE = Path(__file__).resolve().parent.parent / "samples" / "country_pop.txt"


def disc_of_the_sample(rows, share):
    """The regions nearest to the middle one that hold this share of the people."""
    places = [(float(row[1]), float(row[2])) for row in rows]
    middle = [sum(axis) / len(rows) for axis in zip(*places)]
    centre = min(places, key=lambda at: math.dist(at, middle))
    people, disc = 0, set()
    for row, at in sorted(zip(rows, places), key=lambda pair: math.dist(pair[1], centre)):
        if people >= share * sum(int(one[3]) for one in rows):
            break
        people += int(row[3])
        disc.add(row[0])
    return disc


def draw(programs, file):
    """The map of one dataset with a disc of twice the risk and 5 % of the people, 20 cases expected on average."""
    rows = list(csv.reader(SAMPLE.open()))
    disc = disc_of_the_sample(rows, 0.05)
    risks = [int(row[3]) * (2 if row[0] in disc else 1) for row in rows]
    cases = collections.Counter(random.Random(19).choices([row[0] for row in rows], risks, k=20 * len(rows)))
    with tempfile.NamedTemporaryFile("w", suffix=".txt") as data:
        csv.writer(data, lineterminator="\n").writerows([*row[:4], cases[row[0]]] for row in rows)
        data.flush()
        subprocess.run([programs / "vastrel-batch", "--quiet", "retrospective-points", data.name, "--format", "pop-case",
                        "--variable", "freeman-tukey", "--sigma", "1", "--surface", "11190,8550,738,562", "--map", file],
                       check=True, stdout=subprocess.DEVNULL)
