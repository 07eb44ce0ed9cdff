#!/usr/bin/env python3
"""Holds the user guide together: its links, its pictures, and the manual that is made of it.

    guide_test.py PROJECT VASTREL_MANUAL
"""
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

PROJECT = MANUAL = None
WIDEST_CODE = 98  # characters that the paper of the manual takes
NO_PART_OF_THE_GUIDE = {"speed.md"}  # what the benchmarks measured

LINK = re.compile(r"!?\[[^\]]*\]\(([^)\s]+)\)")
HEADING = re.compile(r"^#+ +(.*)$", re.MULTILINE)


def pages(docs):
    return sorted(docs.rglob("*.md"))


def prose(page):
    """The text of a page without its code, in which brackets are no links."""
    lines = [line for line in page.read_text(encoding="utf-8").splitlines() if not line.startswith("    ")]
    return re.sub(r"`[^`]*`", "", "\n".join(lines))


def anchor(heading):
    return re.sub(r"[^\w\- ]", "", heading.lower()).replace(" ", "-")


def broken_links(page):
    """The links of a page that lead to no file, or to no heading of one."""
    broken = []
    for target in LINK.findall(prose(page)):
        if "://" in target:
            continue
        place, _, heading = target.partition("#")
        file = page.parent / place if place else page
        headings = HEADING.findall(file.read_text(encoding="utf-8")) if heading and file.is_file() else []
        if not file.exists() or (heading and heading not in map(anchor, headings)):
            broken.append(target)
    return broken


def pictures_of(page):
    shown = re.findall(r"!\[[^\]]*\]\(([^)\s]+)\)", page.read_text(encoding="utf-8"))
    return {(page.parent / picture).resolve() for picture in shown}


def make_manual(docs, file):
    """Makes the manual; gives the number of its sheets and the sheet on which each page begins."""
    made = subprocess.run([MANUAL, docs, file], capture_output=True, text=True, check=True, timeout=300)
    begins = {}
    for line in made.stdout.splitlines():
        sheet, page = line.split(" ", 1)
        begins[pathlib.Path(page)] = int(sheet)
    return len(re.findall(rb"/Type\s*/Page\b", file.read_bytes())), begins


def words(text):
    return " ".join(re.sub(r"[*`\\]", "", text).split())


class Guide(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.docs = PROJECT / "docs"
        cls.pages = pages(cls.docs)
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.manual = pathlib.Path(folder.name) / "UserManual.pdf"
        cls.sheets, cls.begins = make_manual(cls.docs, cls.manual)

    def setUp(self):
        self.assertGreater(len(self.pages), 10)

    def test_every_link_leads_somewhere(self):
        told = [PROJECT / name for name in ("README.md", "CONTRIBUTING.md", "CHANGELOG.md", "samples/README.md")]
        self.assertEqual({page: broken_links(page) for page in self.pages + told if broken_links(page)}, {})

    def test_every_picture_is_shown(self):
        kept = {file.resolve() for file in (self.docs / "pictures").iterdir()}
        shown = set().union(*map(pictures_of, self.pages + [PROJECT / "README.md"]))
        self.assertEqual(kept - shown, set())

    def test_every_page_begins_with_its_only_title(self):
        for page in self.pages:
            titles = [line for line in prose(page).splitlines() if line.startswith("# ")]
            self.assertEqual(len(titles), 1, page)
            self.assertTrue(page.read_text(encoding="utf-8").startswith("# "), page)

    def test_no_line_of_code_is_wider_than_the_paper(self):
        for page in self.pages:
            for line in page.read_text(encoding="utf-8").splitlines():
                if line.startswith("    "):
                    self.assertLessEqual(len(line) - 4, WIDEST_CODE, f"{page}: {line}")

    def test_no_picture_or_table_stands_in_a_list(self):
        for page in self.pages:  # the manual takes neither
            for line in page.read_text(encoding="utf-8").splitlines():
                self.assertNotRegex(line, r"^ {1,3}(!\[|\|)", page)

    def test_every_page_is_in_the_manual(self):
        self.assertEqual(set(self.begins), {page for page in self.pages if page.name not in NO_PART_OF_THE_GUIDE})
        order = list(self.begins.values())
        self.assertEqual(order, sorted(set(order)))  # each from the top of a sheet of its own
        self.assertGreaterEqual(self.sheets, order[-1])

    @unittest.skipUnless(shutil.which("pdftotext"), "pdftotext is not installed")
    def test_every_heading_can_be_read_in_the_manual(self):
        read = words(subprocess.run(["pdftotext", "-raw", self.manual, "-"], capture_output=True, text=True,
                                    check=True).stdout)
        told = [words(heading) for page in self.pages if page.name not in NO_PART_OF_THE_GUIDE
                for heading in HEADING.findall(prose(page))]
        self.assertGreater(len(told), 50)
        self.assertEqual([heading for heading in told if heading not in read], [])


class TheChecksThemselves(unittest.TestCase):
    """A check that cannot fail checks nothing."""

    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.addCleanup(self.folder.cleanup)
        self.root = pathlib.Path(self.folder.name).resolve()

    def write(self, name, text):
        (self.root / name).write_text(text, encoding="utf-8")
        return self.root / name

    def test_a_link_to_nothing_is_found(self):
        self.write("there.md", "# There\n\n## A heading\n")
        page = self.write("page.md", "# P\n[a](gone.md) ![b](gone.png) [c](there.md#no) [d](there.md#a-heading)\n")
        self.assertEqual(broken_links(page), ["gone.md", "gone.png", "there.md#no"])

    def test_the_manual_leaves_out_what_the_index_does_not_name(self):
        self.write("README.md", "# Index\n[a](a.md)\n")
        named = self.write("a.md", "# A\n")
        self.write("b.md", "# B\n")
        sheets, begins = make_manual(self.root, self.root / "UserManual.pdf")
        self.assertEqual(begins, {self.root / "README.md": 2, named: 3})  # behind the title
        self.assertEqual(sheets, 3)


if __name__ == "__main__":
    PROJECT, MANUAL = pathlib.Path(sys.argv[1]).resolve(), sys.argv[2]
    unittest.main(argv=sys.argv[:1])
