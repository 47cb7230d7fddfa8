// SPDX-License-Identifier: MIT
#pragma once

#include "export/Format.h"
#include "model/kpFormatsExport.h"

#include <QCoreApplication>

namespace kpFormats
{

/// Wavefront OBJ: mesh and grid surfaces as vertices and triangles, each an object of its own. The format knows no attributes.
/// The format: http://paulbourke.net/dataformats/obj/
class KPFORMATS_EXPORT ObjFormat : public Format
{
    Q_DECLARE_TR_FUNCTIONS(kpFormats::ObjFormat)

public:
    FormatInfo info() const override;
    SettingsTable settings() const override;
    std::vector<PlannedFile> files(const ExportSelection& selection, const SettingsValue& settings) const override;
    std::unique_ptr<PreparedFile> prepare(const PlannedFile& file, const ExportSelection& selection,
                                          const SettingsValue& settings, Findings& findings) const override;
};

} // namespace kpFormats
