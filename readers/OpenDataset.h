// SPDX-License-Identifier: MIT
#pragma once

#include "geo/GdalSession.h"
#include "readers/OpenDataset.h"

#include <QString>

namespace kpFormats
{

/// Opens a file. \throws LoadError naming file, cause and cure
KPFORMATS_EXPORT GDALDatasetUniquePtr openDataset(const QString& path, unsigned flags,
                                                  const char* const* options = nullptr);

} // namespace kpFormats
