// SPDX-License-Identifier: MIT
#pragma once

#include "export/Format.h"
#include "model/kpFormatsExport.h"

#include <QCoreApplication>

namespace kpFormats
{

/// VTK ImageData: a grid surface per file, as a flat image whose nodes have heights and attributes.
/// The format: https://docs.vtk.org/en/latest/vtk_file_formats/vtkxml_file_format.html
class KPFORMATS_EXPORT VtiFormat : public Format
{
    Q_DECLARE_TR_FUNCTIONS(kpFormats::VtiFormat)

public:
    FormatInfo info() const override;
    SettingsTable settings() const override;
    std::vector<PlannedFile> files(const ExportSelection& selection, const SettingsValue& settings) const override;
    std::unique_ptr<PreparedFile> prepare(const PlannedFile& file, const ExportSelection& selection,
                                          const SettingsValue& settings, Findings& findings) const override;
};

} // namespace kpFormats
