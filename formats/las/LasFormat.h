// SPDX-License-Identifier: MIT
#pragma once

#include "export/Format.h"
#include "model/kpFormatsExport.h"

#include <QCoreApplication>

namespace kpFormats
{

/// LAS 2.0 of the Canadian Well Logging Society: one well per file, its numbers as curves by depth.
/// The format: https://www.cwls.org/products (LAS 2.0, update of January 2014)
class KPFORMATS_EXPORT LasFormat : public Format
{
    Q_DECLARE_TR_FUNCTIONS(kpFormats::LasFormat)

public:
    FormatInfo info() const override;
    SettingsTable settings() const override;
    std::vector<PlannedFile> files(const ExportSelection& selection, const SettingsValue& settings) const override;
    std::unique_ptr<PreparedFile> prepare(const PlannedFile& file, const ExportSelection& selection,
                                          const SettingsValue& settings, Findings& findings) const override;
};

} // namespace kpFormats
