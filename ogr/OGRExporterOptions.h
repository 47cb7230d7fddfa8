// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

namespace kpBaseExport
{

/// What an OGRExporter does beyond its defaults. Everything is off in a new record.
struct OGRExporterOptions
{
    bool utf8 = false;            ///< names and texts in UTF-8 instead of Latin-1
    bool fieldSizes = false;      ///< create fields with the width, decimals and subtype of their OGRAttributeInfo
    bool closeRings = false;      ///< repeat a ring's first point at its end
    bool ringParts = false;       ///< polygons take their rings and holes from their parts; multi-polygons get geometry
    bool explicitNulls = false;   ///< an invalid value makes the field null instead of leaving it unset
    bool keepTypeTexts = false;   ///< leave the texts of a field "type" as they are, whatever the dip
    bool dates = false;           ///< fields of dates and times take texts in ISO 8601
    bool styleByGeometry = false; ///< lines get a pen and polygons a brush of the colour, instead of a symbol
    bool oneFile = false;         ///< write every layer into one data source at fileName
    bool transaction = false;     ///< write the features of a data source within one transaction, where it has them
    bool recordRefusals = false;  ///< keep a list of what the driver refused, and let a refused layer or close fail
    bool stopAtRefusal = false;   ///< let the first feature that the driver does not take fail the layer
    QStringList datasetOptions;   ///< creation options of the data source, "NAME=VALUE"
    QStringList layerOptions;     ///< creation options of the layer, "NAME=VALUE"
};

} // namespace kpBaseExport
