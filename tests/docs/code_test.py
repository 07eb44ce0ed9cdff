#!/usr/bin/env python3
"""Runs the code of a page of the guide as its reader would, block by block in one session, and compares what it prints
with what the page says.

    code_test.py PAGE.md VASTREL_BATCH PROJECT [--write]

Ends with 77 (skipped) where the interpreter or a library of the page is missing. --write puts what the code printed
into the page, for a person to look over.
"""
import os
import re
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

SKIPPED = 77
MARK = "<<<<the block ends here>>>>"
BLOCK = re.compile(r"^```(r|python|text)\n(.*?)^```$", re.MULTILINE | re.DOTALL)

# How each language is run, how it tells that a block has ended, and what shows that a library is there.
LANGUAGES = {
    "r": (["Rscript", "--vanilla"], f'cat("{MARK}\\n")\n', 'stopifnot(requireNamespace("{}", quietly = TRUE))',
          re.compile(r"library\((\w+)\)")),
    "python": (["/usr/bin/python3"], f'print("{MARK}")\n', "import {}", re.compile(r"^import (\w+)", re.MULTILINE)),
}


def run(interpreter, code, folder, path):
    script = folder / "session"
    script.write_text(code, encoding="utf-8")
    return subprocess.run([*interpreter, str(script)], cwd=folder, capture_output=True, text=True,
                          env=os.environ | {"PATH": f"{path}:{os.environ['PATH']}", "LC_ALL": "C.UTF-8"})


def main():
    page, batch, project = Path(sys.argv[1]), Path(sys.argv[2]), Path(sys.argv[3])
    text = page.read_text(encoding="utf-8")
    blocks = BLOCK.findall(text)
    language = next(kind for kind, _ in blocks if kind != "text")
    interpreter, end_of_block, try_library, libraries = LANGUAGES[language]
    code = "\n".join(body for kind, body in blocks if kind == language)
    if shutil.which(interpreter[0]) is None:
        print(f"skipped: {interpreter[0]} is not installed")
        sys.exit(SKIPPED)
    with tempfile.TemporaryDirectory() as name:
        folder = Path(name)
        (folder / "samples").symlink_to(project / "samples")
        for library in libraries.findall(code):
            if run(interpreter, try_library.format(library), folder, batch.parent).returncode != 0:
                print(f"skipped: {library} is not installed")
                sys.exit(SKIPPED)
        session = "".join(body + end_of_block for kind, body in blocks if kind == language)
        done = run(interpreter, session, folder, batch.parent)
        printed = done.stdout.split(MARK + "\n")[:-1]
        if done.returncode != 0 or len(printed) != sum(kind == language for kind, _ in blocks):
            sys.exit(f"block {len(printed) + 1} of {page.name} failed:\n{done.stderr}")
        if not (folder / "classes.png").stat().st_size:
            sys.exit("the picture is empty")

    # A block of text says what the block before it prints; a block without one prints nothing.
    said, wrong = [], []
    for at, (kind, _) in enumerate(blocks):
        if kind == language:
            followed = at + 1 < len(blocks) and blocks[at + 1][0] == "text"
            said.append(blocks[at + 1][1] if followed else "")
    for number, (expected, got) in enumerate(zip(said, printed), 1):
        if expected != got:
            wrong.append(f"block {number} of {page.name} prints\n{got}and the page says\n{expected}")
    if "--write" in sys.argv:
        for expected, got in zip(said, printed):
            if expected:
                text = text.replace(f"```text\n{expected}```", f"```text\n{got}```", 1)
        page.write_text(text, encoding="utf-8")
    elif wrong:
        sys.exit("\n".join(wrong))
    print(f"{len(printed)} blocks of {page.name} ran, {sum(map(bool, said))} of them printed what the page says")


main()
