// SPDX-License-Identifier: MIT
#pragma once

#include "export/Verification.h"
#include "formats/dxf/DxfSink.h"

#include <QString>

#include <gdal_priv.h>
#include <ogrsf_frmts.h>

namespace kpFormats
{

/// Reads a written drawing with GDAL and compares it, entity by entity, with what it is told it holds.
class DxfReadBack : public DxfSink
{
public:
    explicit DxfReadBack(const QString& path);

    Verification result();

    void setPen(const Pen& pen) override { m_pen = pen; }
    void comment(const std::string&) override {}
    void point(const Corner& place) override;
    void text(const Corner& place, double height, const std::string& text) override;
    void beginLine(bool closed) override;
    void positions(const PositionBlock& block) override;
    void endLine() override;
    void face(const std::array<Corner, 4>& corners) override;
    bool good() const override { return m_result.fault.isEmpty(); }

private:
    void fail(const QString& fault);
    bool nextEntity();
    void compare(const Corner& place);
    void finish();

    GDALDatasetUniquePtr m_dataset;
    OGRFeatureUniquePtr m_feature;
    Pen m_pen;
    std::vector<Corner> m_places; ///< of the entity, in order
    std::size_t m_next = 0;
    Corner m_first{};
    bool m_closed = false;
    Verification m_result;
};

} // namespace kpFormats
