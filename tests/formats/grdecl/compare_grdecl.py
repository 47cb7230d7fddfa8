#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Compares two GRDECL grids with the reader of the Open Porous Media project (Debian: python3-opm-common).

usage: compare_grdecl.py EXPORTED ORIGINAL [PROPERTY...]
Exits 0 and prints "cells N, active N" when sizes, active cells, cell volumes, cell depths and the properties agree;
1 with the difference on stderr; 2 when the reader is not installed.
"""
import os
import re
import sys

try:
    from opm.io import action
    from opm.io.ecl_state import EclipseState
    from opm.io.parser import Parser, ParseContext
except ImportError:
    print("python3-opm-common is not installed", file=sys.stderr)
    sys.exit(2)


def load(path):
    path = os.path.abspath(path)
    with open(path, encoding="utf-8") as file:
        text = file.read()
    size = [int(word) for word in re.search(r"^SPECGRID\s+(\d+)\s+(\d+)\s+(\d+)", text, re.M).groups()]
    cells = size[0] * size[1] * size[2]
    deck = f"""RUNSPEC
DIMENS
{size[0]} {size[1]} {size[2]} /
OIL
WATER
METRIC
TABDIMS
/
GRID
PORO
 {cells}*0.1 /
INCLUDE
 '{path}' /
EDIT
PROPS
REGIONS
SOLUTION
SCHEDULE
"""
    context = ParseContext([("PARSE_UNKNOWN_KEYWORD", action.ignore), ("PARSE_RANDOM_SLASH", action.ignore),
                            ("PARSE_RANDOM_TEXT", action.ignore)])
    deck = Parser().parse_string(deck, context)
    return deck, EclipseState(deck).grid()


def fail(message):
    print(message, file=sys.stderr)
    sys.exit(1)


def main(exported, original, properties):
    (deck_a, a), (deck_b, b) = load(exported), load(original)
    if (a.nx, a.ny, a.nz, a.nactive) != (b.nx, b.ny, b.nz, b.nactive):
        fail(f"sizes or active cells differ: {a.nx} {a.ny} {a.nz} {a.nactive}, {b.nx} {b.ny} {b.nz} {b.nactive}")
    cells = a.nx * a.ny * a.nz
    for cell in range(cells):
        volumes = a.getCellVolume(cell), b.getCellVolume(cell)
        if abs(volumes[0] - volumes[1]) > 1e-3 * max(abs(volumes[1]), 1.0):
            fail(f"cell {cell}: volume {volumes[0]} instead of {volumes[1]}")
        at = a.getIJK(cell)
        depths = a.getCellDepth(*at), b.getCellDepth(*at)
        if abs(depths[0] - depths[1]) > 2e-3:
            fail(f"cell {cell}: depth {depths[0]} instead of {depths[1]}")
    for name in properties:
        values = deck_a[name].get_raw_array(), deck_b[name].get_raw_array()
        if len(values[0]) != cells or list(values[0]) != list(values[1]):
            fail(f"{name} differs")
    print(f"cells {cells}, active {a.nactive}")


if __name__ == "__main__":
    main(sys.argv[1], sys.argv[2], sys.argv[3:])
