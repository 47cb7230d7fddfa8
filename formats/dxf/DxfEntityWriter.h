// SPDX-License-Identifier: MIT
#pragma once

#include "formats/dxf/DxfSink.h"
#include "writers/MatrixDataDXFExporter.h"

namespace kpFormats
{

/// Writes entities of release 12 into the frame of a DXF file (AutoCAD DXF Reference, "ENTITIES Section"): POINT,
/// POLYLINE with VERTEX and SEQEND, 3DFACE and TEXT. Streams in blocks.
class DxfEntityWriter : public kpBaseExport::MatrixDataDXFExporter, public DxfSink
{
public:
    explicit DxfEntityWriter(const QString& file = QString());

    void setPen(const Pen& pen) override;
    void comment(const std::string& text) override;
    void point(const Corner& place) override;
    void text(const Corner& place, double height, const std::string& text) override;
    void beginLine(bool closed) override;
    void positions(const PositionBlock& block) override;
    void endLine() override;
    void face(const std::array<Corner, 4>& corners) override;
    bool good() const override { return !writeFailed(); }

private:
    void appendGroup(const char* code, double value, int decimals);
    void appendPlace(const Corner& place);

    Pen m_pen;
    std::string m_penGroups;   ///< layer and colour
    std::string m_vertexStart; ///< of a vertex up to its x
};

} // namespace kpFormats
