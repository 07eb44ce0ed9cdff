"""Numbers as text and text as numbers by the rules of the program, and the ways in which it stops."""

import math
import re
import struct
from decimal import ROUND_HALF_UP, Context, Decimal

EVERY_DIGIT = Context(prec=400, rounding=ROUND_HALF_UP)


class Refused(Exception):
    """A message of the screens' own, after which nothing is computed."""


class RunTimeStop(Exception):
    """A fault that nothing catches."""

    def __init__(self, number):
        super().__init__("Run-time error '%d'" % number)
        self.number = number


def single(x):
    return struct.unpack("f", struct.pack("f", x))[0]


def num(value, pattern):
    blanks = len(pattern) - len(pattern.lstrip(" "))
    decimals = len(pattern.split(".")[1])
    quantum = Decimal(1).scaleb(-decimals)
    text = format(Decimal("%.15g" % abs(value)).quantize(quantum, context=EVERY_DIGIT), "f")
    return " " * blanks + ("-" if value < 0 else "") + text


def pad(text, n):
    return " " * (n - len(text)) + text


NUMERIC = re.compile(r"^[ \t]*[+-]?([0-9]+\.?[0-9]*|\.[0-9]+)([eEdD][+-]?[0-9]+)?[ \t]*$")


def is_numeric(text):
    return NUMERIC.match(text) is not None


def number(text):
    if not is_numeric(text):
        raise RunTimeStop(13)
    value = float(text.strip(" \t").replace("d", "e").replace("D", "e"))
    if math.isinf(value):
        raise RunTimeStop(6)
    return value


def round_to_int32(x):
    n = round(x)  # ties to the even neighbour
    if not -(2**31) <= n < 2**31:
        raise RunTimeStop(6)
    return n


def int32(n):
    if not -(2**31) <= n < 2**31:
        raise RunTimeStop(6)
    return n
