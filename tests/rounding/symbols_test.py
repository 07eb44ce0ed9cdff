#!/usr/bin/env python3
"""Reads which symbols a library needs from others, and fails where one is an elementary function of the C library:
its results differ from machine to machine. Exact functions (a square root, a shift of the exponent) may stand.

usage: symbols_test.py NM LIBRARY
"""
import re
import subprocess
import sys

ELEMENTARY = re.compile(
    r"(__)?c?(exp|exp2|exp10|pow10|expm1|log|log2|log10|log1p|pow|cbrt|hypot|sin|cos|tan|sincos|asin|acos|atan|"
    r"atan2|sinh|cosh|tanh|asinh|acosh|atanh|erf|erfc|gamma|lgamma|tgamma|j0|j1|jn|y0|y1|yn)"
    r"(f|l|f32|f64|f128|f32x|f64x)?(_r)?(_finite)?")


def elementary(symbols):
    return sorted({s for s in symbols if ELEMENTARY.fullmatch(s.split("@")[0])})


def main():
    nm, library = sys.argv[1:]
    # The test can fail: these are such symbols, and those are not.
    assert len(elementary(["exp", "powf", "__log_finite", "atan2@GLIBC_2.2.5", "erfc"])) == 5
    assert elementary(["sqrt", "ldexp", "floor", "_ZSt3expf", "memcpy", "explain"]) == []
    lines = subprocess.run([nm, "--undefined-only", library], capture_output=True, text=True, check=True).stdout
    needed = [line.split()[-1] for line in lines.splitlines() if " U " in line]
    if len(needed) < 100:
        sys.exit(f"Only {len(needed)} symbols were read from {library}.")
    found = elementary(needed)
    if found:
        sys.exit(f"{library} needs elementary functions of the C library: {', '.join(found)}")


if __name__ == "__main__":
    main()
