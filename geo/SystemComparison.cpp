// SPDX-License-Identifier: MIT
#include "geo/SystemComparison.h"

#include "geo/CoordinateSystems.h"
#include "geo/CoordinateTransform.h"

#include <ogr_spatialref.h>

#include <cmath>
#include <exception>
#include <vector>

namespace kpFormats
{

namespace
{

/// How far apart the two put a place; NaN when there is no way between them.
double apart(const QString& read, const QString& wanted, double x, double y)
{
    std::vector<double> east{x};
    std::vector<double> north{y};
    std::vector<double> height{0.0};
    try {
        CoordinateTransform(read, wanted).transform(east, north, height);
    } catch (const std::exception&) {
        return std::nan("");
    }
    return std::hypot(east[0] - x, north[0] - y);
}

} // namespace

QString differenceOfSystems(const QString& read, const QString& wanted, double x, double y)
{
    if (read.isEmpty())
        return QStringLiteral("no coordinate system was read instead of %1").arg(crsName(wanted));
    OGRSpatialReference one;
    OGRSpatialReference other;
    one.SetFromUserInput(read.toUtf8().constData());
    other.SetFromUserInput(wanted.toUtf8().constData());
    const QString difference =
        QStringLiteral("the coordinate system %1 was read instead of %2").arg(crsName(read), crsName(wanted));
    // A local system has no place on the globe to compare.
    if (one.IsLocal() || other.IsLocal())
        return one.IsLocal() && other.IsLocal() ? QString() : difference;
    const double most = other.IsGeographic() ? 1e-7 : 0.01 / other.GetLinearUnits();
    const double distance = apart(read, wanted, x, y);
    return distance <= most ? QString() : difference + QStringLiteral(", which is %1 off").arg(distance);
}

} // namespace kpFormats
