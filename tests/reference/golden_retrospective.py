#!/usr/bin/env python3
"""Writes the golden lists and reports of ../golden/five.txt, from retrospective.py and not from the program.

Run by hand when a layout changes; what it writes is read before it is kept.
"""

import os
import sys

sys.dont_write_bytecode = True

import retrospective as reference

FOLDER = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "golden")
ASKS = {"single": {"sigma": "1"}, "range": {"from": "0", "to": "1", "step": "0.4"}}


def main():
    for variable in reference.VARIABLES:
        for kind, bandwidth in ASKS.items():
            data = reference.Dataset(os.path.join(FOLDER, "five.txt"), False)
            plot = reference.Plot(data, reference.SURFACE, reference.ZOOM)
            run = reference.Run(data, plot, {"variable": variable, "alpha": 0.05, **bandwidth})
            for name, text in (("lists", run.lists()), ("report", run.report())):
                path = os.path.join(FOLDER, "five_%s_%s_%s.txt" % (variable, kind, name))
                with open(path, "w", encoding="utf-8", newline="\n") as file:
                    file.write(text)


if __name__ == "__main__":
    main()
