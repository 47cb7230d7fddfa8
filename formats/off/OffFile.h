// SPDX-License-Identifier: MIT
#pragma once

#include "export/PreparedFile.h"
#include "formats/off/OffExportSettings.h"

namespace kpFormats
{

/// One OFF file, prepared.
class OffFile : public PreparedFile
{
public:
    /// \throws ExportError when the file is refused
    OffFile(PlannedFile file, const ExportSelection& selection, OffExportSettings settings, Findings& findings);

    qint64 write(const QString& path, Findings& findings, kpBase::AbstractProgress* progress) override;
    std::optional<Verification> verify(const QString& path) const override;

private:
    OffExportSettings m_settings;
};

} // namespace kpFormats
