// SPDX-License-Identifier: MIT
#pragma once

#include "export/Format.h"
#include "model/kpFormatsExport.h"

#include <QCoreApplication>

namespace kpFormats
{

/// Irap points and Irap polygons: a row of x, y and z each; a line, and the points of an object, end with a row of 999s.
/// Points and lines go into files of their own.
/// The format: as read by the xtgeo project, https://xtgeo.readthedocs.io, and the remarks of petekio,
/// https://docs.rs/petekio
class KPFORMATS_EXPORT IrapPointsFormat : public Format
{
    Q_DECLARE_TR_FUNCTIONS(kpFormats::IrapPointsFormat)

public:
    FormatInfo info() const override;
    SettingsTable settings() const override;
    std::vector<PlannedFile> files(const ExportSelection& selection, const SettingsValue& settings) const override;
    std::unique_ptr<PreparedFile> prepare(const PlannedFile& file, const ExportSelection& selection,
                                          const SettingsValue& settings, Findings& findings) const override;
};

} // namespace kpFormats
