#!/usr/bin/env python3
"""Holds every include of src/ against the order of the folders: an include points down, never up, never round.

    include_test.py PROJECT_FOLDER
"""

import re
import sys
from pathlib import Path

# Each folder, and those below it that it may use; its own files are its own.
CORE = "core/platform core/text core/workspace core/numeric core/spatial core/retrospective core/prospective " \
       "core/export core/binding core/display core/layer".split()
BELOW_TESTS = CORE[:5]
MAY_USE = {
    "core/platform": [],
    "core/text": CORE[:1],
    "core/workspace": CORE[:1],
    "core/numeric": CORE[:3],
    "core/spatial": CORE[:4],
    "core/retrospective": BELOW_TESTS,
    "core/prospective": BELOW_TESTS,
    "core/export": BELOW_TESTS,
    "core/binding": BELOW_TESTS,
    "core/display": CORE[:-2],
    "core/layer": CORE[:-1],
    "pictures": CORE,
    "batch": [*CORE, "pictures"],
    "desktop/toolkit": [*CORE, "pictures"],
    "desktop/spatial": [*CORE, "pictures", "desktop/toolkit"],
    "desktop/display": [*CORE, "pictures", "desktop/toolkit", "desktop/spatial"],
}
MAPPED = [*MAY_USE["desktop/display"], "desktop/display"]
TESTS = ["desktop/retrospective", "desktop/prospective", "desktop/export"]
MAY_USE |= {test: MAPPED for test in TESTS}
MAY_USE["desktop/frontend"] = [*MAPPED, *TESTS]
MAY_USE["desktop"] = [*MAY_USE["desktop/frontend"], "desktop/frontend"]  # main.cpp
TOOLKIT_FREE = ("core/",)

INCLUDE = re.compile(r'^\s*#\s*include\s*(["<])([^">]+)[">]', re.MULTILINE)


def folder_of(path):
    return str(Path(path).parent)


def breaches(name, text):
    """What a file of this name may not include, as lines of text."""
    own = folder_of(name)
    if own not in MAY_USE:
        yield f"{name}: the folder {own} has no place in the order"
        return
    for quote, included in INCLUDE.findall(text):
        target = folder_of(included)
        if quote == "<":
            if own.startswith(TOOLKIT_FREE) and (re.match(r"Q[A-Z]|Qt", included) or included.startswith("qcustomplot")):
                yield f"{name}: the core includes the toolkit's {included}"
        elif included.startswith("ui_"):
            if not own.startswith("desktop"):
                yield f"{name}: includes the form {included}"
        elif target != own and target not in MAY_USE[own]:
            yield f"{name}: {own} includes {included}, which is not below it"


def check_the_check():
    """The check itself finds each kind of breach."""
    sound = '#include "core/text/Numbers.h"\n#include <vector>\n'
    assert not list(breaches("core/numeric/A.cpp", sound))
    for name, line in [
        ("core/text/A.h", '#include "core/numeric/GaussianKernel.h"'),
        ("core/retrospective/A.h", '#include "core/prospective/CusumFile.h"'),
        ("core/spatial/A.h", "#include <QString>"),
        ("pictures/A.h", '#include "desktop/toolkit/Screen.h"'),
        ("desktop/display/A.h", '#include "desktop/retrospective/RetroScreen.h"'),
        ("batch/A.h", '#include "desktop/toolkit/Screen.h"'),
        ("core/text/A.h", '#include "Numbers.h"'),
        ("core/other/A.h", ""),
    ]:
        assert list(breaches(name, line)), (name, line)


def main():
    check_the_check()
    source = Path(sys.argv[1]) / "src"
    files = sorted(p for p in source.rglob("*") if p.suffix in (".h", ".cpp"))
    found = [b for p in files for b in breaches(str(p.relative_to(source)), p.read_text(encoding="utf-8"))]
    print(*found, sep="\n")
    print(f"{len(files)} files read, {len(found)} includes against the order.")
    sys.exit(1 if found or len(files) < 100 else 0)


main()
