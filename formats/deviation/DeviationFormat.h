// SPDX-License-Identifier: MIT
#pragma once

#include "export/Format.h"
#include "model/kpFormatsExport.h"

#include <QCoreApplication>

namespace kpFormats
{

/// Deviation table: one well per file, a row of measured depth, inclination, azimuth, vertical depth and place for each
/// vertex, under remarks that name well, units and datum.
class KPFORMATS_EXPORT DeviationFormat : public Format
{
    Q_DECLARE_TR_FUNCTIONS(kpFormats::DeviationFormat)

public:
    FormatInfo info() const override;
    SettingsTable settings() const override;
    std::vector<PlannedFile> files(const ExportSelection& selection, const SettingsValue& settings) const override;
    std::unique_ptr<PreparedFile> prepare(const PlannedFile& file, const ExportSelection& selection,
                                          const SettingsValue& settings, Findings& findings) const override;
};

} // namespace kpFormats
