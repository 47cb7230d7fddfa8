#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Makes terrain_mesh.off and blocks.grdecl of the sample model from its terrain, dtm_rp.tif.

The mesh is every eighth node of the terrain. The grid hangs below it: 8 x 6 x 4 cells in the middle of the map, a
fault with a throw of 120 m between the fifth and the sixth column, some cells inactive, porosity, permeability and a
rock type. Run it again only to change them: python3 examples/make_model_samples.py (needs gdal_translate).
"""
import math
import subprocess
from pathlib import Path

SAMPLE = Path(__file__).resolve().parent / "sample"
NO_DATA = -1e30  # anything below is no height


def read_terrain():
    """Rows from north to south, each a list of (x, y, z) from west to east."""
    text = subprocess.run(["gdal_translate", "-q", "-of", "XYZ", str(SAMPLE / "dtm_rp.tif"), "/vsistdout/"],
                          check=True, capture_output=True, text=True).stdout
    rows = []
    for line in text.splitlines():
        node = tuple(float(word) for word in line.split())
        if not rows or rows[-1][0][1] != node[1]:
            rows.append([])
        rows[-1].append(node)
    return rows


def write_mesh(rows, step=8):
    nodes = [row[::step] for row in rows[::step]]
    numbers, lines, faces = {}, [], []
    for r, row in enumerate(nodes):
        for c, (x, y, z) in enumerate(row):
            if z > NO_DATA:
                numbers[r, c] = len(lines)
                lines.append(f"{x:.2f} {y:.2f} {z:.2f}")
    for r in range(len(nodes) - 1):
        for c in range(len(nodes[0]) - 1):
            # Rows go south, so this ring is counter-clockwise.
            ring = [numbers.get(at) for at in ((r, c), (r + 1, c), (r + 1, c + 1), (r, c + 1))]
            known = [number for number in ring if number is not None]
            for corner in range(2, len(known)):
                faces.append(f"3 {known[0]} {known[corner - 1]} {known[corner]}")
    head = ["OFF", "# every eighth node of dtm_rp.tif, metres, elevation", f"{len(lines)} {len(faces)} 0"]
    (SAMPLE / "terrain_mesh.off").write_text("\n".join(head + lines + faces) + "\n", encoding="ascii")


def record(keyword, values, text):
    words, out = [], [keyword]
    previous, run = None, 0
    for value in list(map(text, values)) + [None]:
        if value == previous:
            run += 1
            continue
        if previous is not None:
            words.append(previous if run == 1 else f"{run}*{previous}")
        previous, run = value, 1
    line = ""
    for word in words:
        if len(line) + 1 + len(word) > 100:
            out.append(line)
            line = ""
        line += " " + word
    return out + [line, "/", ""]


def write_grid(rows, columns=8, lines=6, step=9, layers=(60.0, 90.0, 70.0, 110.0), throw=120.0, fault=5):
    first_row, first_column = 132, 60  # south-west corner, in nodes from the north-west
    pillars = [[rows[first_row - step * j][first_column + step * i] for i in range(columns + 1)] for j in range(lines + 1)]
    origin_x, origin_y, _ = pillars[0][0]
    bases = [0.0]
    for thickness in layers:
        bases.append(bases[-1] + thickness)

    def depth(i, j, level, column):
        """Depth below sea level of a level at a pillar, as the cells of that column have it."""
        elevation = sum(row[i][2] for row in pillars) / len(pillars) * 0.6 + pillars[j][i][2] * 0.4
        fade = 1.0 + 0.25 * math.sin(0.7 * i) * math.cos(0.5 * j)
        return -(elevation - 40.0) + bases[level] * fade + (throw if column >= fault else 0.0)

    coord = []
    for row in pillars:
        for x, y, z in row:
            coord += [x - origin_x, y - origin_y, -z, x - origin_x, y - origin_y, -z + 600.0]
    zcorn = []
    for k in range(len(layers)):
        for side in (0, 1):
            for j in range(lines):
                for north in (0, 1):
                    for i in range(columns):
                        for east in (0, 1):
                            zcorn.append(depth(i + east, j + north, k + side, i))
    cells = [(i, j, k) for k in range(len(layers)) for j in range(lines) for i in range(columns)]
    active = [0 if (i + j < 2 or (i > 5 and j > 3 and k == 0)) else 1 for i, j, k in cells]
    porosity = [0.0 if not on else 0.18 + 0.06 * math.sin(0.9 * i + 0.4 * j) - 0.02 * k for (i, j, k), on in zip(cells, active)]
    permeability = [0.0 if not on else 10.0 ** (1.0 + 8.0 * phi) for phi, on in zip(porosity, active)]
    rock = [1 + (k + (1 if i >= fault else 0)) % 3 for i, j, k in cells]
    out = ["-- 8 x 6 x 4 cells below dtm_rp.tif, metres, depths positive down; made by make_model_samples.py", "",
           "MAPUNITS", " 'METRES'", "/", "", "MAPAXES", f" {origin_x:.3f} {origin_y + 1000:.3f}",
           f" {origin_x:.3f} {origin_y:.3f}", f" {origin_x + 1000:.3f} {origin_y:.3f}", "/", "",
           "GRIDUNIT", " 'METRES'", "/", "", "SPECGRID", f" {columns} {lines} {len(layers)} 1 F", "/", ""]
    out += record("COORD", coord, lambda v: f"{v:.2f}") + record("ZCORN", zcorn, lambda v: f"{v:.2f}")
    out += record("ACTNUM", active, str) + record("PORO", porosity, lambda v: f"{v:.4f}")
    out += record("PERMX", permeability, lambda v: f"{v:.2f}") + record("ROCKTYPE", rock, str)
    (SAMPLE / "blocks.grdecl").write_text("\n".join(out), encoding="ascii")


if __name__ == "__main__":
    terrain = read_terrain()
    write_mesh(terrain)
    write_grid(terrain)
