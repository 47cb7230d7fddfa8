// SPDX-License-Identifier: MIT
#pragma once

#include "ogr/OGRExporter.h"
#include "ogr/OGRMessageCatcher.h"

#include <string>
#include <vector>

namespace kpBaseExport
{

/// What the operations on features need to know of a layer, looked up once.
struct OGRExporter::LayerColumns
{
    struct Column
    {
        OGRFieldType type;
        bool isDip;
        bool isType;
        int field; ///< index in the layer's definition; -1 when the driver refused the field
    };

    std::vector<Column> columns;
    int colour = -1; ///< index of the field "colorval"
};

/// The state of one write().
struct OGRExporter::Run
{
    explicit Run(bool recording)
        : messages(recording)
    {
    }

    OGRMessageCatcher messages;
    DataSource shared; ///< with OGRExporterOptions::oneFile, the one data source
    LayerColumns columns;
    OGRwkbGeometryType type = wkbUnknown;
    QString layerName;
    int number = 0; ///< of the feature, from 1
    bool refused = false;
    std::string text; ///< of the field being set
};

} // namespace kpBaseExport
