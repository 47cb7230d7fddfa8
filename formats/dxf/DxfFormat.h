// SPDX-License-Identifier: MIT
#pragma once

#include "export/ExportFormat.h"
#include "formats/dxf/DxfExportSettings.h"
#include "model/kpFormatsExport.h"

namespace kpFormats
{

/// Drawings for CAD programs: DXF of release 12, which has neither attributes nor a coordinate system.
class KPFORMATS_EXPORT DxfFormat : public ExportFormat
{
public:
    FormatInfo info() const override;
    SettingsMap settings() override;
    std::vector<PlannedFile> plan(const ExportSelection& selection) const override;
    void foresee(const PlannedFile& file, const ExportSelection& selection, Findings& findings) const override;
    qint64 write(const PlannedFile& file, const QString& path, const ExportSelection& selection, Findings& findings,
                 kpBase::AbstractProgress* progress) override;
    Verification verify(const PlannedFile& file, const QString& path, const ExportSelection& selection) override;

private:
    DxfExportSettings m_settings;
};

} // namespace kpFormats
