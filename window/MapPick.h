// SPDX-License-Identifier: MIT
#pragma once

#include "window/MapScene.h"

namespace refhost
{

/// Whether a click at \a point, in map units, means the object: inside an area or a grid, else within \a tolerance of a
/// vertex or a line.
bool isHit(const ModelObject& object, const PlacedObject& place, const QPointF& point, double tolerance);
/// Whether any of the object lies in \a box.
bool isTouched(const ModelObject& object, const PlacedObject& place, const QRectF& box);

} // namespace refhost
