// SPDX-License-Identifier: MIT
#pragma once

#include "export/Verification.h"
#include "formats/obj/ObjExportSettings.h"

namespace kpFormats
{

/// The name of an object in one line.
QString objObjectName(const QString& name);

/// Reads an OBJ file with the program's reader and compares every corner of every triangle, and the names, with the
/// surfaces. The offset that the file states is part of what is read.
Verification verifyObj(const std::vector<const ModelObject*>& objects, const QString& path,
                       const ObjExportSettings& settings);

} // namespace kpFormats
