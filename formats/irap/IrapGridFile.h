// SPDX-License-Identifier: MIT
#pragma once

#include "export/BlockWriter.h"
#include "export/PreparedFile.h"
#include "formats/irap/IrapGrid.h"
#include "model/ProgressTicker.h"

namespace kpFormats
{

/// One Irap classic grid, prepared.
class IrapGridFile : public PreparedFile
{
public:
    /// \throws ExportError when the file is refused
    IrapGridFile(PlannedFile file, const ExportSelection& selection, IrapForm form, IrapGridExportSettings settings,
                 Findings& findings);

    qint64 write(const QString& path, Findings& findings, kpBase::AbstractProgress* progress) override;
    std::optional<Verification> verify(const QString& path) const override;

private:
    /// False when the user has cancelled.
    bool writeText(BlockWriter& out, ProgressTicker& progress) const;
    bool writeBinary(BlockWriter& out, ProgressTicker& progress) const;

    IrapForm m_form;
    IrapGridExportSettings m_settings;
    IrapGrid m_grid;
};

} // namespace kpFormats
