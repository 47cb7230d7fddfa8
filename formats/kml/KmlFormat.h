// SPDX-License-Identifier: MIT
#pragma once

#include "export/Format.h"
#include "model/kpFormatsExport.h"

#include <QCoreApplication>

namespace kpFormats
{

/// KML 2.1 for globe viewers: placemarks in WGS 84, surfaces as pictures laid on the ground. A picture stands beside the
/// file, or in it when it is a .kmz.
class KPFORMATS_EXPORT KmlFormat : public Format
{
    Q_DECLARE_TR_FUNCTIONS(kpFormats::KmlFormat)

public:
    FormatInfo info() const override;
    SettingsTable settings() const override;
    std::vector<PlannedFile> files(const ExportSelection& selection, const SettingsValue& settings) const override;
    std::unique_ptr<PreparedFile> prepare(const PlannedFile& file, const ExportSelection& selection,
                                          const SettingsValue& settings, Findings& findings) const override;
};

} // namespace kpFormats
