#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""Exports every data set through every format and compares what was written with the source, by readers of its own.

usage: truth.py PROGRAM DATA [--sample] [--write TABLE.md] [--formats KEY,KEY]

Whatever differs must be told by a finding that speaks of it. Exits 0 when nothing is silent, 1 when something is, 77
when there is nothing to compare with."""
import argparse
import glob
import json
import os
import subprocess
import sys
import tempfile

try:
    import readers
    from osgeo import osr
except ImportError:
    print("no osgeo: skipped")
    sys.exit(77)

# The extension and the reader of each format; none for what no data set holds, sections and wells.
OUTPUTS = {
    "ascii": ("csv", readers.table),
    "shp": ("shp", readers.vector),
    "tab": ("tab", readers.mapinfo),
    "gpkg": ("gpkg", readers.vector),
    "geojson": ("geojson", readers.vector),
    "kml": ("kml", readers.kml),
    "dxf": ("dxf", readers.dxf),
    "gocad": ("ts", readers.gocad),
    "off": ("off", readers.off),
    "zmap": ("zmap", readers.zmap),
    "grdecl": ("grdecl", readers.grdecl),
    "geotiff": ("tif", readers.raster),
    "cog": ("tif", readers.raster),
    "arcgrid": ("asc", readers.arcgrid),
    "surfer7": ("grd", readers.surfer),
    "surfer6": ("grd", readers.surfer),
    "surfer6ascii": ("grd", readers.surfer),
    "netcdf": ("nc", readers.raster),
    "vtp": ("vtp", readers.vtk_surface),
    "vtu": ("vtu", readers.vtk_cells),
    "vti": ("vti", readers.vtk_image),
    "irap": ("irap", readers.irap),
    "irapbinary": ("gri", readers.irapbinary),
    "irappoints": ("pol", readers.irappoints),
    "obj": ("obj", readers.obj),
    "ply": ("ply", readers.ply),
    "stl": ("stl", readers.stl),
    "fgb": ("fgb", readers.vector),
    "gml": ("gml", readers.vector),
    "sqlite": ("sqlite", readers.database),
    "pgdump": ("sql", readers.dump),
    "opentec": ("otl", None),
    "las": ("las", None),
    "deviation": ("dev", None),
    "cellcenters": ("csv", readers.table),
}
FORMATS = list(OUTPUTS)
OUTPUT_READERS = {key: reader for key, (_, reader) in OUTPUTS.items() if reader}
EXTENSIONS = {key: extension for key, (extension, _) in OUTPUTS.items()}
SOURCE_READERS = {".geojson": readers.vector, ".json": readers.vector, ".gpkg": readers.vector, ".shp": readers.vector,
                  ".csv": readers.table, ".tif": readers.raster, ".asc": readers.raster, ".ts": readers.gocad,
                  ".off": readers.off, ".grdecl": readers.grdecl, ".gri": readers.irapbinary,
                  ".poi": readers.irappoints, ".pol": readers.irappoints}
SAMPLE = ["structures.geojson", "faults.geojson", "naturalearth_cities.shp", "map_fault_locations.csv", "F5.ts",
          "simpleb8.grdecl", "faultpoly.gpkg", "dtm_rp.asc"]
# Words of the findings that speak of a kind of difference.
TELLS = {
    "position": ["position", "vertex", "vertices", "node", "cell", "line of fewer", "ring", "object", "triangle",
                 "transformed", "coordinates", "picture"],
    "height": ["z dropped", "height", "no z", "without z", "picture"],
    "attribute": ["attribute", "field", "left out on loading", "the format has no attributes"],
    "value": ["number", "text", "value", "missing", "dates", "yes or no", "empty", "attribute"],
    "system": ["coordinate system"],
    "rows": [],
}


def canonical(value):
    """A value as it can be compared whatever the format: a number, a text, or None."""
    if value is None:
        return None
    if isinstance(value, str):
        text = value.strip()
        number = readers.number(text)
        if number is not None:
            return number
        return text.lower() in ("true", "false") and float(text.lower() == "true") or (None if text == "" else text)
    return float(value)


def same_values(source, written, told):
    """Whether two columns hold the same, in any order."""
    left = [canonical(value) for value in source]
    right = [canonical(value) for value in written]
    if "null" in told:
        right = [None if value in (99999.0, -99999.0) else value for value in right]
    left = [value for value in left if value is not None]
    right = [value for value in right if value is not None]
    if len(left) != len(right):
        return False
    key = lambda value: (isinstance(value, str), value)
    for a, b in zip(sorted(left, key=key), sorted(right, key=key)):
        if isinstance(a, str) or isinstance(b, str):
            if a != b:
                return False
        elif abs(a - b) > max(1e-6 * max(abs(a), abs(b)), 1e-12) and abs(a - b) > told.get("half", 0):
            return False
    return True


class Places:
    """Positions that can be asked for one near another."""

    def __init__(self, positions, flat_step, height_step):
        self.steps = (flat_step, flat_step, height_step)
        self.cells = {}
        for place in dict.fromkeys(positions):
            self.cells.setdefault(self.cell(place), []).append(place)

    def cell(self, place):
        return tuple(int(round(place[axis] / (4 * self.steps[axis]))) for axis in (0, 1))

    def near(self, place):
        column, row = self.cell(place)
        for i in (column, column - 1, column + 1):
            for j in (row, row - 1, row + 1):
                for other in self.cells.get((i, j), ()):
                    high = place[2] is None or other[2] is None or abs(place[2] - other[2]) <= self.steps[2]
                    if high and abs(place[0] - other[0]) <= self.steps[0] and abs(place[1] - other[1]) <= self.steps[1]:
                        return True
        return False


def on_globe(facts):
    world = osr.SpatialReference()
    world.ImportFromEPSG(4326)
    world.SetAxisMappingStrategy(osr.OAMS_TRADITIONAL_GIS_ORDER)
    way = osr.CoordinateTransformation(facts.system, world)
    return [tuple(way.TransformPoint(x, y)[:2]) + (z,) for x, y, z in facts.positions]


def differences(source, written, key, renamed):
    """The kinds of difference between a source and what was written, each with an example."""
    found = {}
    places = source.centres if key == "cellcenters" and source.centres else source.positions
    degrees = source.system is not None and source.system.IsGeographic()
    if key in ("kml", "geojson"):
        places = on_globe(source) if source.system is not None else places
        degrees = True
    size = max([abs(number) for place in places for number in place[:2]] or [0])
    step = 2e-8 if degrees else max(6e-4, 2e-9 * size)
    if any(z is not None for _, _, z in places) and not any(z is not None for _, _, z in written.positions):
        found["height"] = "no position has one"
    elif any(z is None for _, _, z in places) and key not in ("dxf", "gocad", "off", "obj", "ply", "stl", "vtp"):
        invented = [place for place in written.positions if place[2] not in (None, 0.0)]
        if all(z is None for _, _, z in places) and invented:
            found["height"] = "%s has one" % (invented[0],)
    there = Places(written.positions, step, 6e-4)
    back = Places(places, step, 6e-4)
    missing = [place for place in dict.fromkeys(places) if not there.near(place)]
    extra = [place for place in dict.fromkeys(written.positions) if not back.near(place)]
    if missing or extra:
        found["position"] = "%d missing, %d more, %s" % (len(missing), len(extra), (missing + extra)[0])
    if key in ("ascii", "shp", "tab", "gpkg", "geojson", "gocad", "kml", "fgb", "gml", "sqlite", "pgdump", "ply", "vtp"):
        columns = {name.lower(): values for name, values in written.values.items()}
        for name, values in source.values.items():
            if not name or all(canonical(value) is None for value in values):
                continue
            column = columns.get(renamed.get(name, name).lower())
            if column is None and name.lower() in ("x", "y", "z"):  # told once for all of them
                column = columns.get(name.lower() + " (attribute)")
            if column is None:
                found.setdefault("attribute", name)
            elif len(column) == len(values) and not same_values(values, column, {"half": 6e-4, "null": True}):
                found.setdefault("value", name)
    if key in ("shp", "tab", "gpkg", "geojson", "fgb", "gml", "sqlite", "pgdump", "geotiff", "cog", "arcgrid", "netcdf") and source.system is not None:
        if written.system is None:
            found["system"] = "none was read"
    return found


def export(program, path, key, folder):
    """Runs an export. Returns the written files, the findings and the complaint."""
    extension = EXTENSIONS.get(key, key)
    report = os.path.join(folder, "report.json")
    result = subprocess.run([program, "export", path, "--format", key, "--output",
                             os.path.join(folder, "out." + extension), "--verify", "--report", report],
                            capture_output=True, text=True)
    files = []
    findings = []
    if os.path.exists(report):
        with open(report, encoding="utf-8") as text:
            told = json.load(text)
        findings = told.get("findings", [])
        files = [file["path"] for file in told.get("files", []) if file.get("outcome") == "written"]
    complaint = "" if result.returncode == 0 else (result.stderr.strip().splitlines() or ["?"])[0]
    return files, findings, complaint


def compare(program, path, source, key):
    """"equal", "told", "refused" or "SILENT", and what about it."""
    with tempfile.TemporaryDirectory() as folder:
        files, findings, complaint = export(program, path, key, folder)
        if complaint:
            return "refused", complaint
        written = readers.Facts()
        try:
            for file in files:
                one = OUTPUT_READERS[key](file)
                written.positions += one.positions
                written.system = written.system or one.system
                for name, values in one.values.items():
                    written.values.setdefault(name, []).extend(values)
        except ValueError as error:
            return "SILENT", "rows: %s" % error
        renamed = {}
        for finding in findings:
            words = finding["example"]
            for between in (" is the field ", " is written as "):
                if finding["kind"] == "renamed" and between in words:
                    renamed[words.split(between)[0].replace("attribute ", "", 1)] = words.split(between)[1]
        found = differences(source, written, key, renamed)
    kinds = [finding["kind"] for finding in findings]
    silent = ["%s: %s" % item for item in found.items()
              if not any(word in kind for kind in kinds for word in TELLS[item[0]])]
    if silent:
        return "SILENT", "; ".join(silent)
    return ("told", ", ".join(sorted(set(kinds)))) if found else ("equal", "")


def data_sets(folder, sample):
    paths = sorted(path for path in glob.glob(os.path.join(folder, "*", "*"))
                   if os.path.splitext(path)[1].lower() in SOURCE_READERS)
    sets = []
    for path in paths:
        if sample and os.path.basename(path) not in SAMPLE:
            continue
        try:
            facts = SOURCE_READERS[os.path.splitext(path)[1].lower()](path)
        except (ValueError, RuntimeError):
            continue
        if facts.positions:
            sets.append((path, facts))
    return sets


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("program")
    parser.add_argument("data")
    parser.add_argument("--sample", action="store_true")
    parser.add_argument("--write")
    parser.add_argument("--formats", type=lambda keys: keys.split(","), default=FORMATS)
    options = parser.parse_args()
    sets = data_sets(options.data, options.sample)
    if not sets:
        print("no data: skipped")
        return 77
    lines = ["| data set | " + " | ".join(options.formats) + " |", "|---" * (len(options.formats) + 1) + "|"]
    count = {"equal": 0, "told": 0, "refused": 0, "SILENT": 0}
    for path, source in sets:
        cells = []
        for key in options.formats:
            verdict, text = compare(options.program, path, source, key)
            count[verdict] += 1
            cells.append(verdict)
            if verdict == "SILENT":
                print("%s as %s: %s" % (os.path.basename(path), key, text), flush=True)
        folder, name = os.path.split(path)
        lines.append("| %s/%s | %s |" % (os.path.basename(folder), name, " | ".join(cells)))
    summary = "%d pairs: %d equal, %d told, %d refused, %d silent" % (
        sum(count.values()), count["equal"], count["told"], count["refused"], count["SILENT"])
    print(summary)
    if options.write:
        with open(options.write, "w", encoding="utf-8") as text:
            text.write("# Equal, or told\n\nMade by `tests/truth/truth.py PROGRAM DATA --write docs/truth.md`: every data "
                       "set that it can read goes\nthrough every format with `--verify`, and is compared with the source "
                       "by readers that are not the program's\n(GDAL/OGR, ezdxf, VTK, plain parsers). \"told\": it differs, "
                       "and findings of the report speak of each kind of\ndifference; \"refused\": no file was written, "
                       "and the error says why. " + summary + ".\n\nCompared: the set of positions, heights, the values "
                       "of each attribute in any order where a file has one for each of\nthe source, and that a "
                       "coordinate system is there; of cell grids the depths. Not compared: which positions belong\n"
                       "together, the order, colours, and names of objects.\n\n")
            text.write("\n".join(lines) + "\n")
    return 1 if count["SILENT"] else 0


if __name__ == "__main__":
    sys.exit(main())
