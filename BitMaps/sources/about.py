#!/usr/bin/env python3
"""Prints the picture of the About box as SVG: a country of hexagons with one red cluster."""
from math import atan2, cos, hypot, pi, sin, sqrt

WIDTH, HEIGHT = 420, 260
RADIUS = 9
CENTRE = (214, 94)
CLUSTER = (16, 6)
CLUSTER_COLOURS = ["#d7191c", "#ee5a52", "#f9b5ac"]
QUIET_COLOURS = ["#eef2f8", "#e3eaf4", "#d5dfee", "#c3d1e6"]


def hexagon(x, y, radius, colour):
    corners = " ".join(
        f"{x + radius * sin(k * pi / 3):.2f},{y + radius * cos(k * pi / 3):.2f}" for k in range(6))
    return f'<polygon points="{corners}" fill="{colour}"/>'


def place(column, row):
    return (sqrt(3) * RADIUS * (column + 0.5 * (row % 2)), 1.5 * RADIUS * row + 9)


def on_land(x, y):
    dx, dy = (x - CENTRE[0]) / 164, (y - CENTRE[1]) / 70
    angle = atan2(dy, dx)
    coast = 1 + 0.12 * sin(3 * angle + 0.9) + 0.08 * cos(4 * angle + 2) + 0.06 * sin(9 * angle)
    return hypot(dx, dy) < coast


def rings_apart(a, b):
    (ax, ay), (bx, by) = place(*a), place(*b)
    return round(hypot(ax - bx, ay - by) / (sqrt(3) * RADIUS))


def colour(cell):
    ring = rings_apart(cell, CLUSTER)
    if ring < len(CLUSTER_COLOURS):
        return CLUSTER_COLOURS[ring]
    x, y = place(*cell)
    wave = sin(x / 37) + cos(y / 23 + x / 61) + 0.8 * sin(7 * cell[0] + 13 * cell[1])
    return QUIET_COLOURS[min(3, max(0, int(1.7 + wave)))]


def country():
    cells = [(column, row) for row in range(13) for column in range(27)]
    return [hexagon(*place(*cell), RADIUS - 0.7, colour(cell))
            for cell in cells if on_land(*place(*cell))]


print(f"""<svg xmlns="http://www.w3.org/2000/svg" width="{WIDTH}" height="{HEIGHT}">
<rect width="{WIDTH}" height="{HEIGHT}" fill="#fff"/>
{chr(10).join(country())}
<g font-family="Inter" font-size="12" fill="#3a4963">
<text x="28" y="216" font-family="Inter Display" font-size="38" font-weight="600" fill="#1d2b45">Vastrel</text>
<text x="392" y="216" font-weight="500" fill="#5b6b86" text-anchor="end">Ver1.1 · GPL-3</text>
<text x="29" y="240">finds and watches spatial clusters in the counts of regions</text>
</g>
</svg>""")
