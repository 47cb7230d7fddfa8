#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Prints what VTK itself reads in a file (Debian: python3-vtk9): points, cells and every array.

usage: dump_vtk.py FILE
Exits 77 when VTK is not installed, 1 when it complains of the file.
"""
import os
import sys

try:
    import vtk
except ImportError:
    print("python3-vtk9 is not installed", file=sys.stderr)
    sys.exit(77)

READERS = {".vtp": vtk.vtkXMLPolyDataReader, ".vtu": vtk.vtkXMLUnstructuredGridReader, ".vti": vtk.vtkXMLImageDataReader,
           ".ply": vtk.vtkPLYReader, ".stl": vtk.vtkSTLReader, ".obj": vtk.vtkOBJReader}


def texts(array):
    if array.IsA("vtkStringArray"):
        return [repr(array.GetValue(i)) for i in range(array.GetNumberOfValues())]
    return ["%.17g" % array.GetComponent(i, j) for i in range(array.GetNumberOfTuples())
            for j in range(array.GetNumberOfComponents())]


def dump(what, data):
    for index in range(data.GetNumberOfArrays()):
        array = data.GetAbstractArray(index)
        information = array.GetInformation()
        key = vtk.vtkDataArray.UNITS_LABEL()
        unit = " [%s]" % information.Get(key) if information.Has(key) else ""
        print("%s %s%s: %s" % (what, array.GetName(), unit, " ".join(texts(array))))


def turned(hexahedron):
    """Whether its first face, counter-clockwise, lies above its second."""
    corner = [hexahedron.GetPoints().GetPoint(i) for i in (0, 1, 3, 4)]
    a, b, c = [[far - near for far, near in zip(other, corner[0])] for other in corner[1:]]
    across = [a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]]
    return sum(x * y for x, y in zip(across, c)) < 0


def main(path):
    complaints = []
    reader = READERS[os.path.splitext(path)[1]]()
    reader.AddObserver("ErrorEvent", lambda *about: complaints.append(about))
    reader.SetFileName(path)
    reader.Update()
    data = reader.GetOutput()
    if complaints or data.GetNumberOfPoints() == 0:
        print("VTK does not read %s" % path, file=sys.stderr)
        return 1
    for point in range(data.GetNumberOfPoints()):
        print("point " + " ".join("%.17g" % number for number in data.GetPoint(point)))
    if not data.IsA("vtkImageData"):
        for index in range(data.GetNumberOfCells()):
            cell = data.GetCell(index)
            inside_out = " inside out" if cell.IsA("vtkHexahedron") and turned(cell) else ""
            print(cell.GetClassName()[3:].lower() + inside_out, *[cell.GetPointId(i) for i in range(cell.GetNumberOfPoints())])
    dump("at points", data.GetPointData())
    dump("at cells", data.GetCellData())
    dump("of all", data.GetFieldData())
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1]))
