// SPDX-License-Identifier: MIT
#include "formats/dxf/DxfExpectation.h"

#include "geo/CoordinateSystems.h"
#include "model/SurfaceFaces.h"

#include <algorithm>
#include <cmath>

namespace kpFormats
{

namespace
{

using Settings = DxfExportSettings;
using Places = std::vector<Verification::Place>;

constexpr std::size_t verticesAtOnce = 2048;
constexpr std::size_t pointsAtOnce = 1024;

} // namespace

DxfExpectation::DxfExpectation(const std::vector<const ModelObject*>& objects, const DxfExportSettings& settings)
    : m_objects(objects)
    , m_settings(settings)
    , m_rules(wktOf(settings.crs), settings.lengthUnit)
    , m_layers(settings.unicodeLayers)
{
    findPlane();
}

ExpectedPlaces DxfExpectation::placesOf(const PositionSource& source, std::size_t count, const ModelObject& object,
                                        std::size_t atOnce)
{
    return ExpectedPlaces(source, count, m_rules.of(object, m_settings.dimension != Settings::Dimension::Map),
                          std::max<std::size_t>(atOnce, 1));
}

/// The first section gives a drawing from the side its plane.
void DxfExpectation::findPlane()
{
    const auto section = std::find_if(m_objects.begin(), m_objects.end(), [](const ModelObject* object) {
        return object->type == ObjectType::CrossSections && object->vertexCount() > 1;
    });
    if (m_settings.dimension != Settings::Dimension::Section || section == m_objects.end())
        return;
    const std::size_t last = (*section)->x->size() - 1;
    const double x[] = {(*(*section)->x)[0], (*(*section)->x)[last]};
    const double y[] = {(*(*section)->y)[0], (*(*section)->y)[last]};
    const double z[] = {(*section)->hasZ ? (*(*section)->z)[0] : 0.0, (*section)->hasZ ? (*(*section)->z)[last] : 0.0};
    const ExpectedPlaces ends = placesOf({x, y, z}, 2, **section, 2);
    const double dx = ends.at(1)[0] - ends.at(0)[0];
    const double dy = ends.at(1)[1] - ends.at(0)[1];
    const double length = std::hypot(dx, dy);
    if (!(length > 0))
        return;
    m_origin = ends.at(0);
    m_direction = {dx / length, dy / length};
}

/// A place as the drawing shows it.
Verification::Place DxfExpectation::drawn(const Verification::Place& place) const
{
    const double height = std::isnan(place[2]) ? 0.0 : place[2];
    if (m_settings.dimension != Settings::Dimension::Section)
        return {place[0], place[1], isFlat() ? 0.0 : height};
    const double along = (place[0] - m_origin[0]) * m_direction[0] + (place[1] - m_origin[1]) * m_direction[1];
    return {along, height, 0.0};
}

void DxfExpectation::each(const Look& look)
{
    m_look = &look;
    for (const ModelObject* object : m_objects) {
        const QString group = m_settings.layers == Settings::Layers::Set    ? object->set
                              : m_settings.layers == Settings::Layers::Type ? typeName(object->type)
                                                                            : QString();
        m_current.object = object;
        m_current.layer = QString::fromStdString(m_layers.layer(group));
        m_current.colour = nearestColourIndex(object->color);
        m_current.decimals = m_rules.inDegrees(*object) ? 9 : m_settings.lengthUnit == OutputUnit::Kilometre ? 7 : 4;
        eachOf(*object);
    }
}

void DxfExpectation::lookAt(DxfExpectedEntity::Kind kind, Places places)
{
    (*m_look)(m_current, {kind, std::move(places)});
}

void DxfExpectation::eachOf(const ModelObject& object)
{
    const bool area = object.type == ObjectType::Polygons;
    const bool isPin = object.type == ObjectType::Pins;
    if (area || object.type == ObjectType::Polylines) {
        const ExpectedPlaces places = placesOf(PositionSource::of(object), object.x->size(), object, verticesAtOnce);
        for (Part part : object.parts) {
            part.closed = part.closed || area;
            lookAtLine(places, part.first, openEnd(object, part), part.closed);
        }
    } else if (object.type == ObjectType::Wells) {
        const ExpectedPlaces places = placesOf(PositionSource::of(object), object.x->size(), object, verticesAtOnce);
        const bool path = lookAtLine(places, 0, object.vertexCount(), false);
        std::size_t collar = 0;
        while (collar < places.size() && !places.has(collar))
            ++collar;
        if (collar == places.size())
            return;
        if (!path)
            lookAt(DxfExpectedEntity::Point, {drawn(places.at(collar))});
        if (!object.name.isEmpty())
            lookAt(DxfExpectedEntity::Text, {drawn(places.at(collar))});
    } else if (object.type == ObjectType::GridSurfaces || object.type == ObjectType::MeshSurfaces) {
        lookAtSurface(object);
    } else if (object.type == ObjectType::CrossSections) {
        lookAtSection(object);
    } else {
        lookAtPoints(object, object.type != ObjectType::Labels, isPin || object.type == ObjectType::Labels);
    }
}

bool DxfExpectation::lookAtLine(const ExpectedPlaces& places, int first, int end, bool closed)
{
    Places line;
    for (auto vertex = static_cast<std::size_t>(first); vertex < static_cast<std::size_t>(end); ++vertex) {
        if (places.has(vertex))
            line.push_back(drawn(places.at(vertex)));
    }
    if (line.size() < 2)
        return false;
    if (closed)
        line.push_back(line.front());
    lookAt(DxfExpectedEntity::Line, std::move(line));
    return true;
}

void DxfExpectation::lookAtPoints(const ModelObject& object, bool points, bool names)
{
    const ExpectedPlaces places = placesOf(PositionSource::of(object), object.x->size(), object, pointsAtOnce);
    for (std::size_t vertex = 0; vertex < places.size(); ++vertex) {
        if (!places.has(vertex))
            continue;
        if (points)
            lookAt(DxfExpectedEntity::Point, {drawn(places.at(vertex))});
        if (names && !object.name.isEmpty())
            lookAt(DxfExpectedEntity::Text, {drawn(places.at(vertex))});
    }
}

void DxfExpectation::lookAtSurface(const ModelObject& object)
{
    const ExpectedPlaces places = placesOf(PositionSource::of(object), object.x->size(), object, object.x->size());
    const auto has = [&places](int vertex) { return places.has(static_cast<std::size_t>(vertex)); };
    const auto at = [&](int vertex) { return drawn(places.at(static_cast<std::size_t>(vertex))); };
    const qint64 faces = m_settings.faces ? faceCount(object) : 0;
    for (qint64 number = 0; number < faces; ++number) {
        Face face;
        if (!faceAt(object, number, face) || !std::all_of(face.begin(), face.end(), has))
            continue;
        Places corners{at(face[0]), at(face[1]), at(face[2])};
        if (at(face[3]) != corners.back())
            corners.push_back(at(face[3]));
        corners.push_back(corners.front());
        lookAt(DxfExpectedEntity::Face, std::move(corners));
    }
    if (m_settings.meshPoints)
        lookAtPoints(object, true, false);
    if (!m_settings.boundaries)
        return;
    ProgressTicker unhurried(nullptr, 1);
    for (const std::vector<int>& line : boundaryLines(object, unhurried)) {
        if (!std::all_of(line.begin(), line.end(), has))
            continue;
        Places boundary;
        std::transform(line.begin(), line.end(), std::back_inserter(boundary), at);
        lookAt(DxfExpectedEntity::Line, std::move(boundary));
    }
}

/// In space the trace and the lines on the section, on a map the trace, from the side the lines unfolded along it.
void DxfExpectation::lookAtSection(const ModelObject& object)
{
    const bool fromSide = m_settings.dimension == Settings::Dimension::Section;
    if (!fromSide)
        lookAtLine(placesOf(PositionSource::of(object), object.x->size(), object, verticesAtOnce), 0,
                   object.vertexCount(), false);
    if (!object.section || m_settings.dimension == Settings::Dimension::Map)
        return;
    const PositionRules rules = m_rules.of(object, true);
    for (const SectionSegment& segment : object.section->segments) {
        m_current.colour = nearestColourIndex(segment.color);
        Places line;
        if (fromSide) {
            for (std::size_t point = 0; point < segment.z.size(); ++point)
                line.push_back({segment.distance[point] * rules.factor, segment.z[point] * rules.heightFactor, 0.0});
        } else {
            const ExpectedPlaces places =
                placesOf(PositionSource::of(segment), segment.z.size(), object, verticesAtOnce);
            for (std::size_t point = 0; point < places.size(); ++point) {
                if (places.has(point))
                    line.push_back(drawn(places.at(point)));
            }
        }
        const bool single = line.size() == 1;
        if (!line.empty())
            lookAt(single ? DxfExpectedEntity::Point : DxfExpectedEntity::Line, std::move(line));
    }
}

} // namespace kpFormats
