// SPDX-License-Identifier: MIT
#include "window/MapPick.h"

#include <algorithm>
#include <cmath>

namespace refhost
{

namespace
{

QPointF vertexOf(const PlacedObject& place, int index)
{
    const auto vertex = static_cast<std::size_t>(index);
    return {(*place.x)[vertex], (*place.y)[vertex]};
}

double distanceToLine(const QPointF& point, const QPointF& from, const QPointF& to)
{
    const QPointF along = to - from;
    const double length = QPointF::dotProduct(along, along);
    const double share = length > 0.0 ? std::clamp(QPointF::dotProduct(point - from, along) / length, 0.0, 1.0) : 0.0;
    const QPointF nearest = from + share * along - point;
    return std::hypot(nearest.x(), nearest.y());
}

/// Whether a line has a piece in the box (Liang and Barsky, ACM Transactions on Graphics 3, 1984).
bool crosses(const QRectF& box, const QPointF& from, const QPointF& to)
{
    double first = 0.0;
    double last = 1.0;
    const auto clip = [&first, &last](double step, double room) {
        if (step == 0.0)
            return room >= 0.0;
        const double share = room / step;
        if (step < 0.0)
            first = std::max(first, share);
        else
            last = std::min(last, share);
        return first <= last;
    };
    const QPointF along = to - from;
    return clip(-along.x(), from.x() - box.left()) && clip(along.x(), box.right() - from.x())
           && clip(-along.y(), from.y() - box.top()) && clip(along.y(), box.bottom() - from.y());
}

/// Calls \a visit with the ends of each line of the object until it returns true. \returns whether it did
template <typename Visit>
bool anyLine(const ModelObject& object, const PlacedObject& place, const Visit& visit)
{
    for (const Part& part : object.parts) {
        for (int index = part.first + 1; index < part.first + part.count; ++index) {
            if (visit(vertexOf(place, index - 1), vertexOf(place, index)))
                return true;
        }
    }
    return false;
}

template <typename Visit>
bool anyVertex(const PlacedObject& place, const Visit& visit)
{
    for (int index = 0; index < static_cast<int>(place.x->size()); ++index) {
        if (visit(vertexOf(place, index)))
            return true;
    }
    return false;
}

/// By the number of borders to the east of it, so that holes are outside.
bool isInside(const ModelObject& object, const PlacedObject& place, const QPointF& point)
{
    bool inside = false;
    anyLine(object, place, [&](const QPointF& from, const QPointF& to) {
        if ((from.y() > point.y()) != (to.y() > point.y())
            && point.x() < from.x() + (point.y() - from.y()) / (to.y() - from.y()) * (to.x() - from.x()))
            inside = !inside;
        return false;
    });
    return inside;
}

} // namespace

bool isHit(const ModelObject& object, const PlacedObject& place, const QPointF& point, double tolerance)
{
    if (!place.extent)
        return false;
    if (object.grid)
        return place.outline.containsPoint(point, Qt::OddEvenFill);
    const QRectF reach = place.extent->adjusted(-tolerance, -tolerance, tolerance, tolerance);
    if (!reach.contains(point))
        return false;
    const auto isNear = [&](const QPointF& vertex) {
        return std::hypot(vertex.x() - point.x(), vertex.y() - point.y()) <= tolerance;
    };
    if (object.parts.empty())
        return anyVertex(place, isNear);
    if (object.type == ObjectType::Polygons && isInside(object, place, point))
        return true;
    return anyLine(object, place,
                   [&](const QPointF& from, const QPointF& to) { return distanceToLine(point, from, to) <= tolerance; })
           || anyVertex(place, isNear);
}

bool isTouched(const ModelObject& object, const PlacedObject& place, const QRectF& box)
{
    const std::optional<QRectF>& extent = place.extent;
    if (!extent || extent->left() > box.right() || extent->right() < box.left() || extent->top() > box.bottom()
        || extent->bottom() < box.top())
        return false;
    if (object.grid)
        return !place.outline.intersected(QPolygonF(box)).isEmpty();
    const auto isInBox = [&box](const QPointF& vertex) { return box.contains(vertex); };
    return anyVertex(place, isInBox)
           || anyLine(object, place, [&box](const QPointF& from, const QPointF& to) { return crosses(box, from, to); })
           || (object.type == ObjectType::Polygons && isInside(object, place, box.center()));
}

} // namespace refhost
