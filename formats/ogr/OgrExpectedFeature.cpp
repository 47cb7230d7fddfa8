// SPDX-License-Identifier: MIT
#include "formats/ogr/OgrExpectedFeature.h"

#include <algorithm>
#include <cmath>

namespace kpFormats
{

namespace
{

using Look = std::function<bool(const OgrExpectedFeature&)>;

/// A node of a grid that has no height is no point of the surface.
bool isThere(const OgrExpectedPlaces& places, std::size_t vertex)
{
    return places.has(vertex) && (!places.object().grid || !std::isnan((*places.object().z)[vertex]));
}

void eachPoint(const OgrExpectedPlaces& places, const Look& look)
{
    OgrExpectedFeature point;
    point.figures.resize(1);
    bool more = true;
    for (std::size_t vertex = 0; more && vertex < places.object().x->size(); ++vertex) {
        point.figures.front().vertices.assign(1, vertex);
        point.number = static_cast<qint64>(vertex) + 1;
        more = !isThere(places, vertex) || look(point);
    }
}

void eachCell(const OgrExpectedPlaces& places, const Look& look)
{
    const ModelObject& object = places.object();
    OgrExpectedFeature cell;
    cell.figures.resize(1);
    cell.figures.front().ring = true;
    std::vector<std::size_t>& corners = cell.figures.front().vertices;
    bool more = true;
    const auto lookAtCell = [&] {
        const bool whole = std::all_of(corners.begin(), corners.end(),
                                       [&places](std::size_t corner) { return isThere(places, corner); });
        more = !whole || look(cell);
    };
    if (!object.grid) {
        for (std::size_t index = 0; more && index < object.triangles.size(); ++index) {
            corners.assign(object.triangles[index].begin(), object.triangles[index].end());
            cell.number = static_cast<qint64>(index) + 1;
            lookAtCell();
        }
        return;
    }
    const auto columns = static_cast<std::size_t>(object.grid->columns);
    for (std::size_t first = 0; more && first + columns + 1 < object.x->size(); ++first) {
        if (first % columns + 1 == columns)
            continue;
        corners = {first, first + 1, first + columns + 1, first + columns};
        cell.number = static_cast<qint64>(first) + 1;
        lookAtCell();
    }
}

/// The vertices of a line or ring that have a place.
OgrExpectedFeature::Figure figureOf(const Part& part, const OgrExpectedPlaces& places, bool ring, bool hasZ)
{
    const auto height = [&](const Verification::Place& place) {
        return hasZ && !std::isnan(place[2]) ? place[2] : 0.0;
    };
    OgrExpectedFeature::Figure figure;
    figure.ring = ring;
    figure.hole = ring && part.hole;
    for (int index = 0; index < part.count; ++index) {
        const auto vertex = static_cast<std::size_t>(part.first + index);
        if (places.has(vertex))
            figure.vertices.push_back(vertex);
    }
    if (ring && figure.vertices.size() > 1) {
        const Verification::Place& first = places.at(figure.vertices.front());
        const Verification::Place& last = places.at(figure.vertices.back());
        if (first[0] == last[0] && first[1] == last[1] && height(first) == height(last))
            figure.vertices.pop_back();
    }
    return figure;
}

void eachWhole(const OgrLayer& layer, const OgrExpectedPlaces& places, const Look& look)
{
    const bool rings = layer.shape == OgrShape::Polygons;
    const std::size_t least = rings ? 3 : 2;
    OgrExpectedFeature feature;
    feature.number = 1;
    bool outer = false;
    for (const Part& part : partsOf(places.object())) {
        OgrExpectedFeature::Figure figure = figureOf(part, places, rings, layer.hasZ);
        // A hole goes with the ring that it is in.
        const bool there = figure.vertices.size() >= least && (!figure.hole || outer);
        if (!figure.hole)
            outer = there;
        if (there)
            feature.figures.push_back(std::move(figure));
    }
    if (!feature.figures.empty())
        look(feature);
}

} // namespace

void forEachExpectedFeature(const OgrLayer& layer, const OgrExpectedPlaces& places, const Look& look)
{
    if (layer.shape == OgrShape::Points)
        eachPoint(places, look);
    else if (asCells(layer, places.object()))
        eachCell(places, look);
    else
        eachWhole(layer, places, look);
}

} // namespace kpFormats
