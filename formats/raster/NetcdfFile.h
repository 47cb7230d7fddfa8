// SPDX-License-Identifier: MIT
#pragma once

#include "export/PreparedFile.h"
#include "formats/raster/RasterNumbers.h"

namespace kpFormats
{

/// One netCDF grid, prepared.
class NetcdfFile : public PreparedFile
{
public:
    /// \throws ExportError when the file is refused
    NetcdfFile(RasterTraits traits, PlannedFile file, const ExportSelection& selection, RasterExportSettings settings,
               Findings& findings);

    QStringList sidecars() const override;
    qint64 write(const QString& path, Findings& findings, kpBase::AbstractProgress* progress) override;
    std::optional<Verification> verify(const QString& path) const override;

private:
    RasterTraits m_traits;
    RasterExportSettings m_settings;
    RasterGrid m_grid;
    RasterNumbers m_numbers;
    QStringList m_names; ///< of the variables
};

} // namespace kpFormats
