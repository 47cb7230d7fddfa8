// SPDX-License-Identifier: MIT
#pragma once

#include "export/Format.h"
#include "model/kpFormatsExport.h"

#include <QCoreApplication>

namespace kpFormats
{

/// PLY, binary with doubles: a mesh or grid surface or points per file, with numeric attributes and colours of vertices.
/// The format: http://paulbourke.net/dataformats/ply/
class KPFORMATS_EXPORT PlyFormat : public Format
{
    Q_DECLARE_TR_FUNCTIONS(kpFormats::PlyFormat)

public:
    FormatInfo info() const override;
    SettingsTable settings() const override;
    std::vector<PlannedFile> files(const ExportSelection& selection, const SettingsValue& settings) const override;
    std::unique_ptr<PreparedFile> prepare(const PlannedFile& file, const ExportSelection& selection,
                                          const SettingsValue& settings, Findings& findings) const override;
};

} // namespace kpFormats
