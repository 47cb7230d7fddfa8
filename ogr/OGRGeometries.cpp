// SPDX-License-Identifier: MIT
#include "ogr/OGRGeometries.h"

#include <ogr_geometry.h>

#include <algorithm>
#include <vector>

namespace kpBaseExport
{

namespace
{

void addPoints(OGRSimpleCurve& curve, const QVector<OGRPoint>& points, int first, int end)
{
    for (int index = first; index < end; ++index)
        curve.addPoint(&points[index]);
}

/// The parts' ends, none beyond the points and none before the part's start.
std::vector<int> partEnds(const OGRFeatureDetails& details, int pointCount)
{
    std::vector<int> ends;
    int start = 0;
    for (const unsigned long long index : details.start_polygon_indices()) {
        const auto end = static_cast<int>(std::min<unsigned long long>(index, static_cast<unsigned>(pointCount)));
        start = std::max(start, end);
        ends.push_back(start);
    }
    return ends;
}

} // namespace

std::unique_ptr<OGRLineString> lineOf(const OGRFeatureDetails& details)
{
    const QVector<OGRPoint> points = details.points();
    auto line = std::make_unique<OGRLineString>();
    addPoints(*line, points, 0, points.size());
    return line;
}

std::unique_ptr<OGRPolygon> polygonOf(const OGRFeatureDetails& details, bool closeRing)
{
    const QVector<OGRPoint> points = details.points();
    auto ring = std::make_unique<OGRLinearRing>();
    addPoints(*ring, points, 0, points.size());
    if (closeRing)
        ring->closeRings();
    auto polygon = std::make_unique<OGRPolygon>();
    polygon->addRingDirectly(ring.release());
    return polygon;
}

std::unique_ptr<OGRMultiLineString> linesOf(const OGRFeatureDetails& details)
{
    const QVector<OGRPoint> points = details.points();
    auto lines = std::make_unique<OGRMultiLineString>();
    int start = 0;
    for (const int end : partEnds(details, points.size())) {
        auto line = std::make_unique<OGRLineString>();
        addPoints(*line, points, start, end);
        lines->addGeometryDirectly(line.release());
        start = end;
    }
    return lines;
}

std::unique_ptr<OGRGeometry> ringsOf(const OGRFeatureDetails& details, bool closeRings, bool multi)
{
    const QVector<OGRPoint> points = details.points();
    const QVector<bool> holes = details.holes();
    std::vector<int> ends = partEnds(details, points.size());
    if (ends.empty())
        ends.push_back(points.size());
    std::vector<std::unique_ptr<OGRPolygon>> polygons;
    int start = 0;
    for (std::size_t part = 0; part < ends.size(); ++part) {
        auto ring = std::make_unique<OGRLinearRing>();
        addPoints(*ring, points, start, ends[part]);
        if (closeRings)
            ring->closeRings();
        const bool hole = static_cast<int>(part) < holes.size() && holes[static_cast<int>(part)];
        if (!hole || polygons.empty())
            polygons.push_back(std::make_unique<OGRPolygon>());
        polygons.back()->addRingDirectly(ring.release());
        start = ends[part];
    }
    if (!multi && polygons.size() == 1)
        return std::move(polygons.front());
    auto collection = std::make_unique<OGRMultiPolygon>();
    for (auto& polygon : polygons)
        collection->addGeometryDirectly(polygon.release());
    return collection;
}

} // namespace kpBaseExport
