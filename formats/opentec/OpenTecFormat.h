// SPDX-License-Identifier: MIT
#pragma once

#include "export/ExportFormat.h"
#include "formats/opentec/OpenTecExportSettings.h"
#include "model/kpFormatsExport.h"

namespace kpFormats
{

/// Cross-sections in the OpenTecLink text format, a file for each: its trace on the map and the lines drawn on it as
/// distances along the trace and depths.
class KPFORMATS_EXPORT OpenTecFormat : public ExportFormat
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
    /// The chosen sections, or none of a file that says which names there are not.
    std::vector<const ModelObject*> chosen(const ExportSelection& selection) const;
    /// Notes what the form of the file leaves out of the section.
    void noteForm(const ModelObject& object, Findings& findings) const;
    void requireNames(const PlannedFile& file, const ExportSelection& selection) const;
    const ModelObject& traceOf(const ModelObject& section, const ExportSelection& selection) const;

    OpenTecExportSettings m_settings;
};

} // namespace kpFormats
