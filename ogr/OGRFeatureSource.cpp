// SPDX-License-Identifier: MIT
#include "ogr/OGRFeatureSource.h"

namespace kpBaseExport
{

OGRFeatureSource::~OGRFeatureSource() = default;

} // namespace kpBaseExport
