// SPDX-License-Identifier: MIT
#pragma once

#include "model/kpFormatsExport.h"
#include "readers/LoadError.h"
#include "readers/LoadOptions.h"

#include <gdal_priv.h>

namespace kpFormats
{

/// Whether the file is a table of delimited text, by its name.
KPFORMATS_EXPORT bool isDelimited(const QString& path);
/// Opens a table with its columns of coordinates as points: those of the options, else those that go by usual names.
/// \throws LoadError when it is no table
KPFORMATS_EXPORT GDALDatasetUniquePtr openTable(const QString& path, const LoadOptions& options);
/// Why a table has no points.
KPFORMATS_EXPORT LoadError noPoints(const QString& path, OGRLayer& layer);

} // namespace kpFormats
