#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Reads every quoted include and fails on an arrow that docs/architecture.md does not draw.

Also fails on a cycle, an unrooted include, a folder of sources that the table does not know, and on GDAL or Widgets
outside the rooms that may have them.
"""
import re
import sys
import tempfile
from pathlib import Path

# folder -> folders that it may include directly; the closure is allowed too.
FORMATS = ["ascii", "cellcenters", "deviation", "dxf", "gocad", "grdecl", "irap", "kml", "las", "obj", "off", "ogr",
           "opentec", "ply", "raster", "stl", "vtk", "zmap"]
ARROWS = {
    "host/data": [],
    "host/ui": ["host/data"],
    "core": ["host/data"],
    "core/saver": ["core", "host/ui"],
    "writers": ["core"],
    "ogr": ["core"],
    "wizard": ["core/saver", "forms"],
    "sheets": ["wizard", "forms"],
    "spec/layout": ["core"],
    "spec": ["wizard", "writers", "spec/layout", "forms"],
    "forms": [],
    "model": ["host/data"],
    "geo": ["model"],
    "readers": ["geo"],
    "export/platform": ["model"],
    "export": ["core", "geo", "export/platform"],
    "formats": [f"formats/{key}" for key in FORMATS],
    "pages": ["formats", "sheets", "spec"],
    "cli": ["formats"],
    "window": ["pages", "cli"],
    "bench": ["window"],
    "tests": ["window"],
}
# A format knows no other one.
ARROWS.update({f"formats/{key}": ["export", "readers", "writers", "ogr", "spec/layout"] for key in FORMATS})
WIDGETS_ALLOWED = {"host/ui", "core/saver", "wizard", "sheets", "spec", "pages", "window", "bench", "tests"}
GDAL_ALLOWED = {"ogr", "geo", "readers", "formats/dxf", "formats/kml", "formats/ogr", "formats/raster",
                "bench", "tests"}
GDAL = re.compile(r"^(gdal|ogr|cpl)[a-z_0-9]*\.h$")
WIDGETS = re.compile(
    r"^(QtWidgets.*|QWidget|QDialog|QApplication|QMessageBox|QFileDialog|Q[A-Za-z]*(View|Widget|Button|Box|Edit|Label|Layout))$")
INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^">]+)[">]', re.M)


def closure(folder):
    seen, todo = set(), [folder]
    while todo:
        here = todo.pop()
        if here not in seen:
            seen.add(here)
            todo.extend(ARROWS[here])
    return seen


def folder_of(path):
    parts = path.split("/")
    for length in (2, 1):
        name = "/".join(parts[:length])
        if len(parts) > length and name in ARROWS:
            return name
    return None


def check(root):
    wrong = []
    for path in sorted(root.rglob("*")):
        name = path.relative_to(root).as_posix()
        if path.suffix not in (".h", ".cpp") or name.split("/")[0] in ("build", "examples", "out"):
            continue
        here = folder_of(name)
        if here is None:
            wrong.append(f"{name}: lies in no folder of the table")
            continue
        allowed = closure(here)
        for quote, target in INCLUDE.findall(path.read_text(encoding="utf-8")):
            if quote == "<":
                if GDAL.match(target) and here not in GDAL_ALLOWED:
                    wrong.append(f"{name}: includes <{target}>; {here} has no GDAL")
                if here not in WIDGETS_ALLOWED and WIDGETS.match(target):
                    wrong.append(f"{name}: includes <{target}>; {here} has no Widgets")
            elif target.startswith("ui_"):
                if "forms" not in allowed:
                    wrong.append(f"{name}: includes the form {target}")
                elif path.suffix == ".h" and target != "ui_QExportSpecification.h":
                    wrong.append(f"{name}: a public header includes the form {target}")
            elif target.endswith(".moc") and "/" not in target:
                continue
            elif (there := folder_of(target)) is None:
                wrong.append(f"{name}: include \"{target}\" is not rooted")
            elif there not in allowed:
                wrong.append(f"{name}: {here} may not include {there} (\"{target}\")")
            elif not (root / target).exists():
                wrong.append(f"{name}: \"{target}\" does not exist")
    return wrong


def cycles():
    """Rooms that reach themselves: the table itself must not draw one."""
    return [room for room in ARROWS if any(room in closure(below) for below in ARROWS[room])]


def self_test():
    assert closure("writers") == {"writers", "core", "host/data"}
    assert not cycles(), cycles()
    with tempfile.TemporaryDirectory() as folder:
        root = Path(folder)
        (root / "core").mkdir()
        (root / "wizard").mkdir()
        (root / "wizard/Page.h").write_text("#pragma once\n")
        (root / "core/Bad.cpp").write_text(
            '#include "wizard/Page.h"\n#include "Page.h"\n#include <ogr_api.h>\n#include <QWidget>\n')
        assert len(check(root)) == 4, check(root)


if __name__ == "__main__":
    self_test()
    faults = check(Path(sys.argv[1]))
    print("\n".join(faults))
    sys.exit(1 if faults else 0)
