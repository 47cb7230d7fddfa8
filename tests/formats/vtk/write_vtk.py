#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Lets VTK itself write one small data set in each of its encodings (Debian: python3-vtk9).

usage: write_vtk.py FOLDER
Prints the names of the files. Exits 77 when VTK is not installed.
"""
import os
import sys

try:
    import vtk
except ImportError:
    print("python3-vtk9 is not installed", file=sys.stderr)
    sys.exit(77)


def data():
    """A face of four corners, a strip, a line, a vertex; attributes of each kind."""
    points = vtk.vtkPoints()
    points.SetDataTypeToDouble()
    for place in [(0, 0, 0), (1, 0, 0), (1, 1, 1), (0, 1, 0.1), (2, 0, 0), (2, 1, 5)]:
        points.InsertNextPoint(place)
    poly = vtk.vtkPolyData()
    poly.SetPoints(points)

    def cells(*lists):
        array = vtk.vtkCellArray()
        for corners in lists:
            array.InsertNextCell(len(corners))
            for corner in corners:
                array.InsertCellPoint(corner)
        return array

    poly.SetVerts(cells([5]))
    poly.SetLines(cells([0, 1, 2], [3, 4]))
    poly.SetPolys(cells([0, 1, 2, 3]))
    poly.SetStrips(cells([1, 4, 2, 5]))

    def add(to, array, name, values):
        array.SetName(name)
        for value in values:
            array.InsertNextValue(value)
        to.AddArray(array)
        return array

    grade = add(poly.GetPointData(), vtk.vtkDoubleArray(), "gra de", [0.1, 0.2, float("nan"), 1e300, -5, 6])
    grade.GetInformation().Set(vtk.vtkDataArray.UNITS_LABEL(), "g/t")
    add(poly.GetPointData(), vtk.vtkStringArray(), "rock", ["é a", "", "c", "d", "x\ny", "f"])
    add(poly.GetPointData(), vtk.vtkShortArray(), "n", [1, -2, 3, 4, 5, 6])
    normals = vtk.vtkFloatArray()
    normals.SetNumberOfComponents(3)
    add(poly.GetPointData(), normals, "v", [0.5 * i for i in range(18)])
    add(poly.GetCellData(), vtk.vtkIntArray(), "age", [7, 65, 65, 9, 9])
    return poly


def main(folder):
    poly = data()

    def xml(name, set_up):
        writer = vtk.vtkXMLPolyDataWriter()
        writer.SetFileName(os.path.join(folder, name))
        writer.SetInputData(poly)
        set_up(writer)
        writer.Write()
        print(name)

    def raw(writer):
        writer.SetEncodeAppendedData(0)

    def plain(writer):
        writer.SetCompressorTypeToNone()

    def big(writer):
        writer.SetByteOrderToBigEndian()
        writer.SetHeaderTypeToUInt64()

    xml("ascii.vtp", lambda w: w.SetDataModeToAscii())
    xml("binary.vtp", lambda w: (w.SetDataModeToBinary(), plain(w)))
    xml("binary-zlib.vtp", lambda w: w.SetDataModeToBinary())
    xml("appended.vtp", plain)
    xml("appended-zlib.vtp", lambda w: None)
    xml("raw.vtp", lambda w: (raw(w), plain(w), big(w)))
    xml("raw-zlib.vtp", lambda w: (raw(w), big(w), w.SetBlockSize(64)))
    for version in (42, 51):
        for kind in ("ascii", "binary"):
            writer = vtk.vtkPolyDataWriter()
            name = "%s-%d.vtk" % (kind, version)
            writer.SetFileName(os.path.join(folder, name))
            writer.SetInputData(poly)
            writer.SetFileVersion(version)
            writer.SetFileTypeToASCII() if kind == "ascii" else writer.SetFileTypeToBinary()
            writer.Write()
            print(name)
    append = vtk.vtkAppendFilter()
    append.AddInputData(poly)
    append.Update()
    writer = vtk.vtkXMLUnstructuredGridWriter()
    writer.SetFileName(os.path.join(folder, "cells.vtu"))
    writer.SetInputData(append.GetOutput())
    writer.Write()
    print("cells.vtu")
    writer = vtk.vtkUnstructuredGridWriter()
    writer.SetFileName(os.path.join(folder, "cells.vtk"))
    writer.SetInputData(append.GetOutput())
    writer.SetFileTypeToBinary()
    writer.Write()
    print("cells.vtk")


if __name__ == "__main__":
    main(sys.argv[1])
