// SPDX-License-Identifier: MIT
#pragma once

#include "export/MapOffset.h"
#include "export/PreparedFile.h"
#include "formats/stl/StlExportSettings.h"

namespace kpFormats
{

/// One Stl file, prepared.
class StlFile : public PreparedFile
{
public:
    /// \throws ExportError when the file is refused
    StlFile(PlannedFile file, const ExportSelection& selection, StlExportSettings settings, Findings& findings);

    QStringList sidecars() const override { return {MapOffset::sidecarExtension(file().path)}; }
    qint64 write(const QString& path, Findings& findings, kpBase::AbstractProgress* progress) override;
    std::optional<Verification> verify(const QString& path) const override;

private:
    StlExportSettings m_settings;
    MapOffset m_offset;
};

} // namespace kpFormats
