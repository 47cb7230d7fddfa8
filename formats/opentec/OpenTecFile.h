// SPDX-License-Identifier: MIT
#pragma once

#include "export/PreparedFile.h"
#include "formats/opentec/OpenTecExportSettings.h"

namespace kpFormats
{

/// One section as an OpenTecLink file, prepared.
class OpenTecFile : public PreparedFile
{
public:
    /// \throws ExportError when the file is refused
    OpenTecFile(PlannedFile file, const ExportSelection& selection, OpenTecExportSettings settings, Findings& findings);

    qint64 write(const QString& path, Findings& findings, kpBase::AbstractProgress* progress) override;
    std::optional<Verification> verify(const QString& path) const override;

private:
    OpenTecExportSettings m_settings;
    const ModelObject* m_section;
    const ModelObject* m_trace; ///< the section whose trace gives the positions on the map
};

} // namespace kpFormats
