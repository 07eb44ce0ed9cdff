#!/usr/bin/env python3
"""Holds the man page and the bash completion of the batch program against its own help.

    pages_test.py VASTREL_BATCH FOLDER_OF_THE_PAGES
"""
import re
import subprocess
import sys
import unittest
from pathlib import Path

BATCH, FOLDER = sys.argv[1], Path(sys.argv[2])
FLAG = re.compile(r"(?<![\w-])--?[a-z][a-z0-9-]*")


def help_of(*command):
    return subprocess.run([BATCH, *command, "--help"], capture_output=True, text=True, check=True).stdout


def offered(*command):
    """Each option that the help offers: the words of a line that begins with one, up to its value."""
    lines = [line for line in help_of(*command).splitlines() if re.match(r"  -", line)]
    return {flag for line in lines for flag in FLAG.findall(line.split()[0])}


def commands():
    listed = help_of().split("Subcommands:")[1]
    return re.findall(r"^  (\S+)", listed, re.MULTILINE)


def sections():
    """The man page as a person reads it, by the headings of the commands."""
    source = (FOLDER / "vastrel-batch.1").read_text(encoding="utf-8").replace("\\-", "-")
    parts = re.split(r"^\.SH (.*)$", source, flags=re.MULTILINE)
    return dict(zip(parts[1::2], parts[2::2]))


def completed(*words):
    """What the shell offers behind these words; the last one is the one being typed."""
    script = f"""source "{FOLDER}/vastrel-batch.bash"
        COMP_WORDS=(vastrel-batch "$@"); COMP_CWORD=$#; _vastrel_batch; printf '%s\\n' "${{COMPREPLY[@]}}" """
    run = subprocess.run(["bash", "-c", script, "bash", *words], capture_output=True, text=True, check=True)
    return set(run.stdout.split())


class Pages(unittest.TestCase):
    def test_there_are_commands(self):
        self.assertGreaterEqual(len(commands()), 8)
        self.assertIn("--sigma", offered("retrospective-points"))

    def test_the_page_has_the_options_of_the_help_and_no_others(self):
        for command in commands():
            section = sections()["COMMAND " + command.upper()]
            told = {flag for line in re.findall(r"^\.TP\n\.B (\S+)", section, re.MULTILINE)
                    for flag in FLAG.findall(line)}
            self.assertEqual(told, offered(command), command)

    def test_the_page_has_the_texts_of_the_help(self):
        page = " ".join(" ".join(sections().values()).split())
        for command in commands():
            for line in help_of(command).splitlines():
                if text := re.match(r" {30}(\S.*)", line):
                    self.assertIn(text[1], page, command)

    def test_the_completion_offers_the_options_of_the_help_and_no_others(self):
        self.assertEqual(completed(""), set(commands()) | offered())
        for command in commands():
            self.assertEqual(completed(command, "-"), offered(command), command)

    def test_the_completion_knows_the_choices(self):
        self.assertEqual(completed("retrospective-points", "--variable", ""),
                         {"unadjusted", "adjusted", "freeman-tukey", "rossi"})
        self.assertEqual(completed("retrospective-points", "--variable", "r"), {"rossi"})
        self.assertEqual(completed("retrospective-points", "--lists", ""), set())  # the shell offers files

    def test_man_finds_nothing_wrong(self):
        for page in (FOLDER / "vastrel-batch.1", Path(__file__).parents[2] / "packaging/man/vastrel.1"):
            try:
                run = subprocess.run(["man", "--warnings", "-l", page], capture_output=True, text=True, check=True)
            except FileNotFoundError:
                self.skipTest("man is not installed")
            self.assertEqual(run.stderr, "")
            self.assertIn("NAME", run.stdout)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
