#!/usr/bin/env python3
"""Holds vastrel-batch's retrospective test on points against retrospective.py.

    compare_retrospective.py PROGRAM SAMPLES [--whole] [DATASET:FORMAT ...]

Lists and reports are compared text for text, the JSON number for number: equal, or within 1e-12
relative (the exponentials and powers here are those of the C library, the program's own are rounded to
the nearest double). Without
--whole only a few quick runs are made.
"""

import json
import os
import subprocess
import sys
import tempfile

sys.dont_write_bytecode = True

import retrospective as reference

TOLERANCE = 1e-12
HEAD = ["Program", "Settings", "Inputs"]  # of every run; what it holds is tested elsewhere
DEFAULT_RANGE = ("0.2", "2.0", "0.2")


def bandwidths(whole, form):
    if not whole:
        return ["0", "1"] if form == "obs-exp" else [("0.5", "1", "0.6")]
    odd = [("0", "1", "0.3"), ("0", "1", "0.4"), ("0.5", "30", "10")]
    return ["0", "0.5", "1", "2", DEFAULT_RANGE] + odd


def options(bandwidth):
    if isinstance(bandwidth, str):
        return ["--sigma", bandwidth]
    if bandwidth == DEFAULT_RANGE:
        return []
    return [word for pair in zip(("--from", "--to", "--step"), bandwidth) for word in pair]


def ask_of(variable, bandwidth, alpha):
    ask = {"variable": variable, "alpha": float(alpha)}
    if isinstance(bandwidth, str):
        ask["sigma"] = bandwidth
    else:
        ask["from"], ask["to"], ask["step"] = bandwidth
    return ask


class Difference:
    """The largest relative difference seen, and the places where it is too large."""

    def __init__(self):
        self.largest = 0.0
        self.values = self.equal = 0
        self.wrong = []

    def compare(self, place, ours, theirs):
        if isinstance(ours, dict) and isinstance(theirs, dict):
            for key in sorted(set(ours) ^ set(theirs)):
                self.wrong.append("%s.%s: only in %s" % (place, key, "reference" if key in ours else "program"))
            for key in ours:
                if key in theirs:
                    self.compare(place + "." + key, ours[key], theirs[key])
        elif isinstance(ours, list) and isinstance(theirs, list):
            if len(ours) != len(theirs):
                self.wrong.append("%s: %d elements, program %d" % (place, len(ours), len(theirs)))
            for i, (a, b) in enumerate(zip(ours, theirs)):
                self.compare("%s[%d]" % (place, i), a, b)
        elif isinstance(ours, str) or isinstance(theirs, str):
            if ours != theirs:
                self.wrong.append("%s: %r, program %r" % (place, ours, theirs))
        else:
            self.number(place, ours, theirs)

    def compare_json(self, ours, text):
        theirs = json.loads(text)
        if list(theirs)[: len(HEAD)] != HEAD:
            self.wrong.append("json begins with " + ", ".join(list(theirs)[: len(HEAD)]))
        self.compare("json", ours, {key: value for key, value in theirs.items() if key not in HEAD})

    def number(self, place, a, b):
        self.values += 1
        if a == b:
            self.equal += 1
            return
        relative = abs(a - b) / max(abs(a), abs(b))
        self.largest = max(self.largest, relative)
        if not relative <= TOLERANCE:
            self.wrong.append("%s: %r, program %r" % (place, a, b))


def run_program(program, path, form, variable, bandwidth, alpha, folder):
    files = {kind: os.path.join(folder, kind) for kind in ("lists", "report", "json")}
    command = [program, "retrospective-points", path, "--format", form, "--variable", variable]
    command += options(bandwidth) + ["--alpha", alpha]
    for kind, name in files.items():
        if os.path.exists(name):
            os.remove(name)
        command += ["--" + kind, name]
    done = subprocess.run(command, capture_output=True, text=True)
    texts = {}
    for kind, name in files.items():
        if os.path.exists(name):
            with open(name, encoding="utf-8", newline="") as file:
                texts[kind] = file.read().replace("\r\n", "\n")
    return done.returncode, done.stderr, texts


def reference_run(path, form, ask):
    """Exit status, messages and, when the test ends well, the run."""
    messages = []
    try:
        data = reference.Dataset(path, form == "pop-case")
        plot = reference.Plot(data, reference.SURFACE, reference.ZOOM)
        return 0, messages, reference.Run(data, plot, ask, warn=messages.append)
    except reference.Refused as refused:
        return 3, messages + [str(refused)], None
    except (reference.RunTimeStop, ArithmeticError, ValueError):
        return 4, messages, None


def compare_run(program, path, form, variable, bandwidth, alpha, folder):
    status, messages, run = reference_run(path, form, ask_of(variable, bandwidth, alpha))
    got, errors, texts = run_program(program, path, form, variable, bandwidth, alpha, folder)
    difference = Difference()
    if got != status:
        difference.wrong.append("status %d, program %d: %s" % (status, got, errors.strip()))
    elif run is None:
        if texts:
            difference.wrong.append("a run that failed left " + ", ".join(sorted(texts)))
        if status == 3 and errors.split("\n")[0] != messages[-1]:
            difference.wrong.append("message %r, program %r" % (messages[-1], errors))
    else:
        if errors.count("Error!") != len(messages):
            difference.wrong.append("%d messages, program %r" % (len(messages), errors))
        difference.compare("lists", run.lists().split("\n"), texts["lists"].split("\n"))
        difference.compare("report", run.report().split("\n"), texts["report"].split("\n"))
        difference.compare_json(run.json(), texts["json"])
    return difference


def main():
    arguments = [a for a in sys.argv[1:] if a != "--whole"]
    whole = "--whole" in sys.argv[1:]
    program, samples = arguments[0], arguments[1]
    datasets = [d.rsplit(":", 1) for d in arguments[2:]]
    if not datasets:
        datasets = [[os.path.join(samples, "country_exp.txt"), "obs-exp"]]
        datasets.append([os.path.join(samples, "country_pop.txt"), "pop-case"])
    failed, runs, values, equal, largest = 0, 0, 0, 0, 0.0
    with tempfile.TemporaryDirectory() as folder:
        for path, form in datasets:
            for variable in reference.VARIABLES:
                for bandwidth in bandwidths(whole, form):
                    for alpha in ("0.05", "0.01") if whole else ("0.05",):
                        d = compare_run(program, path, form, variable, bandwidth, alpha, folder)
                        runs, values, equal = runs + 1, values + d.values, equal + d.equal
                        largest = max(largest, d.largest)
                        if d.wrong:
                            failed += 1
                            print(os.path.basename(path), variable, bandwidth, alpha)
                            print("    " + "\n    ".join(d.wrong[:6]))
    print("%d runs, %d differ; %d of %d numbers equal, largest difference %.2g"
          % (runs, failed, equal, values, largest))
    return 1 if failed or runs == 0 or values == 0 else 0


if __name__ == "__main__":
    sys.exit(main())
