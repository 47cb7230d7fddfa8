// SPDX-License-Identifier: MIT
#pragma once

#include "ogr/OGRFeatureDetails.h"

#include <memory>

namespace kpBaseExport
{

// The geometry of a feature, built from its points. Private to this folder.

/// A line through all points.
std::unique_ptr<OGRLineString> lineOf(const OGRFeatureDetails& details);
/// A polygon of one ring through all points.
std::unique_ptr<OGRPolygon> polygonOf(const OGRFeatureDetails& details, bool closeRing);
/// A line per part; points after the last part are not used.
std::unique_ptr<OGRMultiLineString> linesOf(const OGRFeatureDetails& details);
/// The parts as rings, a hole belonging to the ring before it that is none. More than one polygon, or \a multi, makes
/// it a multi-polygon.
std::unique_ptr<OGRGeometry> ringsOf(const OGRFeatureDetails& details, bool closeRings, bool multi);

} // namespace kpBaseExport
