# SPDX-License-Identifier: MIT
"""Readers of data sets and of written files, independent of the program: GDAL/OGR, ezdxf and plain parsers."""
import csv
import itertools
import math
import re
import sqlite3
import struct
import xml.etree.ElementTree as xml
import zipfile

from osgeo import gdal, ogr, osr

gdal.UseExceptions()


class Facts:
    """What a file holds: positions, with a height or None, and the values of each attribute, None for a missing one."""

    def __init__(self):
        self.positions = []
        self.values = {}
        self.centres = []  # of cells
        self.system = None  # osr.SpatialReference
        self.per_feature = True  # values are those of features, not of vertices

    def add_row(self, names, values):
        for name, value in zip(names, values):
            self.values.setdefault(name, []).append(value)


def system_of(reference):
    """The system, or None for one that stands for none."""
    if reference is None or reference.IsLocal() or (reference.GetName() or "").startswith("Undefined"):
        return None
    system = reference.Clone()
    system.SetAxisMappingStrategy(osr.OAMS_TRADITIONAL_GIS_ORDER)
    return system


def number(text):
    try:
        value = float(text)
    except (TypeError, ValueError):
        return None
    return value if math.isfinite(value) else None


def _walk(geometry, positions):
    if geometry.GetGeometryCount() == 0:
        high = geometry.GetCoordinateDimension() == 3
        for index in range(geometry.GetPointCount()):
            positions.append((geometry.GetX(index), geometry.GetY(index), geometry.GetZ(index) if high else None))
    for index in range(geometry.GetGeometryCount()):
        _walk(geometry.GetGeometryRef(index), positions)


def _value(feature, index, kind):
    if not feature.IsFieldSetAndNotNull(index):
        return None
    if kind in (ogr.OFTInteger, ogr.OFTInteger64):
        return feature.GetFieldAsInteger64(index)
    if kind == ogr.OFTReal:
        return number(feature.GetFieldAsDouble(index))
    if kind in (ogr.OFTDate, ogr.OFTDateTime):
        return feature.GetFieldAsString(index).replace("/", "-").replace(" ", "T")
    return feature.GetFieldAsString(index)


def vector(path):
    facts = Facts()
    dataset = gdal.OpenEx(path, gdal.OF_VECTOR)
    for number_of in range(dataset.GetLayerCount()):
        layer = dataset.GetLayer(number_of)
        if layer.GetName() == "layer_styles":
            continue
        facts.system = facts.system or system_of(layer.GetSpatialRef())
        fields = [layer.GetLayerDefn().GetFieldDefn(i) for i in range(layer.GetLayerDefn().GetFieldCount())]
        names = [field.GetName() for field in fields]
        for feature in layer:
            if feature.GetGeometryRef() is not None:
                _walk(feature.GetGeometryRef(), facts.positions)
            facts.add_row(names, [_value(feature, i, field.GetType()) for i, field in enumerate(fields)])
    return facts


def database(path):
    """Of SQLite, by SQLite itself and a reader of WKB."""
    facts = Facts()
    with sqlite3.connect(path) as connection:
        tables = connection.execute("SELECT f_table_name, f_geometry_column, srtext FROM geometry_columns "
                                    "LEFT JOIN spatial_ref_sys USING (srid)").fetchall()
        for table_name, column, definition in tables:
            rows = connection.execute('SELECT * FROM "%s"' % table_name)
            names = [entry[0] for entry in rows.description]
            others = [i for i, name in enumerate(names) if name not in ("ogc_fid", column)]
            for row in rows:
                _walk(ogr.CreateGeometryFromWkb(row[names.index(column)]), facts.positions)
                facts.add_row([names[i] for i in others], [row[i] for i in others])
            if definition:
                facts.system = system_of(osr.SpatialReference(definition))
    return facts


def dump(path):
    """Of a PostGIS dump, the lines of COPY as the server's documentation has them."""
    facts = Facts()
    with open(path, encoding="utf-8", newline="\n") as text:
        content = text.read()
    marks = {"n": "\n", "t": "\t", "r": "\r"}
    unescape = lambda value: re.sub(r"\\(.)", lambda match: marks.get(match[1], match[1]), value, flags=re.S)
    system = re.search(r"AddGeometryColumn\(.*?,(-?\d+),", content)
    if system and int(system[1]) > 0:
        facts.system = osr.SpatialReference()
        facts.system.ImportFromEPSG(int(system[1]))
    for names, rows in re.findall(r"^COPY .*? \((.*)\) FROM STDIN;\n(.*?)^\\\.$", content, re.S | re.M):
        names = [name.replace('""', '"') for name in re.findall(r'"((?:[^"]|"")*)"', names)]
        for row in re.split(r"(?<!\\)((?:\\\\)*)\n", rows)[:-1:2]:
            values = re.split(r"(?<!\\)\t", row)
            _walk(ogr.CreateGeometryFromWkb(plain_wkb(bytes.fromhex(values[0]))), facts.positions)
            facts.add_row(names[1:], [None if value == "\\N" else unescape(value).replace("/", "-")
                                      if re.fullmatch(r"\d{4}/\d\d/\d\d", value) else unescape(value)
                                      for value in values[1:]])
    return facts


def plain_wkb(data):
    """Without the number of the system that extended WKB may have."""
    kind = struct.unpack_from("<I", data, 1)[0]
    if kind & 0x20000000:
        data = data[:1] + struct.pack("<I", kind & ~0x20000000) + data[9:]
    return data


def mapinfo(path):
    """Heights of points are in a field."""
    facts = vector(path)
    heights = facts.values.pop("z", None)
    if heights and len(heights) == len(facts.positions):
        facts.positions = [(x, y, z) for (x, y, _), z in zip(facts.positions, heights)]
    return facts


def table(path):
    facts = Facts()
    with open(path, encoding="utf-8-sig", newline="") as text:
        rows = [row for row in csv.reader(text) if row]
    names = [name.strip() for name in rows[0]]
    lower = [name.lower() for name in names]
    if not {"x", "y"} <= set(lower):
        raise ValueError("no x and y")
    axes = [lower.index(axis) if axis in lower else None for axis in "xyz"]
    others = [i for i in range(len(names)) if i not in axes]
    for row in rows[1:]:
        if len(row) != len(names):
            raise ValueError("a row of %d fields instead of %d: %s" % (len(row), len(names), row))
        place = [number(row[i]) if i is not None else None for i in axes]
        if place[0] is None or place[1] is None:
            continue
        facts.positions.append(tuple(place))
        facts.add_row([names[i] for i in others], [row[i] if row[i] != "" else None for i in others])
    return facts


def raster(path):
    facts = Facts()
    dataset = gdal.Open(path)
    band = dataset.GetRasterBand(1)
    values = band.ReadAsArray()
    nodata = band.GetNoDataValue()
    t = dataset.GetGeoTransform()
    for row in range(dataset.RasterYSize):
        for column in range(dataset.RasterXSize):
            value = float(values[row][column])
            if math.isfinite(value) and abs(value) < 1e30 and (nodata is None or value != nodata):
                across, down = column + 0.5, row + 0.5
                facts.positions.append((t[0] + across * t[1] + down * t[2], t[3] + across * t[4] + down * t[5], value))
    facts.system = system_of(dataset.GetSpatialRef())
    return facts


def grid(facts, columns, rows, west, south, dx, dy, values, is_null):
    """Adds the nodes of a grid whose rows run from the south."""
    if len(values) != columns * rows:
        raise ValueError("%d values for %d x %d nodes" % (len(values), columns, rows))
    for index, value in enumerate(values):
        if not is_null(value):
            row, column = divmod(index, columns)
            facts.positions.append((west + column * dx, south + row * dy, value))
    return facts


def surfer(path):
    """The three kinds of Surfer grids."""
    with open(path, "rb") as file:
        data = file.read()
    blank = lambda value: value >= 1.70141e38
    if data[:4] == b"DSRB":
        rows, columns, west, south, dx, dy = struct.unpack_from("<2i4d", data, 20)
        values = struct.unpack_from("<%dd" % (rows * columns), data, 100)
        return grid(Facts(), columns, rows, west, south, dx, dy, values, blank)
    if data[:4] == b"DSBB":
        columns, rows, west, east, south, north = struct.unpack_from("<2h4d", data, 4)
        values = struct.unpack_from("<%df" % (rows * columns), data, 56)
    else:
        words = data.decode("ascii").split()
        columns, rows = int(words[1]), int(words[2])
        west, east, south, north = [float(word) for word in words[3:7]]
        values = [float(word) for word in words[9:]]
    return grid(Facts(), columns, rows, west, south, (east - west) / (columns - 1), (north - south) / (rows - 1),
                values, blank)


def arcgrid(path):
    with open(path, encoding="ascii") as text:
        words = text.read().split()
    head = dict(zip((word.lower() for word in words[0:12:2]), (float(word) for word in words[1:12:2])))
    columns, rows = int(head["ncols"]), int(head["nrows"])
    values = [float(word) for word in words[12:]]
    southward = [value for row in range(rows - 1, -1, -1) for value in values[row * columns:(row + 1) * columns]]
    step = head["cellsize"]
    facts = grid(Facts(), columns, rows, head["xllcorner"] + step / 2, head["yllcorner"] + step / 2, step, step,
                 southward, lambda value: value == head["nodata_value"])
    system = osr.SpatialReference()
    try:
        with open(path[:-3] + "prj", encoding="utf-8") as text:
            system.ImportFromESRI([text.read()])
            facts.system = system_of(system)
    except OSError:
        pass
    return facts


def gocad(path):
    facts = Facts()
    sign = 1.0
    names = []
    nulls = []
    with open(path, encoding="utf-8") as lines:
        for line in lines:
            words = line.split()
            if not words:
                continue
            if words[0] == "GOCAD":
                sign, names, nulls = 1.0, [], []
            elif words[0] == "ZPOSITIVE":
                sign = -1.0 if words[1] == "Depth" else 1.0
            elif words[0] == "PROPERTIES":
                names = [word.strip('"') for word in words[1:]]
            elif words[0] == "NO_DATA_VALUES":
                nulls = [float(word) for word in words[1:]]
            elif words[0] in ("VRTX", "PVRTX"):
                place = [float(word) for word in words[2:5]]
                facts.positions.append((place[0], place[1], sign * place[2]))
                values = [float(word) for word in words[5:5 + len(names)]]
                facts.add_row(names, [None if i < len(nulls) and v == nulls[i] else v for i, v in enumerate(values)])
            elif words[0] == "WREF":
                reference = [float(word) for word in words[1:3]]
            elif words[0] == "PATH":
                depth, height, east, north = [float(word) for word in words[1:5]]
                facts.positions.append((reference[0] + east, reference[1] + north, sign * height))
                facts.add_row(["MD"], [depth])
    facts.per_feature = False
    return facts


def off(path):
    facts = Facts()
    with open(path, encoding="utf-8") as lines:
        words = [line.split("#")[0].split() for line in lines]
    words = [line for line in words if line]
    count = int(words[1][0])
    facts.positions = [tuple(float(word) for word in line[:3]) for line in words[2:2 + count]]
    return facts


def zmap(path):
    facts = Facts()
    with open(path, encoding="utf-8") as text:
        lines = [line for line in text if not line.startswith("!")]
    null = float(lines[1].split(",")[1])
    rows, columns, west, east, south, north = [float(word) for word in lines[2].split(",")]
    rows, columns = int(rows), int(columns)
    values = [float(word) for line in lines[5:] for word in line.split()]
    for index, value in enumerate(values):
        column, row = divmod(index, rows)
        if value != null:
            facts.positions.append((west + column * (east - west) / max(columns - 1, 1),
                                    north - row * (north - south) / max(rows - 1, 1), value))
    return facts


def kml(path):
    facts = Facts()
    facts.per_feature = True
    if path.endswith(".kmz"):
        with zipfile.ZipFile(path) as archive:
            root = xml.fromstring(archive.read("doc.kml"))
    else:
        root = xml.parse(path).getroot()
    for element in root.iter():
        tag = element.tag.split("}")[-1]
        if tag == "coordinates":
            for word in (element.text or "").split():
                numbers = [float(part) for part in word.split(",")]
                facts.positions.append((numbers[0], numbers[1], numbers[2] if len(numbers) > 2 else None))
        elif tag == "Placemark":
            text = "".join(child.text or "" for child in element if child.tag.split("}")[-1] == "description")
            for name, value in re.findall(r"<tr><td>(.*?)</td><td>(.*?)</td></tr>", text, re.S):
                unescape = lambda t: t.replace("&lt;", "<").replace("&gt;", ">").replace("&amp;", "&")
                facts.values.setdefault(unescape(name), []).append(unescape(value))
    return facts


def dxf(path):
    import ezdxf

    facts = Facts()
    for entity in ezdxf.readfile(path).modelspace():
        kind = entity.dxftype()
        if kind == "POINT":
            facts.positions.append(tuple(entity.dxf.location))
        elif kind == "POLYLINE":
            facts.positions += [tuple(vertex.dxf.location) for vertex in entity.vertices]
        elif kind == "3DFACE":
            facts.positions += [tuple(corner) for corner in entity.wcs_vertices()]
    return facts


def _deck_numbers(words, keyword):
    """The numbers of a keyword, repeats written out."""
    numbers = []
    for word in words[words.index(keyword) + 1:]:
        if word.startswith("/"):
            break
        count, _, value = word.rpartition("*")
        numbers += [float(value)] * int(count or 1)
    return numbers


def _centres(size, pillars, depths):
    """The means of the corners of each cell, heights up."""
    columns, rows, layers = size
    centres = []
    for k, j, i in itertools.product(range(layers), range(rows), range(columns)):
        corners = []
        for low, back, right in itertools.product((0, 1), repeat=3):
            depth = depths[((2 * k + low) * 2 * rows + 2 * j + back) * 2 * columns + 2 * i + right]
            x0, y0, z0, x1, y1, z1 = pillars[6 * ((j + back) * (columns + 1) + i + right):][:6]
            share = (depth - z0) / (z1 - z0) if z1 != z0 else 0.0
            corners.append((x0 + share * (x1 - x0), y0 + share * (y1 - y0), -depth))
        centres.append(tuple(sum(axis) / 8 for axis in zip(*corners)))
    return centres


def grdecl(path):
    """The depths of corners as heights; where they are is left aside. The centres of cells."""
    facts = Facts()
    words = []
    with open(path, encoding="latin-1") as lines:
        for line in lines:
            words += line.split("--")[0].split()
    if "ZCORN" not in words:
        raise ValueError("no ZCORN")
    depths = _deck_numbers(words, "ZCORN")
    facts.positions = [(-depth, 0.0, -depth) for depth in depths]
    size = next((words[words.index(key) + 1:][:3] for key in ("SPECGRID", "DIMENS") if key in words), None)
    if size and "COORD" in words:
        facts.centres = _centres([int(word) for word in size], _deck_numbers(words, "COORD"), depths)
    if "MAPAXES" in words:
        x2, y2, x0, y0, x1, y1 = _deck_numbers(words, "MAPAXES")
        wide = math.hypot(x1 - x0, y1 - y0)
        deep = math.hypot(x2 - x0, y2 - y0)
        facts.centres = [(x0 + x * (x1 - x0) / wide + y * (x2 - x0) / deep,
                          y0 + x * (y1 - y0) / wide + y * (y2 - y0) / deep, z) for x, y, z in facts.centres]
    return facts


def _vtk(reader, path):
    complaints = []
    reader.AddObserver("ErrorEvent", lambda *about: complaints.append(about))
    reader.SetFileName(path)
    reader.Update()
    if complaints or reader.GetOutput().GetNumberOfPoints() == 0:
        raise ValueError("VTK does not read it")
    return reader.GetOutput()


def _vtk_values(facts, data):
    for index in range(data.GetNumberOfArrays()):
        array = data.GetAbstractArray(index)
        if array.GetNumberOfComponents() == 1:
            values = [array.GetValue(i) for i in range(array.GetNumberOfValues())]
            facts.values[array.GetName()] = [None if value == "" or value != value else value for value in values]


def vtk_surface(path):
    import vtk

    facts = Facts()
    data = _vtk(vtk.vtkXMLPolyDataReader(), path)
    facts.positions = [data.GetPoint(i) for i in range(data.GetNumberOfPoints())]
    _vtk_values(facts, data.GetCellData())
    _vtk_values(facts, data.GetPointData())
    facts.per_feature = False
    return facts


def vtk_image(path):
    import vtk

    facts = Facts()
    data = _vtk(vtk.vtkXMLImageDataReader(), path)
    heights = data.GetPointData().GetArray("elevation")
    for i in range(data.GetNumberOfPoints()):
        if math.isfinite(heights.GetValue(i)):
            facts.positions.append(data.GetPoint(i)[:2] + (heights.GetValue(i),))
    return facts


def vtk_cells(path):
    """The heights of corners; where they are is left aside, as for GRDECL."""
    import vtk

    facts = Facts()
    data = _vtk(vtk.vtkXMLUnstructuredGridReader(), path)
    for i in range(data.GetNumberOfPoints()):
        z = data.GetPoint(i)[2]
        facts.positions.append((z, 0.0, z))
    return facts


def _irap(numbers, values, none):
    """Nodes of an Irap classic grid from the numbers of its head and its values, row by row."""
    facts = Facts()
    rows, step_x, step_y, west, south, columns, turned = numbers
    cosine, sine = math.cos(math.radians(turned)), math.sin(math.radians(turned))
    if len(values) != rows * columns:
        raise ValueError("%d values instead of %d" % (len(values), rows * columns))
    for node, value in enumerate(values):
        row, column = divmod(node, columns)
        if value < none:
            facts.positions.append((west + column * step_x * cosine - row * step_y * sine,
                                    south + column * step_x * sine + row * step_y * cosine, value))
    return facts


def irap(path):
    with open(path, encoding="ascii") as text:
        words = text.read().split()
    head = [float(word) for word in words[:19]]
    if head[0] != -996 or head[10:12] != [head[4], head[6]]:
        raise ValueError("not an Irap grid turned about its origin")
    return _irap((int(head[1]), head[2], head[3], head[4], head[6], int(head[8]), head[9]),
                 [float(word) for word in words[19:]], 9999900.0)


def irapbinary(path):
    with open(path, "rb") as file:
        data = file.read()
    records = []
    while data:
        size = struct.unpack(">i", data[:4])[0]
        if data[4 + size:8 + size] != data[:4]:
            raise ValueError("a record does not end with its size")
        records.append(data[4:4 + size])
        data = data[8 + size:]
    mark, rows, west, _, south, _, step_x, step_y = struct.unpack(">2i6f", records[0])
    columns, turned, about_x, about_y = struct.unpack(">i3f", records[1])
    if mark != -996 or (about_x, about_y) != (west, south):
        raise ValueError("not an Irap grid turned about its origin")
    values = [value for record in records[3:] for (value,) in struct.iter_unpack(">f", record)]
    return _irap((rows, step_x, step_y, west, south, columns, turned), values, 9999900.0)


def irappoints(path):
    facts = Facts()
    with open(path, encoding="ascii") as lines:
        for line in lines:
            place = tuple(float(word) for word in line.split())
            if len(place) == 3 and place != (999.0, 999.0, 999.0):
                facts.positions.append(place)
    return facts


def _stated_offset(text):
    found = re.search(r"offset to add: (\S+) (\S+) (\S+)", text)
    return tuple(float(word) for word in found.groups()) if found else (0.0, 0.0, 0.0)


def obj(path):
    facts = Facts()
    with open(path, encoding="utf-8") as lines:
        text = lines.read()
    offset = _stated_offset(text)
    for line in text.split("\n"):
        if line.startswith("v "):
            facts.positions.append(tuple(float(word) + by for word, by in zip(line.split()[1:], offset)))
    return facts


def stl(path):
    facts = Facts()
    with open(path, "rb") as data:
        title = data.read(80).decode("ascii")
        count = struct.unpack("<I", data.read(4))[0]
        for _ in range(count):
            numbers = struct.unpack("<12fH", data.read(50))
            for corner in (3, 6, 9):
                facts.positions.append(tuple(n + by for n, by in zip(numbers[corner:corner + 3], _stated_offset(title))))
    return facts


def ply(path):
    """Binary, vertices before faces."""
    facts = Facts()
    with open(path, "rb") as data:
        content = data.read()
    head, _, rows = content.partition(b"end_header\n")
    lines = head.decode("utf-8").split("\n")
    count = [int(line.split()[2]) for line in lines if line.startswith("element vertex")][0]
    properties = [line.split()[1:] for line in lines if line.startswith("property ") and "list" not in line]
    form = struct.Struct("<" + "".join({"double": "d", "uchar": "B"}[kind] for kind, _ in properties))
    names = [name for _, name in properties]
    offset = _stated_offset(head.decode("utf-8"))
    for index in range(count):
        row = form.unpack_from(rows, index * form.size)
        facts.positions.append(tuple(row[names.index(axis)] + by for axis, by in zip("xyz", offset)))
        facts.add_row(names, [None if value != value else value for value in row])
    facts.per_feature = False
    return facts
