// SPDX-License-Identifier: MIT
#pragma once

#include "export/PreparedFile.h"
#include "formats/zmap/ZMapExportSettings.h"
#include "formats/zmap/ZMapGrid.h"

namespace kpFormats
{

/// One ZMap+ file, prepared.
class ZMapFile : public PreparedFile
{
public:
    /// What the nodes hold, gathered before anything is written.
    struct Survey
    {
        std::size_t width = 0; ///< columns that a value takes, one blank included
        qint64 equalToNull = 0;
    };

    /// \throws ExportError when the file is refused
    ZMapFile(PlannedFile file, const ExportSelection& selection, ZMapExportSettings settings, Findings& findings);

    qint64 write(const QString& path, Findings& findings, kpBase::AbstractProgress* progress) override;
    std::optional<Verification> verify(const QString& path) const override;

private:
    ZMapExportSettings m_settings;
    ZMapGrid m_grid;
    Survey m_survey;
};

} // namespace kpFormats
