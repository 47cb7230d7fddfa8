// SPDX-License-Identifier: MIT
#include "formats/kml/KmlExpectation.h"

#include "geo/CoordinateSystems.h"
#include "model/OutputUnit.h"

#include <algorithm>
#include <cmath>

namespace kpFormats
{

namespace
{

using AltitudeMode = KmlExportSettings::AltitudeMode;
using Figure = KmlExpectedFeature::Figure;

/// Those of a run of vertices that have a place.
Figure figureOf(KmlExpectedFeature::Kind kind, const ExpectedPlaces& places, int first, int end)
{
    Figure figure;
    figure.kind = kind;
    for (auto vertex = static_cast<std::size_t>(first); vertex < static_cast<std::size_t>(end); ++vertex) {
        if (places.has(vertex))
            figure.places.push_back(places.at(vertex));
    }
    return figure;
}

/// A box as a ring; no figure where it has no extent.
void addBox(KmlExpectedFeature& feature, const std::vector<double>& x, const std::vector<double>& y)
{
    if (x.empty() || y.empty())
        return;
    const auto [west, east] = std::minmax_element(x.begin(), x.end());
    const auto [south, north] = std::minmax_element(y.begin(), y.end());
    if (*west < *east && *south < *north)
        feature.figures = {
            {KmlExpectedFeature::Outer,
             {{*west, *south, 0}, {*east, *south, 0}, {*east, *north, 0}, {*west, *north, 0}, {*west, *south, 0}}}};
}

/// The nodes along the outline of a grid.
std::vector<std::size_t> outlineOf(const GridGeometry& grid)
{
    std::vector<std::size_t> nodes;
    for (int row = 0; row < grid.rows; ++row) {
        for (int column = 0; column < grid.columns; ++column) {
            if (row == 0 || column == 0 || row + 1 == grid.rows || column + 1 == grid.columns)
                nodes.push_back(static_cast<std::size_t>(row) * static_cast<std::size_t>(grid.columns)
                                + static_cast<std::size_t>(column));
        }
    }
    return nodes;
}

} // namespace

KmlExpectation::KmlExpectation(const KmlExportSettings& settings)
    : m_settings(settings)
    , m_ownSystem(wktOf(settings.crs))
    , m_transforms(wktOf(QStringLiteral("EPSG:4326")))
{
}

ExpectedPlaces KmlExpectation::placesOf(const ModelObject& object, const PositionSource& source, std::size_t count,
                                        bool needsHeight, std::size_t atOnce)
{
    PositionRules rules;
    rules.transform = m_transforms.from(object.crs.isEmpty() ? m_ownSystem : object.crs);
    rules.heightFactor = unitFactor(object.lengthUnit, OutputUnit::Metre);
    rules.needsHeight = needsHeight;
    rules.geographic = true;
    return ExpectedPlaces(source, count, rules, atOnce);
}

KmlExpectedFeature KmlExpectation::featureOf(const ModelObject& object) const
{
    KmlExpectedFeature feature;
    feature.name = object.name;
    feature.object = &object;
    feature.colour = object.color;
    feature.hasHeights = object.hasZ && m_settings.altitudeMode != AltitudeMode::Clamp;
    return feature;
}

void KmlExpectation::eachOf(const ModelObject& object, const Look& look)
{
    const bool needsHeight = featureOf(object).hasHeights;
    const PositionSource source = PositionSource::of(object);
    const auto places = [&](std::size_t atOnce = 2048) {
        return placesOf(object, source, object.x->size(), needsHeight, atOnce);
    };
    switch (object.type) {
    case ObjectType::Polygons:
        return lookAtAreas(object, places(), look);
    case ObjectType::Polylines:
        return lookAtLines(object, places(), look);
    case ObjectType::Wells:
        return lookAtWell(object, places(), look);
    case ObjectType::MeshSurfaces:
        return lookAtMesh(object, look);
    case ObjectType::GridSurfaces:
    case ObjectType::Images:
        return lookAtSurface(object, look);
    case ObjectType::CrossSections:
        return lookAtSection(object, look);
    default:
        return eachPoint(object, places(1024), look);
    }
}

void KmlExpectation::eachPoint(const ModelObject& object, const ExpectedPlaces& places, const Look& look) const
{
    KmlExpectedFeature feature = featureOf(object);
    feature.figures.resize(1);
    for (std::size_t vertex = 0; vertex < places.size(); ++vertex) {
        if (!places.has(vertex))
            continue;
        feature.vertex = static_cast<int>(vertex);
        if (places.size() > 1)
            feature.name = QStringLiteral("%1 %2").arg(object.name).arg(vertex + 1);
        feature.figures.front().places = {places.at(vertex)};
        look(feature);
    }
}

void KmlExpectation::lookAtLines(const ModelObject& object, const ExpectedPlaces& places, const Look& look) const
{
    KmlExpectedFeature feature = featureOf(object);
    for (const Part& part : object.parts) {
        const int end = part.first + part.count;
        Figure line = figureOf(KmlExpectedFeature::Line, places, part.first, end);
        if (line.places.size() < 2)
            continue;
        // One that is closed without saying its first vertex again is led back to it.
        const auto first = static_cast<std::size_t>(part.first);
        if (part.closed && openEnd(object, part) == end && places.has(first))
            line.places.push_back(places.at(first));
        feature.figures.push_back(std::move(line));
    }
    if (!feature.figures.empty())
        look(feature);
}

void KmlExpectation::lookAtAreas(const ModelObject& object, const ExpectedPlaces& places, const Look& look) const
{
    KmlExpectedFeature feature = featureOf(object);
    bool outer = false;
    for (Part part : object.parts) {
        part.closed = true;
        Figure ring = figureOf(part.hole ? KmlExpectedFeature::Hole : KmlExpectedFeature::Outer, places, part.first,
                               openEnd(object, part));
        const bool there = ring.places.size() > 2 && (!part.hole || outer);
        if (!part.hole)
            outer = there;
        if (!there)
            continue;
        ring.places.push_back(ring.places.front());
        feature.figures.push_back(std::move(ring));
    }
    if (!feature.figures.empty())
        look(feature);
}

/// A point at the collar and the path.
void KmlExpectation::lookAtWell(const ModelObject& object, const ExpectedPlaces& places, const Look& look) const
{
    KmlExpectedFeature feature = featureOf(object);
    Figure path = figureOf(KmlExpectedFeature::Line, places, 0, object.vertexCount());
    if (path.places.empty())
        return;
    feature.figures.push_back({KmlExpectedFeature::Point, {path.places.front()}});
    if (path.places.size() > 1)
        feature.figures.push_back(std::move(path));
    look(feature);
}

void KmlExpectation::lookAtMesh(const ModelObject& object, const Look& look)
{
    KmlExpectedFeature feature = featureOf(object);
    const ExpectedPlaces places =
        placesOf(object, PositionSource::of(object), object.x->size(), feature.hasHeights, object.x->size());
    for (const std::array<int, 3>& triangle : object.triangles) {
        Figure face;
        face.kind = KmlExpectedFeature::Outer;
        for (const int corner : {triangle[0], triangle[1], triangle[2], triangle[0]}) {
            if (places.has(static_cast<std::size_t>(corner)))
                face.places.push_back(places.at(static_cast<std::size_t>(corner)));
        }
        if (face.places.size() == 4)
            feature.figures.push_back(std::move(face));
    }
    if (!feature.figures.empty())
        look(feature);
}

/// A picture in the box around the grid.
void KmlExpectation::lookAtSurface(const ModelObject& object, const Look& look)
{
    const bool any = std::any_of(object.z->begin(), object.z->end(), [](double z) { return std::isfinite(z); });
    if (!any || !object.grid || object.grid->columns < 2 || object.grid->rows < 2)
        return;
    std::vector<double> columns[2];
    for (const std::size_t node : outlineOf(*object.grid)) {
        columns[0].push_back((*object.x)[node]);
        columns[1].push_back((*object.y)[node]);
    }
    const ExpectedPlaces places =
        placesOf(object, {columns[0].data(), columns[1].data(), nullptr}, columns[0].size(), false, columns[0].size());
    std::vector<double> x;
    std::vector<double> y;
    for (std::size_t node = 0; node < places.size(); ++node) {
        if (!places.has(node))
            continue;
        x.push_back(places.at(node)[0]);
        y.push_back(places.at(node)[1]);
    }
    KmlExpectedFeature feature = featureOf(object);
    feature.isOverlay = true;
    addBox(feature, x, y);
    if (!feature.figures.empty())
        look(feature);
}

/// The trace on the ground and the lines that are drawn on the section.
void KmlExpectation::lookAtSection(const ModelObject& object, const Look& look)
{
    const ExpectedPlaces places = placesOf(object, PositionSource::of(object), object.x->size(), false);
    KmlExpectedFeature trace = featureOf(object);
    trace.colour = QColor();
    trace.figures.push_back(figureOf(KmlExpectedFeature::Line, places, 0, object.vertexCount()));
    // Its altitude mode is the object's, its heights are where they are known.
    if (trace.figures.front().places.size() > 1)
        look(trace);
    if (!object.section || m_settings.altitudeMode == AltitudeMode::Clamp)
        return;
    for (const SectionSegment& segment : object.section->segments) {
        const ExpectedPlaces points = placesOf(object, PositionSource::of(segment), segment.z.size(), true);
        KmlExpectedFeature feature;
        feature.name = QStringLiteral("%1: %2").arg(object.name, segment.name);
        feature.colour = segment.color;
        feature.hasHeights = true;
        feature.figures.push_back(figureOf(KmlExpectedFeature::Line, points, 0, static_cast<int>(segment.z.size())));
        if (feature.figures.front().places.size() == 1)
            feature.figures.front().kind = KmlExpectedFeature::Point;
        if (!feature.figures.front().places.empty())
            look(feature);
    }
}

KmlExpectedFeature KmlExpectation::boundsOf(const std::vector<const ModelObject*>& objects)
{
    std::vector<double> x;
    std::vector<double> y;
    for (const ModelObject* object : objects) {
        const ExpectedPlaces places = placesOf(*object, PositionSource::of(*object), object->x->size(), false);
        for (std::size_t vertex = 0; vertex < places.size(); ++vertex) {
            if (!places.has(vertex))
                continue;
            x.push_back(places.at(vertex)[0]);
            y.push_back(places.at(vertex)[1]);
        }
    }
    KmlExpectedFeature feature;
    feature.name = QStringLiteral("bb");
    addBox(feature, x, y);
    return feature;
}

} // namespace kpFormats
