// SPDX-License-Identifier: MIT
#pragma once

#include "export/NumberColumns.h"
#include "export/PreparedFile.h"
#include "formats/gocad/GocadExportSettings.h"
#include "formats/gocad/GocadWell.h"

namespace kpFormats
{

/// One GOCAD file, prepared.
class GocadFile : public PreparedFile
{
public:
    /// \throws ExportError when the file is refused
    GocadFile(PlannedFile file, const ExportSelection& selection, GocadExportSettings settings, Findings& findings);

    qint64 write(const QString& path, Findings& findings, kpBase::AbstractProgress* progress) override;
    std::optional<Verification> verify(const QString& path) const override;

private:
    GocadExportSettings m_settings;
    std::vector<GocadEntry> m_entries;
};

} // namespace kpFormats
