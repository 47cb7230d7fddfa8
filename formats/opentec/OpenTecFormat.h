// SPDX-License-Identifier: MIT
#pragma once

#include "export/Format.h"
#include "model/kpFormatsExport.h"

#include <QCoreApplication>

namespace kpFormats
{

/// Cross-sections in the OpenTecLink text format, a file for each: its trace on the map and the lines drawn on it as
/// distances along the trace and depths.
class KPFORMATS_EXPORT OpenTecFormat : public Format
{
    Q_DECLARE_TR_FUNCTIONS(kpFormats::OpenTecFormat)

public:
    FormatInfo info() const override;
    SettingsTable settings() const override;
    std::vector<PlannedFile> files(const ExportSelection& selection, const SettingsValue& settings) const override;
    std::unique_ptr<PreparedFile> prepare(const PlannedFile& file, const ExportSelection& selection,
                                          const SettingsValue& settings, Findings& findings) const override;
};

} // namespace kpFormats
