// SPDX-License-Identifier: MIT
#pragma once

#include "export/PreparedFile.h"
#include "formats/las/LasTable.h"

namespace kpFormats
{

/// One LAS file, prepared.
class LasWellFile : public PreparedFile
{
public:
    /// \throws ExportError when the well is refused
    LasWellFile(PlannedFile file, const ExportSelection& selection, LasExportSettings settings, Findings& findings);

    qint64 write(const QString& path, Findings& findings, kpBase::AbstractProgress* progress) override;
    std::optional<Verification> verify(const QString& path) const override;

private:
    LasExportSettings m_settings;
    OutputUnit m_unit;
    LasTable m_table;
};

} // namespace kpFormats
