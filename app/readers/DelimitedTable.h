// SPDX-License-Identifier: MIT
#pragma once

#include "app/readers/LoadError.h"
#include "app/readers/LoadOptions.h"

#include <gdal_priv.h>

namespace refhost
{

/// Whether the file is a table of delimited text, by its name.
bool isDelimited(const QString& path);
/// Opens a table with its columns of coordinates as points: those of the options, else those that go by usual names.
/// \throws LoadError when it is no table
GDALDatasetUniquePtr openTable(const QString& path, const LoadOptions& options);
/// Why a table has no points.
LoadError noPoints(const QString& path, OGRLayer& layer);

} // namespace refhost
