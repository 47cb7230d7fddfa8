// SPDX-License-Identifier: MIT
#pragma once

#include "export/NumberColumns.h"
#include "export/PreparedFile.h"
#include "formats/grdecl/GrdeclExportSettings.h"

namespace kpFormats
{

/// One GRDECL file, prepared.
class GrdeclFile : public PreparedFile
{
public:
    /// \throws ExportError when the file is refused
    GrdeclFile(PlannedFile file, const ExportSelection& selection, GrdeclExportSettings settings, Findings& findings);

    qint64 write(const QString& path, Findings& findings, kpBase::AbstractProgress* progress) override;
    std::optional<Verification> verify(const QString& path) const override;

private:
    GrdeclExportSettings m_settings;
    OutputUnit m_unit;
    std::vector<NumberColumn> m_columns; ///< the properties
};

} // namespace kpFormats
