// SPDX-License-Identifier: MIT
#pragma once

#include "export/ExportSelection.h"
#include "export/Verification.h"
#include "formats/kml/KmlExportSettings.h"

#include <functional>

namespace kpFormats
{

/// Reads a KML document with GDAL and compares its folders, every placemark, its name, colour, attributes and positions
/// with the objects. Of a picture the box and the size are compared, not what it shows.
/// \a archived: the document lies in a .kmz. \a pictureName: how the picture of that number, from 1, is named.
Verification verifyKml(const std::vector<const ModelObject*>& objects, const QString& path, bool archived,
                       const ExportSelection& selection, const KmlExportSettings& settings,
                       const std::function<QString(int)>& pictureName);

} // namespace kpFormats
