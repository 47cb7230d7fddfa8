// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

namespace kpBaseExport
{

/// What an OGRExporter does beyond its defaults. Everything is off in a new record.
struct OGRExporterOptions
{
    bool utf8 = false;           ///< names and texts in UTF-8 instead of Latin-1
    bool fieldSizes = false;     ///< create fields with the width and decimals of their OGRAttributeInfo
    bool closeRings = false;     ///< repeat a ring's first point at its end
    bool ringParts = false;      ///< polygons take their rings and holes from their parts; multi-polygons get geometry
    bool recordRefusals = false; ///< keep a list of what the driver refused, and let a refused layer or close fail
    QStringList datasetOptions;  ///< creation options of the data source, "NAME=VALUE"
    QStringList layerOptions;    ///< creation options of the layer, "NAME=VALUE"
};

} // namespace kpBaseExport
