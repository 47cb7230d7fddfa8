// SPDX-License-Identifier: MIT
#include "formats/ogr/OgrSystemVerification.h"

#include "geo/CoordinateSystems.h"
#include "geo/CoordinateTransform.h"

#include <ogr_spatialref.h>

#include <cmath>
#include <exception>

namespace kpFormats
{

namespace
{

bool isKnown(const QString& wkt, OGRSpatialReference& reference)
{
    return !wkt.isEmpty() && reference.SetFromUserInput(wkt.toUtf8().constData()) == OGRERR_NONE;
}

/// Whether MapInfo has words for the system.
bool hasMapInfoWords(const OGRSpatialReference& reference)
{
    char* words = nullptr;
    OGRSpatialReference own(reference);
    const bool made = OSRExportToMICoordSys(OGRSpatialReference::ToHandle(&own), &words) == OGRERR_NONE;
    OGRSpatialReference back;
    const bool there = made && words
                       && OSRImportFromMICoordSys(OGRSpatialReference::ToHandle(&back), words) == OGRERR_NONE
                       && !wktOf(&back).isEmpty() && !back.IsLocal();
    CPLFree(words);
    return there;
}

/// Whether the driver has a way to say which system it is; the report tells where it has none.
bool canSay(const OGRSpatialReference& target, const OgrTraits& traits)
{
    if (traits.driver == QLatin1String("GeoJSON"))
        return target.GetAuthorityCode(nullptr) != nullptr;
    return traits.driver != QLatin1String("MapInfo File") || hasMapInfoWords(target);
}

} // namespace

void compareOgrSystem(const OGRSpatialReference* read, const QString& target, const OgrTraits& traits,
                      const Verification::Place& place, Verification& result)
{
    const QString found = wktOf(read);
    OGRSpatialReference wanted;
    if (!isKnown(target, wanted)) {
        // Readers take GeoJSON for WGS 84 where it says nothing.
        if (!found.isEmpty() && traits.driver != QLatin1String("GeoJSON"))
            result.fail(
                QStringLiteral("the coordinate system %1 was read where the objects have none").arg(crsName(found)));
        return;
    }
    if (!canSay(wanted, traits))
        return;
    result.alsoCompared(QStringLiteral("coordinate system"));
    if (found.isEmpty())
        return result.fail(QStringLiteral("no coordinate system was read instead of %1").arg(crsName(target)));
    if (wanted.IsLocal() || read->IsLocal()) {
        if (!wanted.IsLocal() || !read->IsLocal())
            result.fail(
                QStringLiteral("the coordinate system %1 was read instead of %2").arg(crsName(found), crsName(target)));
        return;
    }
    const double most = wanted.IsGeographic() ? 1e-7 : 0.01 / wanted.GetLinearUnits();
    std::vector<double> x{place[0]};
    std::vector<double> y{place[1]};
    std::vector<double> z{0.0};
    double apart = std::nan("");
    try {
        CoordinateTransform(found, target).transform(x, y, z);
        apart = std::hypot(x[0] - place[0], y[0] - place[1]);
    } catch (const std::exception&) {
        // There is no way between them.
    }
    if (!(apart <= most))
        result.fail(QStringLiteral("the coordinate system %1 was read instead of %2, which is %3 off")
                        .arg(crsName(found), crsName(target))
                        .arg(apart));
}

} // namespace kpFormats
