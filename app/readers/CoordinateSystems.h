// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

class OGRSpatialReference;

namespace refhost
{

/// "EPSG:n", WKT or another text that PROJ knows as WKT; empty when it is not known.
QString wktOf(const QString& text);
/// WKT of a reference; empty for null and for one that says nothing.
QString wktOf(const OGRSpatialReference* reference);
/// A short name such as "GDA94 / MGA zone 50 (EPSG:28350)"; empty for empty WKT.
QString crsName(const QString& wkt);

} // namespace refhost
