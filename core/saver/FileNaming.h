// SPDX-License-Identifier: MIT
#pragma once

#include "core/saver/kpBaseExportExport.h"

#include <QStringList>

#include <string>
#include <vector>

namespace kpBaseExport
{

/// One file name per object: "directory/base_object.suffix", where clashing names get a number behind the base name.
/// \a path gives directory, base name (up to the first dot) and suffix; \a objectNames are UTF-8.
/// Takes time in proportion to the number of objects, however many share a name.
KPBASEEXPORT_EXPORT QStringList fileNamesPerObject(const QString& path, const std::vector<std::string>& objectNames);

} // namespace kpBaseExport
