#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Prints what meshio reads in a file (Debian: python3-meshio): points, cells and the names of arrays.

usage: dump_meshio.py FILE
Exits 77 when meshio is not installed.
"""
import sys

try:
    import meshio
except ImportError:
    print("python3-meshio is not installed", file=sys.stderr)
    sys.exit(77)

mesh = meshio.read(sys.argv[1])
for point in mesh.points:
    print("point " + " ".join("%.17g" % number for number in point))
for block in mesh.cells:
    for cell in block.data:
        print(block.type, *cell)
print("at points", *mesh.point_data)
print("at cells", *mesh.cell_data)
