#!/bin/sh
# SPDX-License-Identifier: MIT
# From file to file, kpexport beside ogr2ogr in one run, each run started anew, in turns. Prints seconds and ratios.
# The inputs are made here, the same each time.
set -eu
usage="usage: bench/file-to-file.sh [--runs N] [--rows N] [--only WORD] [--folder DIRECTORY] [KPEXPORT]
  --runs N     the median of N runs (1)
  --rows N     points, and a tenth as many lines and polygons (1000000)
  --only WORD  only lines of the table that hold the word, as \"points.csv\" or \"tab\"
  KPEXPORT     the program (build/release/bin/kpexport)"
root=$(cd "$(dirname "$0")/.." && pwd)
runs=1 rows=1000000 only= program=$root/build/release/bin/kpexport folder=${TMPDIR:-/tmp}/kpexport-file-to-file
while [ $# -gt 0 ]; do
    case $1 in
    --runs) runs=$2; shift 2 ;;
    --rows) rows=$2; shift 2 ;;
    --only) only=$2; shift 2 ;;
    --folder) folder=$2; shift 2 ;;
    -*) echo "$usage" >&2; exit 2 ;;
    *) program=$1; shift ;;
    esac
done
for tool in ogr2ogr python3 "$program"; do
    command -v "$tool" > /dev/null || { echo "$tool is missing" >&2; exit 2; }
done
export LC_ALL=C OGR_ENABLE_PARTIAL_REPROJECTION=NO
mkdir -p "$folder"
exec python3 - "$program" "$runs" "$rows" "$only" "$folder" <<'PYTHON'
import json, os, shutil, statistics, subprocess, sys, time

program, runs, rows, only, folder = sys.argv[1], int(sys.argv[2]), int(sys.argv[3]), sys.argv[4], sys.argv[5]


def numbers(seed):
    """Of 0 to 1, without a pattern and the same each time."""
    state = seed
    while True:
        state = (state * 6364136223846793005 + 1442695040888963407) % 2**64
        yield (state >> 33) / 2**31


def make(name, write):
    path = os.path.join(folder, f"{name.split('.')[0]}-{rows}.{name.split('.')[1]}")
    if not os.path.exists(path):
        write(path + ".new")
        os.rename(path + ".new", path)
    return path


def points(path):
    r = numbers(1)
    with open(path, "w") as out:
        out.write("X,Y,Z,Au\n")
        for _ in range(rows):
            out.write(f"{500000 + 5000 * next(r):.2f},{7500000 + 9000 * next(r):.2f},{-400 * next(r):.2f},"
                      f"{9 * next(r):.3f}\n")


def features(path, kind, properties, coordinates):
    with open(path, "w") as out:
        out.write('{"type":"FeatureCollection","crs":{"type":"name","properties":{"name":'
                  '"urn:ogc:def:crs:EPSG::32750"}},"features":[\n')
        for number in range(rows // 10):
            feature = {"type": "Feature", "properties": properties(number),
                       "geometry": {"type": kind, "coordinates": coordinates(number)}}
            out.write((",\n" if number else "") + json.dumps(feature, separators=(",", ":")))
        out.write("\n]}\n")


def lines(path):
    r = numbers(2)

    def walk(number):
        x, y = 500000 + 90000 * next(r), 7500000 + 90000 * next(r)
        return [[round(x + 10 * step + next(r), 2), round(y + 9 * step + next(r), 2), round(-400 * next(r), 2)]
                for step in range(20)]
    features(path, "LineString", lambda number: {"grade": round(9 * next(r), 3)}, walk)


def polygons(path):
    r = numbers(3)

    def ring(number):
        x, y = 500000 + 90000 * next(r), 7500000 + 90000 * next(r)
        corners = [[round(x + dx + next(r), 2), round(y + dy + next(r), 2)]
                   for dx, dy in ((0, 0), (40, 5), (60, 50), (30, 80), (-5, 40))]
        return [corners + corners[:1]]

    def values(number):
        real = {f"real{index}": round(100 * next(r), 3) for index in range(4)}
        whole = {f"whole{index}": int(1000 * next(r)) for index in range(3)}
        text = {f"text{index}": f"unit {int(50 * next(r))}" for index in range(3)}
        return {**real, **whole, **text}
    features(path, "Polygon", values, ring)


def gpkg(source, options):
    def write(path):
        subprocess.run(["ogr2ogr", "-f", "GPKG", path, source, *options], check=True, stderr=subprocess.DEVNULL)
    return write


def placed(path):
    with open(path, "w") as out:
        json.dump({"version": 1, "objects": [{"file": os.path.basename(table), "crs": "EPSG:32750"}]}, out)


table = make("points.csv", points)
columns = ["-oo", "X_POSSIBLE_NAMES=X", "-oo", "Y_POSSIBLE_NAMES=Y", "-oo", "Z_POSSIBLE_NAMES=Z",
           "-oo", "AUTODETECT_TYPE=YES", "-oo", "KEEP_GEOM_COLUMNS=NO", "-a_srs", "EPSG:32750"]
line_text, polygon_text = make("lines.geojson", lines), make("polygons.geojson", polygons)
inputs = {
    "points.csv": (table, columns, make("points.kpmodel", placed)),
    "points.gpkg": (make("points.gpkg", gpkg(table, columns)), [], None),
    "lines.gpkg": (make("lines.gpkg", gpkg(line_text, [])), [], None),
    "polygons.gpkg": (make("polygons.gpkg", gpkg(polygon_text, [])), [], None),
}
# The format, its extension and goal, ogr2ogr's driver and what that is asked for.
formats = [
    ("ascii", "csv", 4, "CSV", ["-lco", "GEOMETRY=AS_XYZ"]),
    ("kml", "kml", 4, "KML", []),
    ("dxf", "dxf", 4, "DXF", []),
    ("shp", "shp", 2, "ESRI Shapefile", []),
    ("tab", "tab", 2, "MapInfo File", []),
    ("gpkg", "gpkg", 2, "GPKG", []),
    ("geojson", "geojson", 2, "GeoJSON", ["-lco", "RFC7946=YES"]),
    ("fgb", "fgb", 2, "FlatGeobuf", []),
    ("gml", "gml", 2, "GML", []),
    ("sqlite", "sqlite", 2, "SQLite", ["-dsco", "SPATIALITE=NO"]),
    ("pgdump", "sql", 2, "PGDUMP", []),
]


def seconds(command, target):
    shutil.rmtree(target, ignore_errors=True)
    os.mkdir(target)
    begin = time.monotonic()
    done = subprocess.run(command, stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, text=True)
    used = time.monotonic() - begin
    size = sum(os.path.getsize(os.path.join(target, name)) for name in os.listdir(target))
    shutil.rmtree(target)
    return (used, size) if done.returncode == 0 and size > 0 else done.stderr.strip()[:200] or "nothing was written"


print(f"{'input':14} {'format':8} {'ours s':>7} {'theirs s':>8} {'ratio':>6} {'goal':>4} {'MB':>5} {'MB':>5}")
below = 0
for name, (source, opening, model) in inputs.items():
    for key, extension, goal, driver, theirs in formats:
        if only not in f"{name} {key}":
            continue
        if key == "ascii" and not name.startswith("points"):
            theirs = ["-lco", "GEOMETRY=AS_WKT"]
        target = os.path.join(folder, "out")
        out = os.path.join(target, f"out.{extension}")
        commands = [[program, "export", "--quiet", "--format", key, "--output", out, model or source],
                    ["ogr2ogr", "-f", driver, *opening, *theirs, out, source]]
        measured = [[seconds(command, target) for command in commands] for _ in range(runs)]
        faults = [result for pair in measured for result in pair if isinstance(result, str)]
        if faults:
            print(f"{name:14} {key:8} {faults[0]}")
            continue
        own, other = (statistics.median(pair[side][0] for pair in measured) for side in (0, 1))
        ratio = other / own
        below += ratio < goal
        print(f"{name:14} {key:8} {own:7.2f} {other:8.2f} {ratio:6.2f} {goal:4} {measured[0][0][1] / 1e6:5.0f} "
              f"{measured[0][1][1] / 1e6:5.0f}{'' if ratio >= goal else '  below the goal'}", flush=True)
print(f"{below} below the goal; median of {runs}; {rows} points, {rows // 10} lines and polygons")
PYTHON
