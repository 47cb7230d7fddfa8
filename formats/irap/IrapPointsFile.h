// SPDX-License-Identifier: MIT
#pragma once

#include "export/PreparedFile.h"
#include "formats/irap/IrapPointsExportSettings.h"

namespace kpFormats
{

/// One file of Irap points, or one of lines, prepared.
class IrapPointsFile : public PreparedFile
{
public:
    /// The objects are all points, or all lines.
    /// \throws ObjectError, ExportError when an object or the file is refused
    IrapPointsFile(PlannedFile file, const ExportSelection& selection, IrapPointsExportSettings settings,
                   Findings& findings);

    qint64 write(const QString& path, Findings& findings, kpBase::AbstractProgress* progress) override;
    std::optional<Verification> verify(const QString& path) const override;

private:
    IrapPointsExportSettings m_settings;
    std::vector<const ModelObject*> m_objects; ///< that are written
};

/// In all three places: the end of a line.
constexpr double irapEnd = 999.0;

} // namespace kpFormats
