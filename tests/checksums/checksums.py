#!/usr/bin/env python3
"""Holds the checksums of everything that vastrel-batch writes on the samples against tests/golden/checksums.txt.

    checksums.py PROGRAM [--write] [--locale] [--runner WORD ...]

Lists, reports, cusum and other text files are taken byte for byte (line ends apart, which are the platform's), JSON
as its numbers and texts stand in the file, without what says where a run came from (Program, Settings, Inputs).

--write     writes the checksums anew. The numbers of the program are fixed: a commit that changes one says why.
--locale    in a locale with a decimal comma; status 77 where the machine cannot make one
--runner    what runs the program, as in: --runner qemu-aarch64 -L /usr/aarch64-linux-gnu
"""

import hashlib
import json
import os
import subprocess
import sys
import tempfile
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
SAMPLES = ROOT / "samples"
GOLDEN = ROOT / "tests" / "golden" / "checksums.txt"
SKIPPED = 77
ORIGIN = ("Program", "Settings", "Inputs")

VARIABLES = ("unadjusted", "adjusted", "freeman-tukey", "rossi")


def runs():
    """(name, arguments, the outputs that are files)."""
    retro = ("lists", "report", "json")
    watch = ("lists", "report", "cusum", "json")
    polygons = "country.shp"
    retro_inputs = {
        "points of observed and expected counts": ["retrospective-points", "country_exp.txt", "--format", "obs-exp"],
        "points of population and cases": ["retrospective-points", "country_pop.txt", "--format", "pop-case"],
        "polygons of observed and expected counts":
            ["retrospective-polygons", polygons, "--obs", "CASES", "--exp", "EXPECTED", "--id", "NAME"],
        "polygons of population and cases":
            ["retrospective-polygons", polygons, "--pop", "POP", "--cases", "CASES", "--id", "NAME", "--id2", "ID"],
    }
    for name, words in retro_inputs.items():
        for variable in VARIABLES:
            for sigma in ("0", "0.7", "1"):
                yield f"{name}, {variable}, sigma {sigma}", [*words, "--variable", variable, "--sigma", sigma], retro
            yield f"{name}, {variable}, default range", [*words, "--variable", variable, "--alpha", "0.01"], retro

    points = ["prospective-points", "--ids", "watch_xy.txt", "--z", "watch_z.txt"]
    columns = ["prospective-polygons", polygons, "--fields", "OBS01", "OBS24", "--id", "NAME"]
    texts = ["prospective-polygons", polygons, "--z", "watch_z.txt", "--id", "NAME", "--id2", "ID"]
    for sigma in ("0", "0.6", "1"):
        more = ["--sigma", sigma]
        yield f"watch of points, sigma {sigma}", points + more, watch
        yield f"watch of points from half of h, sigma {sigma}", [*points, *more, "--start", "fir", "--k", "0.3"], watch
        yield f"watch of points, continued, sigma {sigma}", [*points, *more, "--previous", "watch_previous.txt"], watch
        yield f"watch of columns, sigma {sigma}", [*columns, *more, "--k", "25"], watch
        yield f"watch of a text file, sigma {sigma}", texts + more, watch
        yield (f"watch of a text file, continued, sigma {sigma}",
               [*texts, *more, "--previous", "watch_previous.csm", "--show", "both"], ("lists", "report", "json"))

    for option in ("poisson", "standard", "rossi"):
        yield (f"export, {option}", ["export", polygons, "--obs", "OBS01", "OBS24", "--exp", "EXP01", "EXP24",
                                     "--option", option, "--sigma", "0.8"], ("out",))
    yield "centroids", ["centroids", polygons], ("out",)
    for z in ("0.3", "1.96", "-4.7"):
        yield f"p-value of {z}", ["p-value", "normal", z], ()
    for chi, df in (("3.2", "1"), ("250", "207"), ("0.01", "5")):
        yield f"p-value of {chi} with {df} degrees", ["p-value", "chi-square", chi, df], ()
    for option in ("overall", "bonferroni", "spatial"):
        yield (f"h-value, {option}", ["h-value", "--option", option, "--k", "0.37", "--arl0", "500", "--regions", "207",
                                      "--sigma", "1.3"], ())


def content(what, data):
    if what != "json":
        return data.replace(b"\r\n", b"\n")
    # Numbers stay the texts that they are in the file.
    numbers = json.loads(data, parse_float=lambda text: "number " + text, parse_int=lambda text: "number " + text)
    kept = {key: value for key, value in numbers.items() if key not in ORIGIN}
    if len(kept) < 5:
        raise ValueError(f"JSON with {len(kept)} keys")
    return json.dumps(kept).encode()


def checksums(command):
    """{what: checksum} of all runs."""
    found = {}
    with tempfile.TemporaryDirectory() as folder:
        for name, words, files in runs():
            outputs = {what: Path(folder, what) for what in files}
            options = [word for what, path in outputs.items() for word in ("--" + what, str(path))]
            done = subprocess.run([*command, *words, *options], cwd=SAMPLES, capture_output=True, check=False)
            if done.returncode == SKIPPED:
                sys.exit(SKIPPED)
            if done.returncode != 0:
                sys.exit(f"{name}: status {done.returncode}, {done.stderr.decode()}")
            for what, path in outputs.items():
                found[f"{name}: {what}"] = hashlib.sha256(content(what, path.read_bytes())).hexdigest()[:32]
            if not files:
                found[name] = hashlib.sha256(content("text", done.stdout)).hexdigest()[:32]
    return found


def take_decimal_comma(folder):
    """Makes the processes that follow run with a decimal comma, or ends as skipped."""
    place = Path(folder, "de_DE.UTF-8")
    subprocess.run(["localedef", "-i", "de_DE", "-f", "UTF-8", str(place)], capture_output=True, check=False)
    os.environ |= {"LOCPATH": folder, "LC_ALL": place.name, "LANG": place.name}
    sign = subprocess.run(["locale", "decimal_point"], capture_output=True, text=True, check=False).stdout.strip()
    if sign != ",":
        print("No locale with a decimal comma (package locales).")
        sys.exit(SKIPPED)


def compare(found):
    expected = dict(reversed(line.split("  ", 1)) for line in GOLDEN.read_text().splitlines())
    differing = [name for name in expected if found.get(name) != expected[name]]
    differing += [name for name in found if name not in expected]
    for name in differing:
        print("differs:", name)
    print(f"{len(found)} checksums, {len(differing)} differ")
    return 1 if differing or len(found) < 100 else 0


def main():
    words = sys.argv[1:]
    runner = []
    if "--runner" in words:
        at = words.index("--runner")
        words, runner = words[:at], words[at + 1:]
    program = str(Path(words[0]).resolve())
    with tempfile.TemporaryDirectory() as folder:
        if "--locale" in words:
            take_decimal_comma(folder)
        found = checksums([*runner, program])
    if "--write" in words:
        GOLDEN.write_text("".join(f"{checksum}  {name}\n" for name, checksum in found.items()))
        print(f"{len(found)} checksums written")
        return 0
    return compare(found)


if __name__ == "__main__":
    sys.exit(main())
