// SPDX-License-Identifier: MIT
#pragma once

#include "export/PreparedFile.h"
#include "formats/ascii/AsciiExportSettings.h"
#include "formats/ascii/AsciiRecord.h"

namespace kpFormats
{

/// One ASCII file, prepared.
class AsciiFile : public PreparedFile
{
public:
    /// \throws ExportError when the file is refused
    AsciiFile(PlannedFile file, const ExportSelection& selection, AsciiExportSettings settings, Findings& findings);

    qint64 write(const QString& path, Findings& findings, kpBase::AbstractProgress* progress) override;
    std::optional<Verification> verify(const QString& path) const override;

private:
    AsciiExportSettings m_settings;
    AsciiTable m_table;
    bool m_laidOut = true; ///< false: columns are as wide as their values, which writing looks at first
};

} // namespace kpFormats
