// SPDX-License-Identifier: MIT
#pragma once

#include "export/Format.h"
#include "model/kpFormatsExport.h"

#include <QCoreApplication>

namespace kpFormats
{

/// STL, binary: one mesh or grid surface per file, as triangles in single precision, counted from a stated offset where\n/// that is needed. The format knows no attributes.
/// The format: https://www.fabbers.com/tech/STL_Format
class KPFORMATS_EXPORT StlFormat : public Format
{
    Q_DECLARE_TR_FUNCTIONS(kpFormats::StlFormat)

public:
    FormatInfo info() const override;
    SettingsTable settings() const override;
    std::vector<PlannedFile> files(const ExportSelection& selection, const SettingsValue& settings) const override;
    std::unique_ptr<PreparedFile> prepare(const PlannedFile& file, const ExportSelection& selection,
                                          const SettingsValue& settings, Findings& findings) const override;
};

} // namespace kpFormats
