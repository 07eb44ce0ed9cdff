#!/usr/bin/env python3
"""Works out one cell of each table of docs/trust.md once more, with numpy and its generator, from the definitions
alone, and keeps the counts in second.csv. Needs python3-numpy. Takes some minutes.
"""
import csv
import math
from pathlib import Path

import numpy as np

ROOT = Path(__file__).resolve().parent.parent.parent
RANDOM = np.random.default_rng(20261123)
N_DATA = 40_000
EXPECTED = 20
ALPHA = 0.05


# ---- The map: hexagons of 20 km from side to side

def load():
    rows = list(csv.reader((ROOT / "samples" / "country_pop.txt").open()))
    at = np.array([[float(row[1]), float(row[2])] for row in rows])
    people = np.array([float(row[3]) for row in rows])
    return at, people, len(rows) * 20 * 20 * math.sqrt(3) / 2


AT, PEOPLE, AREA = load()
N = len(PEOPLE)
SHARES = PEOPLE / PEOPLE.sum()
DISTANCE2 = ((AT[:, None, :] - AT[None, :, :]) ** 2).sum(axis=2)


def weights(sigma):
    kernel = np.eye(N) if sigma == 0 else np.exp(-DISTANCE2 / (2 * sigma ** 2 * AREA / N))
    return kernel / np.sqrt((kernel ** 2).sum(axis=1, keepdims=True))


def tail(z):
    return np.array([math.erfc(abs(one) / math.sqrt(2)) / 2 for one in z])


def disc(part):
    middle = AT.mean(axis=0)
    centre = AT[((AT - middle) ** 2).sum(axis=1).argmin()]
    order = np.argsort(((AT - centre) ** 2).sum(axis=1), kind="stable")
    size = np.searchsorted(np.cumsum(PEOPLE[order]), part * PEOPLE.sum()) + 1
    return order[:size]


# ---- The retrospective test

def freeman_tukey(o, e):
    return np.sqrt(o) + np.sqrt(o + 1) - np.sqrt(4 * e + 1)


def m_critical(sigma):
    return math.sqrt(-math.sqrt(math.pi) * math.log(4 * ALPHA * (1 + 0.81 * sigma ** 2) / N))


def largest_m(observed, expected, sigma):
    return (freeman_tukey(observed, expected) @ weights(sigma).T).max(axis=1)


def score(observed, expected, sigma, adjusted):
    """z and chi-squared value of the global U, and its degrees of freedom."""
    total = expected.sum()
    w = weights(sigma)
    gram = w.T @ w
    shares = expected / total
    u = (observed - expected) @ (w / np.sqrt(expected) if adjusted else w).T
    if adjusted:
        gram = gram / np.sqrt(np.outer(shares, shares))
    a = gram @ (np.diag(shares) - np.outer(shares, shares))
    t1, t2, t3 = np.trace(a), np.trace(a @ a), np.trace(a @ a @ a)
    df = t2 ** 3 / t3 ** 2
    scaled = (u ** 2).sum(axis=1) / (total if adjusted else total ** 2)
    z = (scaled - t1 / total) / math.sqrt(2 * t2 / total ** 2)
    return z, z * math.sqrt(2 * df) + df, df


def chi_to_z(chi, df):
    return math.sqrt(4.5 * df) * (np.cbrt(chi / df) - 1 + 2 / (9 * df))


def of_data(sigma, statistic, rule, hits, what, file="false-alarms.csv", **more):
    key = {"map": "country", "model": "multinomial", "expected": str(EXPECTED), "sigma": sigma, "statistic": statistic,
           "rule": rule, **more}
    return row(what, file, key, replications=N_DATA, hits=int(hits))


def row(what, file, key, **numbers):
    return {"what": what, "file": file, "key": ";".join(f"{name}={value}" for name, value in key.items()), **numbers}


def retrospective():
    expected = EXPECTED * N * SHARES
    observed = RANDOM.multinomial(EXPECTED * N, SHARES, size=N_DATA)
    yield of_data("1", "M Freeman-Tukey", "above M* 0.05", (largest_m(observed, expected, 1) > m_critical(1)).sum(),
                  "M, Freeman-Tukey, sigma 1")
    for adjusted, name in ((True, "U adjusted"), (False, "U unadjusted")):
        z, chi, df = score(observed, expected, 1, adjusted)
        chi_z = chi_to_z(chi, df)
        yield of_data("1", name, "chi-squared z above 0 and p below 0.05", ((chi_z > 0) & (tail(chi_z) < ALPHA)).sum(),
                      f"{name}, chi-squared p, sigma 1")
        yield of_data("1", name, "normal z above 0 and p below 0.05", ((z > 0) & (tail(z) < ALPHA)).sum(),
                      f"{name}, normal p, sigma 1")
        critical = (1 - 2 / (9 * df) + 1.96 * math.sqrt(2 / (9 * df))) ** 3 * df
        yield of_data("1", name, "chi above chi* 0.05", (chi > critical).sum(), f"{name}, *Critical Value*, sigma 1")
        yield of_data("1", name, "chi-squared p below 0.1", ((chi >= 0) & (tail(chi_z) < 0.1)).sum(),
                      f"{name}, chi-squared p below 0.1 on either side")
    sigmas = [step / 10 for step in range(2, 21, 2)]
    by_sigma = np.array([largest_m(observed, expected, sigma) for sigma in sigmas])
    passed = (by_sigma > np.array([[m_critical(sigma)] for sigma in sigmas])).any(axis=0)
    yield of_data("range", "M Freeman-Tukey", "above M* 0.05", passed.sum(), "sweep, M, Freeman-Tukey")
    best = np.sort(by_sigma.max(axis=0))[::-1]
    rank, half = ALPHA * (N_DATA + 1), 1.96 * math.sqrt(N_DATA * ALPHA * (1 - ALPHA))
    limit, low, high = (float(best[int(at) - 1]) for at in (rank, rank + half + 1, rank - half))
    yield row("limit of a sweep, M, Freeman-Tukey", "critical-values.csv",
              {"map": "country", "model": "multinomial", "expected": str(EXPECTED), "sigma": "range", "alpha": "0.05",
               "statistic": "M Freeman-Tukey"}, replications=N_DATA, value=limit, lower=low, upper=high)
    raised = SHARES.copy()
    raised[disc(0.05)] *= 2
    clustered = RANDOM.multinomial(EXPECTED * N, raised / raised.sum(), size=N_DATA)
    yield of_data("1", "M Freeman-Tukey", "above M* 0.05", (largest_m(clustered, expected, 1) > m_critical(1)).sum(),
                  "cluster of risk 2 in 5 % of the people, M, Freeman-Tukey, sigma 1", "clusters.csv", risk="2",
                  share="0.05")
    poisson = RANDOM.poisson(expected, size=(N_DATA, N))
    yield of_data("1", "M Freeman-Tukey", "above M* 0.05", (largest_m(poisson, expected, 1) > m_critical(1)).sum(),
                  "M, Freeman-Tukey, sigma 1, Poisson counts", model="poisson")


# ---- The watch

def threshold(arl0, series):
    a = 2 * 0.5 ** 2 * arl0 * series
    return round((a + 2) / (a + 1) * math.log(a + 1), 2) - 1.166


def chain_run_length(h, k=0.5, states=1500):
    """The run length by a Markov chain of narrow steps. D. Brook, D. A. Evans, Biometrika 59 (1972)."""
    width = 2 * h / (2 * states - 1)
    phi = np.array([math.erfc(-x / math.sqrt(2)) / 2 for x in width * (np.arange(-states, states + 1) + 0.5) + k])
    upto = lambda steps: phi[steps + states]  # probability of a step of at most so many widths
    i = np.arange(states)
    step = i[None, :] - i[:, None]
    moves = upto(step) - upto(step - 1)
    moves[:, 0] = upto(-i)
    return float(np.linalg.solve(np.eye(states) - moves, np.ones(states))[0])


def run_lengths(draw, n, sigma, h, runs, raised=(), shift=0.0):
    """First periods with a cusum above h, of many runs at a time."""
    w = weights(sigma).T if n > 1 else None
    sums, first, alive, period = np.zeros((runs, n)), np.zeros(runs), np.arange(runs), 0
    while len(alive):
        period += 1
        z = draw((len(alive), n))
        z[:, list(raised)] += shift
        sums = np.maximum(sums + (z if w is None or sigma == 0 else z @ w) - 0.5, 0)
        signal = (sums > h).any(axis=1)
        first[alive[signal]] = period
        sums, alive = sums[~signal], alive[~signal]
    return {"replications": runs, "periods": int(first.sum()), "squares": int((first ** 2).sum())}


def watch():
    yield row("run length of one region, k 0.5, 500 wanted", "one-region.csv", {"k": "0.5", "arl0": "500"},
              value=chain_run_length(threshold(500, 1)))
    h = threshold(100, N / (1 + 0.81))
    yield row("run length of the sample, Spatial, sigma 1, 100 wanted", "run-lengths.csv",
              {"map": "country", "arl0": "100", "sigma": "1", "option": "spatial", "start": "zero"},
              **run_lengths(RANDOM.standard_normal, N, 1, h, 10_000))
    h = threshold(500, N / (1 + 0.81))
    yield row("delay, disc raised by 1, Spatial, sigma 1", "delays.csv",
              {"map": "country", "share": "0.05", "shift": "1", "sigma": "1", "option": "spatial"},
              **run_lengths(RANDOM.standard_normal, N, 1, h, 10_000, disc(0.05), 1.0))
    for e in (5,):
        yield row("run length of one region, Poisson deviations of 5 expected", "count-run-lengths.csv",
                  {"map": "one-region", "transform": "poisson", "expected": str(e)},
                  **run_lengths(lambda shape: (RANDOM.poisson(e, shape) - e) / math.sqrt(e), 1, 0,
                                threshold(500, 1), 10_000))


def main():
    columns = ["what", "file", "key", "replications", "hits", "periods", "squares", "value", "lower", "upper"]
    with (Path(__file__).resolve().parent / "second.csv").open("w", newline="") as stream:
        writer = csv.DictWriter(stream, columns, lineterminator="\n")
        writer.writeheader()
        for part in (retrospective(), watch()):
            for one in part:
                print(one, flush=True)
                writer.writerow(one)


if __name__ == "__main__":
    main()
