// SPDX-License-Identifier: MIT
#pragma once

#include "export/ExportFormat.h"
#include "formats/off/OffExportSettings.h"
#include "model/kpFormatsExport.h"

namespace kpFormats
{

/// Geomview OFF: one mesh or grid surface per file, as vertices and triangles. The format knows no attributes; unit
/// and direction of z stand in comments.
/// The format: http://javaview.de/doc/userManual/formats/Format_Off.html, from the Geomview manual.
class KPFORMATS_EXPORT OffFormat : public ExportFormat
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
    OffExportSettings m_settings;
};

} // namespace kpFormats
