// SPDX-License-Identifier: MIT
#pragma once

#include "export/MapOffset.h"
#include "export/PreparedFile.h"
#include "formats/obj/ObjExportSettings.h"

namespace kpFormats
{

/// One Obj file, prepared.
class ObjFile : public PreparedFile
{
public:
    /// \throws ExportError when the file is refused
    ObjFile(PlannedFile file, const ExportSelection& selection, ObjExportSettings settings, Findings& findings);

    QStringList sidecars() const override { return {MapOffset::sidecarExtension(file().path)}; }
    qint64 write(const QString& path, Findings& findings, kpBase::AbstractProgress* progress) override;
    std::optional<Verification> verify(const QString& path) const override;

private:
    ObjExportSettings m_settings;
    MapOffset m_offset;
};

} // namespace kpFormats
