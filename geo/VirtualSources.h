// SPDX-License-Identifier: MIT
#pragma once

#include "model/kpFormatsExport.h"

#include <QStringList>

namespace kpFormats
{

/// Where a virtual raster or layer (.vrt) takes its data from, as GDAL's own parser reads it: paths, resolved where they
/// count from the file's folder, and names of any other kind that GDAL knows. Empty for a file of another format.
KPFORMATS_EXPORT QStringList virtualSources(const QString& path);

/// Whether a source is, or lies in, a place of the network.
KPFORMATS_EXPORT bool isNetworkSource(const QString& source);

} // namespace kpFormats
