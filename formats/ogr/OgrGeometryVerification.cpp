// SPDX-License-Identifier: MIT
#include "formats/ogr/OgrGeometryVerification.h"

#include <algorithm>
#include <cmath>

namespace kpFormats
{

namespace
{

/// A ring's length in a file, where its first position stands at its end too.
std::size_t lengthOf(const OgrExpectedFeature::Figure& figure)
{
    return figure.vertices.size() + (figure.ring ? 1 : 0);
}

std::size_t lengthOf(const OGRSimpleCurve& curve)
{
    return static_cast<std::size_t>(curve.getNumPoints());
}

std::size_t vertexAt(const OgrExpectedFeature::Figure& figure, std::size_t index)
{
    return figure.vertices[index % figure.vertices.size()];
}

} // namespace

void OgrGeometryVerification::collect(const OGRGeometry& geometry, std::vector<Curve>& curves)
{
    switch (wkbFlatten(geometry.getGeometryType())) {
    case wkbLineString:
        curves.push_back({geometry.toLineString(), false});
        break;
    case wkbPolygon: {
        bool hole = false;
        for (const OGRLinearRing* ring : *geometry.toPolygon()) {
            curves.push_back({ring, hole});
            hole = true;
        }
        break;
    }
    case wkbMultiLineString:
    case wkbMultiPolygon:
    case wkbGeometryCollection:
        for (const OGRGeometry* part : *geometry.toGeometryCollection())
            collect(*part, curves);
        break;
    default:
        break;
    }
}

QString OgrGeometryVerification::where(std::size_t vertex) const
{
    return QStringLiteral("%1, vertex %2").arg(m_places->object().name).arg(vertex + 1);
}

Verification::Place OgrGeometryVerification::expected(std::size_t vertex) const
{
    Verification::Place place = m_places->at(vertex);
    if (std::isnan(place[2]))
        place[2] = 0.0;
    return place;
}

Verification::Place OgrGeometryVerification::placeOf(const OGRSimpleCurve& curve, std::size_t index)
{
    const auto point = static_cast<int>(index);
    return {curve.getX(point), curve.getY(point), curve.getZ(point)};
}

/// Only to find out which belong together.
bool OgrGeometryVerification::near(const Verification::Place& a, const Verification::Place& b) const
{
    const double most = m_result.allowed().most * 1.0000001 + 1e-15 * std::max(std::abs(a[0]), std::abs(a[1]));
    return std::abs(a[0] - b[0]) <= most && std::abs(a[1] - b[1]) <= most;
}

void OgrGeometryVerification::comparePlace(std::size_t vertex, const Verification::Place& read)
{
    const auto there = [&] { return where(vertex); };
    if (m_hasZ)
        m_result.comparePosition(expected(vertex), read, there);
    else
        m_result.compareFlatPosition(expected(vertex), read, there);
}

bool OgrGeometryVerification::sameShape(const OgrExpectedFeature& feature, const std::vector<Curve>& curves) const
{
    return curves.size() == feature.figures.size()
           && std::equal(curves.begin(), curves.end(), feature.figures.begin(),
                         [](const Curve& curve, const auto& figure) {
                             return lengthOf(*curve.points) == lengthOf(figure) && curve.hole == figure.hole;
                         });
}

/// Puts the curve that a figure is most likely in into its place: drivers sort rings.
void OgrGeometryVerification::takeFitting(std::vector<Curve>& curves, std::size_t index,
                                          const OgrExpectedFeature::Figure& figure) const
{
    const auto fits = [&](const Curve& curve) {
        const std::size_t length = lengthOf(*curve.points);
        return length == lengthOf(figure) && near(expected(figure.vertices.front()), placeOf(*curve.points, 0))
               && (near(expected(figure.vertices[1]), placeOf(*curve.points, 1))
                   || near(expected(figure.vertices[1]), placeOf(*curve.points, length - 2)));
    };
    const auto first = curves.begin() + static_cast<std::ptrdiff_t>(index);
    const auto found = std::find_if(first, curves.end(), fits);
    if (found != curves.end())
        std::iter_swap(first, found);
}

void OgrGeometryVerification::compareFigure(const OGRSimpleCurve& curve, const OgrExpectedFeature::Figure& figure)
{
    const std::size_t length = lengthOf(figure);
    if (!m_result.compareCount(where(figure.vertices.front()),
                               figure.ring ? QStringLiteral("positions of the ring that begins there")
                                           : QStringLiteral("positions of the line that begins there"),
                               static_cast<qint64>(length), curve.getNumPoints()))
        return;
    // Drivers turn rings the way round that their format asks for.
    const auto farthest = [&](bool backwards) {
        double most = 0;
        for (std::size_t index = 0; index < length; ++index) {
            const Verification::Place& wanted = m_places->at(vertexAt(figure, index));
            const Verification::Place read = placeOf(curve, backwards ? length - 1 - index : index);
            most = std::max({most, std::abs(read[0] - wanted[0]), std::abs(read[1] - wanted[1])});
        }
        return most;
    };
    const bool backwards = figure.ring && farthest(true) < farthest(false);
    for (std::size_t index = 0; index < length; ++index)
        comparePlace(vertexAt(figure, index), placeOf(curve, backwards ? length - 1 - index : index));
}

bool OgrGeometryVerification::crosses180(const OgrExpectedFeature& feature) const
{
    // What comes this near to both sides is taken for something that crosses.
    constexpr double margin = 170.0;
    double least = 180.0;
    double most = -180.0;
    for (const OgrExpectedFeature::Figure& figure : feature.figures) {
        for (const std::size_t vertex : figure.vertices) {
            least = std::min(least, m_places->at(vertex)[0]);
            most = std::max(most, m_places->at(vertex)[0]);
        }
    }
    return least < -margin && most > margin;
}

/// Every vertex must be in some part, and what is more must lie on the line at 180 degrees or at a pole.
void OgrGeometryVerification::compareCut(const OgrExpectedFeature& feature, const std::vector<Curve>& curves)
{
    constexpr double onTheLine = 1e-6;
    const auto canonical = [](Verification::Place place) {
        if (place[0] < -180.0 + onTheLine)
            place[0] += 360.0;
        return place;
    };
    const auto western = [](const Verification::Place& a, const Verification::Place& b) { return a[0] < b[0]; };
    const auto around = [&](std::vector<Verification::Place>& places, const Verification::Place& place) {
        const double most = std::max(m_result.allowed().most * 1.0000001, 1e-12);
        auto found = std::lower_bound(places.begin(), places.end(),
                                      Verification::Place{place[0] - most, place[1], place[2]}, western);
        while (found != places.end() && (*found)[0] <= place[0] + most && std::abs((*found)[1] - place[1]) > most)
            ++found;
        return found != places.end() && (*found)[0] <= place[0] + most ? found : places.end();
    };
    std::vector<Verification::Place> read;
    for (const Curve& curve : curves) {
        for (std::size_t index = 0; index < lengthOf(*curve.points); ++index)
            read.push_back(canonical(placeOf(*curve.points, index)));
    }
    std::sort(read.begin(), read.end(), western);
    std::vector<Verification::Place> wanted;
    for (const OgrExpectedFeature::Figure& figure : feature.figures) {
        for (const std::size_t vertex : figure.vertices) {
            wanted.push_back(canonical(expected(vertex)));
            const auto found = around(read, wanted.back());
            if (found == read.end())
                m_result.fail(
                    QStringLiteral("%1: it is in none of the parts that were cut at 180 degrees").arg(where(vertex)));
            else if (std::abs(wanted.back()[0] - 180.0) > onTheLine)
                comparePlace(vertex, *found);
        }
    }
    std::sort(wanted.begin(), wanted.end(), western);
    for (const Verification::Place& place : read) {
        const bool added = std::abs(place[0] - 180.0) < onTheLine || std::abs(std::abs(place[1]) - 90.0) < onTheLine;
        if (!added && around(wanted, place) == wanted.end())
            m_result.fail(QStringLiteral("%1: a part that was cut at 180 degrees has a position %2, %3 that is not "
                                         "in the model")
                              .arg(m_places->object().name)
                              .arg(place[0])
                              .arg(place[1]));
    }
}

void OgrGeometryVerification::tellShape(const OgrExpectedFeature& feature, const std::vector<Curve>& curves)
{
    const QString name = QStringLiteral("%1, feature %2").arg(m_places->object().name).arg(feature.number);
    if (!m_result.compareCount(name, QStringLiteral("parts"), static_cast<qint64>(feature.figures.size()),
                               static_cast<qint64>(curves.size())))
        return;
    for (std::size_t index = 0; m_habits.keepsRings && index < curves.size(); ++index) {
        const bool hole = feature.figures[index].hole;
        if (curves[index].hole != hole)
            m_result.fail(QStringLiteral("%1: part %2 is %3 instead of %4")
                              .arg(name)
                              .arg(index + 1)
                              .arg(hole ? QStringLiteral("no hole") : QStringLiteral("a hole"),
                                   hole ? QStringLiteral("one") : QStringLiteral("an outer ring")));
    }
}

void OgrGeometryVerification::compare(const OGRGeometry* geometry, const OgrExpectedFeature& feature,
                                      const OgrExpectedPlaces& places, bool hasZ)
{
    m_places = &places;
    m_hasZ = hasZ;
    const auto name = [&] { return QStringLiteral("%1, feature %2").arg(places.object().name).arg(feature.number); };
    if (!geometry || geometry->IsEmpty())
        return m_result.fail(QStringLiteral("%1: it has no geometry").arg(name()));
    if ((geometry->Is3D() != 0) != hasZ)
        return m_result.fail(QStringLiteral("%1: it has %2 heights")
                                 .arg(name(), hasZ ? QStringLiteral("no") : QStringLiteral("unexpected")));
    const bool isPoint = wkbFlatten(geometry->getGeometryType()) == wkbPoint;
    const bool wantsPoint = feature.figures.size() == 1 && feature.figures.front().vertices.size() == 1;
    if (isPoint != wantsPoint)
        return m_result.fail(QStringLiteral("%1: it is a %2").arg(name(), QLatin1String(geometry->getGeometryName())));
    if (isPoint) {
        const OGRPoint* point = geometry->toPoint();
        return comparePlace(feature.vertex(), {point->getX(), point->getY(), point->getZ()});
    }
    std::vector<Curve> curves;
    collect(*geometry, curves);
    if (m_habits.cutsAt180 && !sameShape(feature, curves) && crosses180(feature))
        return compareCut(feature, curves);
    tellShape(feature, curves);
    for (std::size_t index = 0; m_result.good() && index < curves.size(); ++index) {
        if (!m_habits.keepsRings)
            takeFitting(curves, index, feature.figures[index]);
        compareFigure(*curves[index].points, feature.figures[index]);
    }
}

} // namespace kpFormats
