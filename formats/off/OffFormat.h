// SPDX-License-Identifier: MIT
#pragma once

#include "export/Format.h"
#include "model/kpFormatsExport.h"

#include <QCoreApplication>

namespace kpFormats
{

/// Geomview OFF: one mesh or grid surface per file, as vertices and triangles. The format knows no attributes; unit
/// and direction of z stand in comments.
/// The format: http://javaview.de/doc/userManual/formats/Format_Off.html, from the Geomview manual.
class KPFORMATS_EXPORT OffFormat : public Format
{
    Q_DECLARE_TR_FUNCTIONS(kpFormats::OffFormat)

public:
    FormatInfo info() const override;
    SettingsTable settings() const override;
    std::vector<PlannedFile> files(const ExportSelection& selection, const SettingsValue& settings) const override;
    std::unique_ptr<PreparedFile> prepare(const PlannedFile& file, const ExportSelection& selection,
                                          const SettingsValue& settings, Findings& findings) const override;
};

} // namespace kpFormats
