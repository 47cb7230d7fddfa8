// SPDX-License-Identifier: MIT
#pragma once

#include "export/NumberColumns.h"
#include "export/Verification.h"
#include "formats/ply/PlyExportSettings.h"

namespace kpFormats
{

/// Reads a PLY file with the program's reader and compares name, colour, every vertex, triangle and property with the
/// object; \a names are those of the properties. The offset that the file states is part of what is read.
Verification verifyPly(const ModelObject& object, const QString& path, const std::vector<NumberColumn>& columns,
                       const QStringList& names, const PlyExportSettings& settings);

} // namespace kpFormats
