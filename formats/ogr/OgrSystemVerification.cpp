// SPDX-License-Identifier: MIT
#include "formats/ogr/OgrSystemVerification.h"

#include "geo/CoordinateSystems.h"
#include "geo/SystemComparison.h"

#include <ogr_spatialref.h>

#include <algorithm>

namespace kpFormats
{

namespace
{

bool isKnown(const QString& wkt, OGRSpatialReference& reference)
{
    return !wkt.isEmpty() && reference.SetFromUserInput(wkt.toUtf8().constData()) == OGRERR_NONE;
}

} // namespace

void compareOgrSystem(const OGRSpatialReference* read, const QString& target, const WrittenSystem& written,
                      const OgrTraits& traits, const Verification::Place& place, Verification& result)
{
    const QString found = wktOf(read);
    OGRSpatialReference wanted;
    if (!isKnown(target, wanted) || written.wkt.isEmpty()) {
        // Readers take GeoJSON for WGS 84 where it says nothing.
        if (!found.isEmpty() && traits.driver != QLatin1String("GeoJSON"))
            result.fail(
                QStringLiteral("the coordinate system %1 was read where the file is to have none").arg(crsName(found)));
        return;
    }
    result.alsoCompared(QStringLiteral("coordinate system"));
    if (traits.driver != QLatin1String("MapInfo File") || !read || wanted.IsLocal() || read->IsLocal()) {
        const QString difference = differenceOfSystems(found, target, place[0], place[1]);
        if (!difference.isEmpty())
            result.fail(difference);
        return;
    }
    // Readers know the numbers of a datum, seldom its name: what counts is where on the globe a place is.
    const double metres = metresApart(found, target, {{place[0], place[1]}});
    if (!(metres <= std::max(0.01, 1.01 * written.off)))
        result.fail(QStringLiteral("the coordinate system %1 was read instead of %2, which is %3 m off")
                        .arg(crsName(found), crsName(target))
                        .arg(metres));
}

} // namespace kpFormats
