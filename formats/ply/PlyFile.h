// SPDX-License-Identifier: MIT
#pragma once

#include "export/MapOffset.h"
#include "export/NumberColumns.h"
#include "export/PreparedFile.h"
#include "formats/ply/PlyExportSettings.h"
namespace kpFormats
{

/// One Ply file, prepared.
class PlyFile : public PreparedFile
{
public:
    /// \throws ExportError when the file is refused
    PlyFile(PlannedFile file, const ExportSelection& selection, PlyExportSettings settings, Findings& findings);

    QStringList sidecars() const override { return {MapOffset::sidecarExtension(file().path)}; }
    qint64 write(const QString& path, Findings& findings, kpBase::AbstractProgress* progress) override;
    std::optional<Verification> verify(const QString& path) const override;

private:
    PlyExportSettings m_settings;
    MapOffset m_offset;
    std::vector<NumberColumn> m_columns; ///< properties of the vertices
    QStringList m_names;                 ///< of the properties
};

} // namespace kpFormats
