// SPDX-License-Identifier: MIT
#pragma once

#include "export/PreparedFile.h"
#include "formats/dxf/DxfExportSettings.h"

#include <QSet>

namespace kpFormats
{

/// One drawing, prepared.
class DxfFile : public PreparedFile
{
public:
    /// \throws ExportError when the file is refused
    DxfFile(PlannedFile file, const ExportSelection& selection, DxfExportSettings settings, Findings& findings);

    qint64 write(const QString& path, Findings& findings, kpBase::AbstractProgress* progress) override;
    std::optional<Verification> verify(const QString& path) const override;

private:
    DxfExportSettings m_settings;
    QSet<const ModelObject*> m_undrawable; ///< objects of which nothing can be drawn, as noted
};

} // namespace kpFormats
