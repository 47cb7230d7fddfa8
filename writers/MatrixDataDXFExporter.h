// SPDX-License-Identifier: MIT
#pragma once

#include "core/MatrixDataExporter.h"

namespace kpBaseExport
{

/// Gives a DXF file its frame: fileOpen() leaves the file inside an open ENTITIES section, fileClose() closes the
/// section and the file. The entities between come from a derived writer. The file states no version, so readers
/// take it as release 12 (AutoCAD DXF Reference, "ASCII DXF Files").
class KPBASEEXPORTCORE_EXPORT MatrixDataDXFExporter : public MatrixDataExporter
{
public:
    explicit MatrixDataDXFExporter(const QString& file = QString());

    /// Checks the record and writes nothing.
    /// \throws std::logic_error as requireVertexData()
    void writeGeo(const GeoObject* object) override;
    bool fileOpen() override;
    void fileClose() override;
};

} // namespace kpBaseExport
