// SPDX-License-Identifier: MIT
#pragma once

#include "export/Format.h"
#include "model/kpFormatsExport.h"

#include <QCoreApplication>

namespace kpFormats
{

/// VTK UnstructuredGrid: a corner-point grid per file, as hexahedra with their properties, in double precision.
/// The format: https://docs.vtk.org/en/latest/vtk_file_formats/vtkxml_file_format.html
class KPFORMATS_EXPORT VtuFormat : public Format
{
    Q_DECLARE_TR_FUNCTIONS(kpFormats::VtuFormat)

public:
    FormatInfo info() const override;
    SettingsTable settings() const override;
    std::vector<PlannedFile> files(const ExportSelection& selection, const SettingsValue& settings) const override;
    std::unique_ptr<PreparedFile> prepare(const PlannedFile& file, const ExportSelection& selection,
                                          const SettingsValue& settings, Findings& findings) const override;
};

} // namespace kpFormats
