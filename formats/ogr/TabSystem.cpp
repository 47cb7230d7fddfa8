// SPDX-License-Identifier: MIT
#include "formats/ogr/TabSystem.h"

#include "geo/CoordinateSystems.h"
#include "geo/GdalSession.h"

#include <QStringList>

#include <ogr_spatialref.h>

#include <algorithm>
#include <cmath>

namespace kpFormats
{

namespace
{

using Places = std::vector<std::array<double, 2>>;

/// Beyond this a wrong system is worse than none.
constexpr double mostMetres = 5.0;
constexpr double exactMetres = 0.01;

QString wordsOf(const OGRSpatialReference& reference)
{
    char* words = nullptr;
    OGRSpatialReference own(reference);
    const bool made = OSRExportToMICoordSys(OGRSpatialReference::ToHandle(&own), &words) == OGRERR_NONE;
    const QString text = made ? QString::fromUtf8(words) : QString();
    CPLFree(words);
    return text;
}

/// The system that MapInfo's words stand for; empty when they say none.
QString systemOf(const QString& words)
{
    OGRSpatialReference reference;
    const bool read = !words.isEmpty()
                      && OSRImportFromMICoordSys(OGRSpatialReference::ToHandle(&reference), words.toUtf8().constData())
                             == OGRERR_NONE;
    return read && !reference.IsLocal() ? wktOf(&reference) : QString();
}

/// Position from the centre of the Earth.
std::array<double, 3> geocentric(double longitude, double latitude, double height, double radius, double flattening)
{
    const double toRadians = std::acos(-1.0) / 180.0;
    const double e2 = flattening * (2.0 - flattening);
    const double sine = std::sin(latitude * toRadians);
    const double cosine = std::cos(latitude * toRadians);
    const double n = radius / std::sqrt(1.0 - e2 * sine * sine);
    return {(n + height) * cosine * std::cos(longitude * toRadians),
            (n + height) * cosine * std::sin(longitude * toRadians), (n * (1.0 - e2) + height) * sine};
}

/// The shift of the centre of the target's ellipsoid at a place, so that the place stays where it is in WGS 84.
std::array<double, 3> shiftAt(const OGRSpatialReference& target, const std::array<double, 2>& place)
{
    const std::unique_ptr<OGRSpatialReference> geographic(target.CloneGeogCS());
    std::vector<double> x{place[0]};
    std::vector<double> y{place[1]};
    std::vector<double> z{0.0};
    CoordinateTransform(wktOf(&target), wktOf(geographic.get())).transform(x, y, z);
    const double flat = target.GetInvFlattening();
    const auto own = geocentric(x[0], y[0], 0.0, target.GetSemiMajor(), flat > 0 ? 1.0 / flat : 0.0);
    const QString world = wktOf(QStringLiteral("EPSG:4326"));
    x = {place[0]};
    y = {place[1]};
    CoordinateTransform(wktOf(&target), world).transform(x, y, z);
    const auto there = geocentric(x[0], y[0], 0.0, 6378137.0, 1.0 / 298.257223563);
    std::array<double, 3> shift{};
    for (std::size_t axis = 0; axis < 3; ++axis)
        shift[axis] = there[axis] - own[axis];
    return shift;
}

/// The words for the target with its ellipsoid and a shift in the place of a named datum.
QString wordsWithShift(const OGRSpatialReference& target, const std::array<double, 3>& shift)
{
    OGRSpatialReference nameless(target);
    nameless.SetGeogCS("unnamed", "unnamed", "unnamed", target.GetSemiMajor(), target.GetInvFlattening());
    nameless.SetTOWGS84(shift[0], shift[1], shift[2]);
    // "Earth Projection 8, 9999, 10, dx, dy, dz, rx, ry, rz, scale, meridian, ...": without turns it is 999 and a shift.
    QStringList words = wordsOf(nameless).split(QStringLiteral(", "));
    if (words.size() < 11 || words[1] != QLatin1String("9999"))
        return {};
    words[1] = QStringLiteral("999");
    words.erase(words.begin() + 6, words.begin() + 11);
    return words.join(QStringLiteral(", "));
}

} // namespace

WrittenSystem tabSystem(const QString& target, const Places& places)
{
    const QuietGdal quiet;
    OGRSpatialReference reference;
    if (places.empty() || reference.SetFromUserInput(target.toUtf8().constData()) != OGRERR_NONE)
        return {target, 0.0};
    reference.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
    const double named = metresApart(systemOf(wordsOf(reference)), target, places);
    if (named <= exactMetres)
        return {target, named};
    try {
        const QString shifted = systemOf(wordsWithShift(reference, shiftAt(reference, places[places.size() / 2])));
        const double apart = metresApart(shifted, target, places);
        if (apart <= mostMetres && !(named <= apart))
            return {shifted, apart};
    } catch (const std::exception&) {
        // There is no way to WGS 84.
    }
    return named <= mostMetres ? WrittenSystem{target, named} : WrittenSystem{};
}

} // namespace kpFormats
