// SPDX-License-Identifier: MIT
#pragma once

#include "export/ExportFormat.h"
#include "formats/gocad/GocadExportSettings.h"
#include "model/kpFormatsExport.h"

namespace kpFormats
{

/// GOCAD ASCII: points as vertex sets (VSet), lines, polygons and well paths as curves (PLine), meshes and grid
/// surfaces as triangulated surfaces (TSurf), with their numeric attributes as properties. Which way z counts and the
/// length unit stand in each object's coordinate system.
/// The format: http://www.t-surf.com/products/developmentkit_ascii.html and
/// http://paulbourke.net/dataformats/gocad/gocad.pdf
class KPFORMATS_EXPORT GocadFormat : public ExportFormat
{
public:
    FormatInfo info() const override;
    SettingsMap settings() override;
    std::vector<PlannedFile> plan(const ExportSelection& selection) const override;
    void foresee(const PlannedFile& file, const ExportSelection& selection, Findings& findings) const override;
    qint64 write(const PlannedFile& file, const QString& path, const ExportSelection& selection, Findings& findings,
                 kpBase::AbstractProgress* progress) override;
    Verification verify(const PlannedFile& file, const QString& path, const ExportSelection& selection) override;

private:
    GocadExportSettings m_settings;
};

} // namespace kpFormats
