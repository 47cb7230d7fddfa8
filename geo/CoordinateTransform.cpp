// SPDX-License-Identifier: MIT
#include "geo/CoordinateTransform.h"

#include "geo/CoordinateSystems.h"
#include "geo/GdalSession.h"

#include <ogr_spatialref.h>

#include <cmath>
#include <limits>
#include <stdexcept>

namespace kpFormats
{

namespace
{

OGRSpatialReference referenceOf(const QString& wkt)
{
    OGRSpatialReference reference;
    if (reference.SetFromUserInput(wkt.toUtf8().constData()) != OGRERR_NONE)
        throw std::runtime_error("this is not a known coordinate system");
    reference.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
    return reference;
}

} // namespace

CoordinateTransform::CoordinateTransform(const QString& fromWkt, const QString& toWkt)
{
    const QuietGdal quiet;
    const OGRSpatialReference from = referenceOf(fromWkt);
    const OGRSpatialReference to = referenceOf(toWkt);
    if (from.IsSame(&to))
        return;
    m_transformation.reset(OGRCreateCoordinateTransformation(&from, &to));
    if (!m_transformation)
        throw std::runtime_error(
            QStringLiteral("there is no way from %1 to %2").arg(crsName(fromWkt), crsName(toWkt)).toStdString());
}

CoordinateTransform::~CoordinateTransform() = default;

int CoordinateTransform::transform(std::vector<double>& x, std::vector<double>& y, std::vector<double>& z) const
{
    if (!m_transformation || x.empty())
        return 0;
    const QuietGdal quiet;
    const int count = static_cast<int>(x.size());
    std::vector<int> successes(x.size(), 0);
    m_transformation->Transform(count, x.data(), y.data(), z.data(), successes.data());
    int failures = 0;
    for (std::size_t index = 0; index < x.size(); ++index) {
        if (successes[index] && std::isfinite(x[index]) && std::isfinite(y[index]))
            continue;
        x[index] = y[index] = std::numeric_limits<double>::quiet_NaN();
        ++failures;
    }
    return failures;
}

} // namespace kpFormats
