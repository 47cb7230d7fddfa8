// SPDX-License-Identifier: MIT
#pragma once

#include "model/kpFormatsExport.h"

#include <QString>

namespace kpFormats
{

/// Which reader takes a file. Gxf: GDAL, which does not take all of them. Other: GDAL decides.
enum class FileKind {
    Grid,
    ZMap,
    Off,
    Obj,
    Grdecl,
    Gocad,
    IrapGrid,
    IrapPolygons,
    IrapPoints,
    Stl,
    Ply,
    Vtk,
    Deviation,
    RmsWell,
    Las,
    Gxf,
    OpenTec,
    Table,
    Other
};

/// By what the file begins with, else by the ending of its name.
KPFORMATS_EXPORT FileKind fileKindOf(const QString& path);

} // namespace kpFormats
