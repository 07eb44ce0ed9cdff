#!/usr/bin/env python3
"""Runs the weekly watch of the samples over its 24 weeks, with failures in the middle.

    watch_test.py PROJECT VASTREL_BATCH
"""
import datetime
import os
import pathlib
import resource
import shutil
import subprocess
import sys
import tempfile
import unittest

PROJECT = BATCH = None
SIGNAL = 10
FIRST = datetime.date(2026, 11, 16)

POINTS = '[prospective-points]\nids = "places.txt"\nk = 0.5\nh = 9.3\n'
POLYGONS = '[prospective-polygons]\nFILE = "map/country.shp"\nid = "NAME"\nk = 0.5\nh = 9.3\n'


def date(week):
    """The date of a week, counted from 1."""
    return str(FIRST + datetime.timedelta(weeks=week - 1))


def columns():
    rows = [line.split(",") for line in (PROJECT / "samples/watch_z.txt").read_text().splitlines()]
    return ["".join(row[t] + "\n" for row in rows) for t in range(len(rows[0]))]


def tree(folder):
    """All that stands in a folder, hidden files included."""
    return {str(path.relative_to(folder)): path.read_bytes() for path in sorted(folder.rglob("*"))
            if path.is_file()}


def small_files():
    resource.setrlimit(resource.RLIMIT_FSIZE, (4096, 4096))


class Watch:
    def __init__(self, settings, parent):
        self.folder = pathlib.Path(parent)
        for name in ("incoming", "map"):
            (self.folder / name).mkdir()
        (self.folder / "watch.toml").write_text(settings)
        shutil.copy(PROJECT / "samples/watch_xy.txt", self.folder / "places.txt")
        for file in (PROJECT / "samples").glob("country.*"):
            shutil.copy(file, self.folder / "map")

    def give(self, week, scores):
        (self.folder / "incoming" / (date(week) + ".txt")).write_text(scores)

    def run(self, week, script="watch-week", more=(), **options):
        environment = dict(os.environ, VASTREL_BATCH=str(BATCH), **options.pop("environment", {}))
        return subprocess.run([PROJECT / "samples/watch" / script, self.folder, *more, date(week)],
                              env=environment, capture_output=True, text=True, timeout=120, **options)

    def weeks(self):
        return tree(self.folder / "weeks")

    def lists(self, week):
        return (self.folder / "weeks" / date(week) / "lists.txt").read_text()


class WeeklyWatch(unittest.TestCase):
    def watch(self, settings):
        parent = tempfile.mkdtemp(prefix="watch")
        self.addCleanup(shutil.rmtree, parent)
        return Watch(settings, parent)

    def fails(self, watch, week, what, **options):
        """The week fails with these words, and nothing of the weeks has changed."""
        before = watch.weeks()
        ended = watch.run(week, **options)
        self.assertEqual(ended.returncode, 1, ended)
        self.assertRegex(ended.stdout, "^" + date(week) + ": failed, the watch stays as it was: .*" + what)
        self.assertEqual(ended.stdout.count("\n"), 1, ended.stdout)
        self.assertEqual(watch.weeks(), before)

    def succeeds(self, watch, week, status):
        ended = watch.run(week)
        self.assertEqual((ended.returncode, ended.stderr), (status, ""), ended)
        return ended.stdout

    def whole_run(self, *words):
        """The lists of one run over all weeks."""
        return subprocess.run([BATCH, "--quiet", *words, "--lists", "-"], capture_output=True, text=True,
                              check=True).stdout

    def all_weeks(self, watch, scores):
        """All 24 weeks, with every failure in the middle; gives the lines."""
        lines = []
        for week, column in enumerate(scores, 1):
            if week == 10:
                self.fails(watch, week, "there are no z-scores")
                for broken, what in ((column.replace("\n", "x\n", 1), "13"), (column.rsplit("\n", 2)[0] + "\n", "number of lines"),
                                     (column.replace("\n", ",1\n", 1), "more than one week")):
                    watch.give(week, broken)
                    self.fails(watch, week, what)
            watch.give(week, column)
            if week == 12:
                self.fails(watch, week, "", preexec_fn=small_files)
            status = SIGNAL if week >= 18 else 0
            lines.append(self.succeeds(watch, week, status))
            if week == 20:
                before = watch.weeks()
                self.assertEqual(self.succeeds(watch, week, status), lines[-1])
                self.assertEqual(watch.weeks(), before)
                self.fails(watch, week - 1, "has been run already")
        return lines

    def check_lines(self, lines):
        # The sample's own page tells: no signal up to period 17, then 2, 6, 13, 16, 17, 19 and 19 regions.
        for week, line in enumerate(lines[:17], 1):
            self.assertEqual(line, date(week) + ": no signal\n")
        for week, count in enumerate((2, 6, 13, 16, 17, 19, 19), 18):
            self.assertRegex(lines[week - 1], "^" + date(week) + r": SIGNAL in H\d{4} \(\d+\.\d\d\)")
            self.assertEqual(lines[week - 1].count("("), count)

    def test_points_over_24_weeks(self):
        watch = self.watch(POINTS)
        self.check_lines(self.all_weeks(watch, columns()))
        self.assertEqual(watch.lists(24),
                         self.whole_run("prospective-points", "--ids", PROJECT / "samples/watch_xy.txt",
                                        "--z", PROJECT / "samples/watch_z.txt"))

    def test_polygons_over_24_weeks(self):
        watch = self.watch(POLYGONS)
        self.check_lines(self.all_weeks(watch, columns()))
        self.assertEqual(watch.lists(24),
                         self.whole_run("prospective-polygons", PROJECT / "samples/country.shp", "--id",
                                        "NAME", "--z", PROJECT / "samples/watch_z.txt"))

    def test_polygons_go_on_from_a_cusum_file(self):
        watch = self.watch(POLYGONS + 'previous = "before.csm"\n')
        shutil.copy(PROJECT / "samples/watch_previous.csm", watch.folder / "before.csm")
        for week, column in enumerate(columns()[:3], 1):
            watch.give(week, column)
            self.succeeds(watch, week, 0)
        z = watch.folder / "three.txt"
        z.write_text("".join(",".join(row) + "\n" for row in zip(*(c.split() for c in columns()[:3]))))
        self.assertEqual(watch.lists(3),
                         self.whole_run("prospective-polygons", PROJECT / "samples/country.shp", "--id",
                                        "NAME", "--z", z, "--previous", PROJECT / "samples/watch_previous.csm"))

    def test_a_corrected_week_takes_the_place_of_the_first(self):
        watch, other = self.watch(POINTS), self.watch(POINTS)
        first, second, corrected = columns()[0], columns()[1], columns()[5]
        for each, scores in ((watch, (first, second)), (other, (first, corrected))):
            for week, column in enumerate(scores, 1):
                each.give(week, column)
                self.succeeds(each, week, 0)
        self.assertNotEqual(watch.lists(2), other.lists(2))
        watch.give(2, corrected)
        self.succeeds(watch, 2, 0)
        self.assertEqual(watch.lists(2), other.lists(2))

    def test_a_stop_between_the_last_two_moves_is_mended(self):
        watch = self.watch(POINTS)
        watch.give(1, columns()[0])
        self.succeeds(watch, 1, 0)
        before = watch.weeks()
        weeks = watch.folder / "weeks"
        (weeks / date(1)).rename(weeks / f".{date(1)}.replaced")
        (weeks / ".new").mkdir()
        self.succeeds(watch, 1, 0)
        self.assertEqual(watch.weeks(), before)

    def test_a_week_can_be_made_again_from_its_numbers(self):
        watch = self.watch(POINTS)
        watch.give(1, columns()[0])
        self.succeeds(watch, 1, 0)
        run = watch.folder / "weeks" / date(1) / "run.json"
        before = run.read_bytes()
        subprocess.run([BATCH, "again", "--strict", f"weeks/{date(1)}/run.json"], cwd=watch.folder, check=True)
        self.assertEqual(run.read_bytes(), before)

    def test_a_full_disk(self):
        watch = self.watch(POINTS)
        mounted = subprocess.run(["mount", "-t", "tmpfs", "-o", "size=200k", "none", watch.folder],
                                 capture_output=True)
        if mounted.returncode != 0:
            self.skipTest("no small disk may be mounted here")
        self.addCleanup(subprocess.run, ["umount", watch.folder], check=True)
        shutil.copy(PROJECT / "samples/watch_xy.txt", watch.folder / "places.txt")
        (watch.folder / "watch.toml").write_text(POINTS)
        (watch.folder / "incoming").mkdir()
        done = 0
        for week, column in enumerate(columns(), 1):
            watch.give(week, column)
            before = watch.weeks() if done else {}
            if watch.run(week).returncode != 0:
                break
            done = week
        self.assertGreater(done, 0)
        self.assertLess(done, 17)
        self.fails(watch, done + 1, "")
        self.assertEqual(watch.weeks(), before)

    def test_the_mail_tells_signal_and_failure(self):
        watch = self.watch(POINTS)
        programs = watch.folder / "programs"
        programs.mkdir()
        (programs / "mail").write_text('#!/bin/sh\n{ echo "$@"; cat; } >"$MAILED"\n')
        (programs / "mail").chmod(0o755)
        mailed = watch.folder / "mailed"

        def mail(week):
            path = str(programs) + os.pathsep + os.environ["PATH"]
            ended = watch.run(week, "mail-week", ["you@example.org"],
                              environment={"PATH": path, "MAILED": str(mailed)})
            return ended.returncode, mailed.read_text()

        watch.give(1, columns()[0])
        self.assertEqual(mail(1), (0, f"-s Watch: no signal you@example.org\n{date(1)}: no signal\n"))
        status, text = mail(2)
        self.assertEqual(status, 1)
        self.assertRegex(text, f"^-s Watch: FAILED you@example.org\n{date(2)}: failed, ")
        watch.give(2, "20\n" * len(columns()[0].split()))
        status, text = mail(2)
        self.assertEqual(status, 0)
        self.assertRegex(text, f"^-s Watch: SIGNAL you@example.org\n{date(2)}: SIGNAL in H0111 ")


if __name__ == "__main__":
    PROJECT, BATCH = (pathlib.Path(argument).resolve() for argument in sys.argv[1:3])
    unittest.main(argv=sys.argv[:1] + sys.argv[3:])
