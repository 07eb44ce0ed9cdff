#!/usr/bin/env python3
"""Runs the samples for several machines on a Slurm of one node, or with GNU parallel, and holds the bytes of what
they join against those of the one run. Skipped (status 77) where the scheduler cannot be had, which is told.

    cluster_test.py PROJECT VASTREL_BATCH slurm|parallel|ssh
"""
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import tomllib
import unittest

from loopback_ssh import LoopbackSsh
from one_node_slurm import NotHere, OneNodeSlurm, wait_until

PROJECT = BATCH = SLURM = MACHINE = None
SKIPPED = 77
COMMAND = "retrospective-polygons"
PARTS = 4

# Runs the program; of part 3 it stops it, the first time, and waits.
STOPS_ONCE = """#!/bin/sh
if [ "$SLURM_ARRAY_TASK_ID" != 3 ] || ! mkdir stopped; then exec '{batch}' "$@"; fi
'{batch}' "$@" &
kill -STOP $!
echo $! >stopped/process
wait
"""

# The same: of part 3 it ends it.
KILLS_ONCE = """#!/bin/sh
case "$*" in *--part\\ 3/*) mkdir killed 2>/dev/null || exec '{batch}' "$@" ;; *) exec '{batch}' "$@" ;; esac
'{batch}' "$@" &
kill -KILL $!
wait $!
"""


def direct(folder, *words):
    return subprocess.run([BATCH, "--quiet", *words], cwd=folder, check=True, capture_output=True)


class Cluster(unittest.TestCase):
    def setUp(self):
        self.folder = self.made_folder()
        with open(PROJECT / "samples/cluster/range.toml", "rb") as file:
            self.outputs = tomllib.load(file)["join"]

    def made_folder(self):
        folder = pathlib.Path(tempfile.mkdtemp(prefix="cluster"))
        self.addCleanup(shutil.rmtree, folder)
        for file in [*(PROJECT / "samples").glob("country.*"), *(PROJECT / "samples/cluster").glob("*.toml")]:
            shutil.copy(file, folder)
        return folder

    def program(self, text):
        program = self.folder / "program"
        program.write_text(text.format(batch=BATCH), encoding="utf-8")
        program.chmod(0o755)
        return str(program)

    def script(self, name, *words, batch=None, check=True):
        environment = {"VASTREL_BATCH": batch or str(BATCH)}
        words = [str(PROJECT / "samples/cluster" / name), str(self.folder), *words]
        if SLURM:
            return SLURM.run(*words, environment=environment, check=check)
        return subprocess.run(words, env=dict(os.environ, **environment), capture_output=True, text=True,
                              check=check)

    def has_outputs(self):
        return [name for name in self.outputs.values() if (self.folder / name).exists()]

    def assert_same_as_one_run(self):
        one = self.made_folder()
        direct(one, COMMAND, "--config", "range.toml",
               *[word for name, file in self.outputs.items() for word in ("--" + name, file)])
        self.assertEqual(len(self.outputs), 4)
        for file in self.outputs.values():
            self.assertGreater(len((one / file).read_bytes()), 100)
            self.assertEqual((self.folder / file).read_bytes(), (one / file).read_bytes(), file)


class OnSlurm(Cluster):
    def test_the_array_and_its_join_give_the_one_run(self):
        self.script("range-slurm", COMMAND, str(PARTS))
        SLURM.wait_for_jobs()
        self.assertEqual(sorted(path.name for path in (self.folder / "parts").iterdir() if not path.suffix),
                         ["1", "2", "3", "4"])
        self.assert_same_as_one_run()

    def test_a_part_that_was_killed_is_submitted_again(self):
        array, _ = self.script("range-slurm", COMMAND, str(PARTS), batch=self.program(STOPS_ONCE)).stdout.split()
        process = self.folder / "stopped/process"
        wait_until(lambda: process.exists() and process.read_text().strip(), "part 3 does not begin")
        joined = subprocess.run([BATCH, "join", *(f"parts/{k}" for k in (1, 2, 3, 4)), "--json", "range.json"],
                                cwd=self.folder, capture_output=True, text=True, check=False)
        self.assertEqual(joined.returncode, 3)
        SLURM.run("scancel", "--signal=KILL", "--full", array + "_3")
        SLURM.run("scancel", array + "_3", check=False)
        SLURM.wait_for_jobs()
        self.assertFalse((self.folder / "parts/3").exists())
        self.assertEqual(self.has_outputs(), [])
        self.script("range-slurm", COMMAND, str(PARTS), "3")
        SLURM.wait_for_jobs()
        self.assert_same_as_one_run()

    def test_every_column_has_a_task(self):
        columns = [(f"OBS{k:02}", f"EXP{k:02}") for k in (3, 18, 24)]
        (self.folder / "columns.txt").write_text("".join(f"{obs} {exp}\n" for obs, exp in columns))
        self.script("columns-slurm", COMMAND)
        SLURM.wait_for_jobs()
        for obs, exp in columns:
            made = self.folder / "columns" / obs
            direct(self.folder, COMMAND, "--config", "columns.toml", "--obs", obs, "--exp", exp,
                   "--lists", "lists.txt", "--report", "report.txt")
            for file in ("lists.txt", "report.txt"):
                self.assertEqual((made / file).read_bytes(), (self.folder / file).read_bytes(), obs)
            self.assertTrue((made / "run.json").exists())
        lists = [(self.folder / "columns" / obs / "lists.txt").read_bytes() for obs, _ in columns]
        self.assertEqual(len(set(lists)), 3)


class InParallel(Cluster):
    def test_the_parts_and_their_join_give_the_one_run(self):
        self.script("range-parallel", COMMAND, str(PARTS))
        self.assert_same_as_one_run()

    def test_after_a_part_that_was_killed_all_are_run_again(self):
        batch = self.program(KILLS_ONCE)
        self.assertNotEqual(self.script("range-parallel", COMMAND, str(PARTS), batch=batch, check=False).returncode, 0)
        self.assertTrue((self.folder / "killed").exists())
        self.assertFalse((self.folder / "parts/3").exists())
        self.assertEqual(self.has_outputs(), [])
        self.script("range-parallel", COMMAND, str(PARTS), "--jobs", "2", batch=batch)
        self.assert_same_as_one_run()


class OverSsh(Cluster):
    def test_the_parts_of_another_machine_give_the_one_run(self):
        before = MACHINE.logins()
        os.environ["PARALLEL_SSH"] = MACHINE.command
        self.script("range-parallel", COMMAND, str(PARTS), "--sshlogin", MACHINE.login)
        self.assertGreaterEqual(MACHINE.logins() - before, PARTS)
        self.assert_same_as_one_run()


def main():
    global PROJECT, BATCH, SLURM, MACHINE
    PROJECT, BATCH = (pathlib.Path(word).resolve() for word in sys.argv[1:3])
    scheduler = sys.argv[3]
    words = [sys.argv[0], *sys.argv[4:]]
    if scheduler != "slurm" and not shutil.which("parallel"):
        print("Skipped: GNU parallel is not installed.")
        sys.exit(SKIPPED)
    if scheduler == "parallel":
        unittest.main(argv=words, defaultTest="InParallel")
    try:
        if scheduler == "ssh":
            with LoopbackSsh() as MACHINE:
                unittest.main(argv=words, defaultTest="OverSsh")
        with OneNodeSlurm() as SLURM:
            unittest.main(argv=words, defaultTest="OnSlurm")
    except NotHere as reason:
        print(f"Skipped: no {scheduler} here, {reason}.")
        sys.exit(SKIPPED)


if __name__ == "__main__":
    main()
