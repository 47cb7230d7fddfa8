// SPDX-License-Identifier: MIT
#pragma once

#include "model/kpFormatsExport.h"

#include <QString>

#include <gdal_priv.h>

namespace kpFormats
{

/// Whether the file begins as a PostGIS dump of this program does.
KPFORMATS_EXPORT bool isPgDump(const QString& path);
/// The tables of a PostGIS dump as layers in memory: what CREATE TABLE, AddGeometryColumn, ADD COLUMN and the lines of
/// COPY say. Null, and a message of GDAL's, when it is none. For dumps as the export writes them, not for any SQL.
KPFORMATS_EXPORT GDALDatasetUniquePtr readPgDump(const QString& path);

} // namespace kpFormats
