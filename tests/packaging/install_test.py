#!/usr/bin/env python3
"""Installs a build into folders of its own, as an ordinary user may, and runs the programs from there.

    install_test.py BUILD_FOLDER SMOKE_TEST
"""
import os
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

BUILD, SMOKE = Path(sys.argv[1]), sys.argv[2]
SKIPPED = 77
ID = "org.vastrel.Vastrel"


def install(prefix, **environment):
    subprocess.run(["cmake", "--install", BUILD, "--prefix", prefix], check=True, capture_output=True,
                   env=os.environ | environment)


class Installed(unittest.TestCase):
    def setUp(self):
        self.folder = Path(tempfile.mkdtemp(prefix="vastrel-install-"))
        self.addCleanup(shutil.rmtree, self.folder)
        self.prefix = self.folder / "my own prefix"
        install(self.prefix)

    def test_the_batch_program_runs_the_sample(self):
        share = self.prefix / "share/vastrel"
        run = subprocess.run([self.prefix / "bin/vastrel-batch", "retrospective-points",
                              share / "samples/country_pop.txt", "--format", "pop-case", "--sigma", "1", "--map",
                              self.folder / "map.png", "--lists", "-"], capture_output=True, text=True)
        self.assertEqual(run.returncode, 0, run.stderr)
        self.assertGreater(len(run.stdout.splitlines()), 207)
        self.assertEqual((self.folder / "map.png").read_bytes()[:4], b"\x89PNG")

    def test_all_that_a_desktop_looks_for_is_there(self):
        share = self.prefix / "share"
        for place in (f"applications/{ID}.desktop", f"metainfo/{ID}.metainfo.xml", "man/man1/vastrel.1",
                      "man/man1/vastrel-batch.1", "bash-completion/completions/vastrel-batch",
                      f"icons/hicolor/scalable/apps/{ID}.svg", f"icons/hicolor/symbolic/apps/{ID}-symbolic.svg",
                      "doc/vastrel/UserManual.pdf", "vastrel/samples/country.shp"):
            self.assertTrue((share / place).is_file(), place)
        for script in ("watch/watch-week", "cluster/range-slurm", "cluster/range-part"):
            self.assertTrue(os.access(share / "vastrel/samples" / script, os.X_OK), script)
        for size in (16, 22, 24, 32, 48, 64, 128, 256):
            icon = (share / f"icons/hicolor/{size}x{size}/apps/{ID}.png").read_bytes()
            self.assertEqual(int.from_bytes(icon[16:20], "big"), size)  # the width in its header
        entry = (share / f"applications/{ID}.desktop").read_text(encoding="utf-8")
        self.assertIn(f"Icon={ID}\n", entry)

    def test_the_desktop_data_are_valid(self):
        share = self.prefix / "share"
        for command in (["desktop-file-validate", share / f"applications/{ID}.desktop"],
                        ["appstreamcli", "validate", "--no-net", share / f"metainfo/{ID}.metainfo.xml"]):
            if shutil.which(command[0]) is None:
                self.skipTest(command[0] + " is not installed")
            run = subprocess.run(command, capture_output=True, text=True)
            self.assertEqual(run.returncode, 0, run.stdout + run.stderr)

    def test_another_root_gets_the_same_files(self):
        install("/usr", DESTDIR=str(self.folder / "root"))
        files = lambda top: {str(file.relative_to(top)) for file in top.rglob("*") if file.is_file()}
        self.assertEqual(files(self.folder / "root/usr"), files(self.prefix))

    def test_the_program_shows_its_window_from_there(self):
        run = subprocess.run([sys.executable, SMOKE, self.prefix / "bin/vastrel", self.folder / "seen.png"],
                             capture_output=True, text=True, cwd=self.folder)
        if run.returncode == SKIPPED:
            self.skipTest("no X server")
        self.assertEqual(run.returncode, 0, run.stdout + run.stderr)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
