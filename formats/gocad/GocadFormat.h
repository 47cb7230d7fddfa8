// SPDX-License-Identifier: MIT
#pragma once

#include "export/Format.h"
#include "model/kpFormatsExport.h"

#include <QCoreApplication>

namespace kpFormats
{

/// GOCAD ASCII: points as vertex sets (VSet), lines, polygons and well paths as curves (PLine), meshes and grid
/// surfaces as triangulated surfaces (TSurf), well paths on request as wells (Well), with their numeric attributes as properties. Which way z counts and the
/// length unit stand in each object's coordinate system.
/// The format: http://www.t-surf.com/products/developmentkit_ascii.html and
/// http://paulbourke.net/dataformats/gocad/gocad.pdf
class KPFORMATS_EXPORT GocadFormat : public Format
{
    Q_DECLARE_TR_FUNCTIONS(kpFormats::GocadFormat)

public:
    FormatInfo info() const override;
    SettingsTable settings() const override;
    std::vector<PlannedFile> files(const ExportSelection& selection, const SettingsValue& settings) const override;
    std::unique_ptr<PreparedFile> prepare(const PlannedFile& file, const ExportSelection& selection,
                                          const SettingsValue& settings, Findings& findings) const override;
};

} // namespace kpFormats
