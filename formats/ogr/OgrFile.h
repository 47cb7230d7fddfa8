// SPDX-License-Identifier: MIT
#pragma once

#include "export/PreparedFile.h"
#include "formats/ogr/OgrOutput.h"

namespace kpFormats
{

class OgrFormat;

/// One file that is written through OGR, prepared.
class OgrFile : public PreparedFile
{
public:
    /// The format outlives this. \throws ExportError when the file is refused
    OgrFile(const OgrFormat& format, PlannedFile file, const ExportSelection& selection, OgrExportSettings settings,
            Findings& findings);

    QStringList sidecars() const override;
    qint64 write(const QString& path, Findings& findings, kpBase::AbstractProgress* progress) override;
    std::optional<Verification> verify(const QString& path) const override;

private:
    OgrOutput newOutput(Findings& findings) const;

    const OgrFormat& m_format;
    OgrExportSettings m_settings;
    OgrOutput m_output;
};

} // namespace kpFormats
