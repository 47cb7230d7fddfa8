// SPDX-License-Identifier: MIT
#pragma once

#include "export/PreparedFile.h"
#include "formats/cellcenters/CellTable.h"

namespace kpFormats
{

/// One table of cell centres, prepared.
class CellCentersFile : public PreparedFile
{
public:
    /// \throws ExportError when the grid is refused
    CellCentersFile(PlannedFile file, const ExportSelection& selection, CellCentersExportSettings settings,
                    Findings& findings);

    qint64 write(const QString& path, Findings& findings, kpBase::AbstractProgress* progress) override;
    std::optional<Verification> verify(const QString& path) const override;

private:
    void appendHead(std::string& text) const;

    CellCentersExportSettings m_settings;
    CellTable m_table;
};

} // namespace kpFormats
