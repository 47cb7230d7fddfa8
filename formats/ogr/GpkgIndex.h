// SPDX-License-Identifier: MIT
#pragma once

#include "host/data/AbstractProgress.h"

#include <ogrsf_frmts.h>

namespace kpFormats
{

/// Gives a layer of a GeoPackage that has none its spatial index: the table, triggers and entries that GDAL makes for one,
/// filled at once (see SqliteRTree). Stops early when the user cancels. \throws std::runtime_error
void addGpkgIndex(GDALDataset& dataset, OGRLayer& layer, const kpBase::AbstractProgress* progress);

} // namespace kpFormats
