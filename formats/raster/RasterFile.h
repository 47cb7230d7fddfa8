// SPDX-License-Identifier: MIT
#pragma once

#include "export/PreparedFile.h"
#include "formats/raster/RasterNumbers.h"

namespace kpFormats
{

/// One raster that is written through GDAL, prepared.
class RasterFile : public PreparedFile
{
public:
    /// \throws ExportError when the file is refused
    RasterFile(RasterTraits traits, PlannedFile file, const ExportSelection& selection, RasterExportSettings settings,
               Findings& findings);

    QStringList sidecars() const override;
    qint64 write(const QString& path, Findings& findings, kpBase::AbstractProgress* progress) override;
    std::optional<Verification> verify(const QString& path) const override;

private:
    QStringList options() const;
    void check(const QString& path, Findings& findings);

    RasterTraits m_traits;
    RasterExportSettings m_settings;
    RasterGrid m_grid;
    RasterNumbers m_numbers;
    bool m_saysSystem;
};

} // namespace kpFormats
