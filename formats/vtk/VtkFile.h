// SPDX-License-Identifier: MIT
#pragma once

#include "export/PreparedFile.h"
#include "formats/vtk/VtkDocument.h"
#include "formats/vtk/VtkExportSettings.h"

namespace kpFormats
{

/// What the files of one of VTK's formats are made of.
enum class VtkKind { PolyData, Cells, Image };

/// One VTK XML file, prepared.
class VtkFile : public PreparedFile
{
public:
    /// \throws ExportError when the file is refused
    VtkFile(VtkKind kind, PlannedFile file, const ExportSelection& selection, VtkExportSettings settings,
            Findings& findings);

    qint64 write(const QString& path, Findings& findings, kpBase::AbstractProgress* progress) override;
    std::optional<Verification> verify(const QString& path) const override;

private:
    VtkKind m_kind;
    VtkExportSettings m_settings;
    VtkDocument m_document;
};

} // namespace kpFormats
