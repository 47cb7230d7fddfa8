// SPDX-License-Identifier: MIT
#include "geo/CoordinateSystems.h"

#include "geo/GdalSession.h"
#include "geo/LoadLimits.h"

#include <ogr_spatialref.h>

#include <QByteArray>

#include <cmath>

namespace kpFormats
{

namespace
{

/// Whether it is what formats that must name a system write where there is none.
bool saysNothing(const OGRSpatialReference& reference)
{
    const QString name = QString::fromUtf8(reference.GetName());
    return reference.IsEmpty() || name == QLatin1String("Undefined geographic SRS")
           || name.startsWith(QLatin1String("Undefined Cartesian SRS")) || name == QLatin1String("Nonearth");
}

QString unitOfMetres(double metres)
{
    const auto is = [metres](double known) { return std::abs(metres - known) < 1e-8 * known; };
    if (is(1.0))
        return QStringLiteral("m");
    if (is(0.3048))
        return QStringLiteral("ft");
    if (is(1200.0 / 3937.0))
        return QStringLiteral("ftUS");
    return is(1000.0) ? QStringLiteral("km") : QString();
}

} // namespace

QString wktOf(const OGRSpatialReference* reference)
{
    if (!reference || saysNothing(*reference))
        return {};
    char* wkt = nullptr;
    const QString text = reference->exportToWkt(&wkt) == OGRERR_NONE ? QString::fromUtf8(wkt) : QString();
    CPLFree(wkt);
    return text;
}

QString wktOf(const QString& text)
{
    const QuietGdal quiet;
    // Nor the name of a file: the text may be a stranger's.
    const char* const limits[] = {
        "ALLOW_FILE_ACCESS=NO", isNetworkForbidden() ? "ALLOW_NETWORK_ACCESS=NO" : "ALLOW_NETWORK_ACCESS=YES", nullptr};
    OGRSpatialReference reference;
    if (text.isEmpty() || reference.SetFromUserInput(text.toUtf8().constData(), limits) != OGRERR_NONE)
        return {};
    return wktOf(&reference);
}

SystemUnits unitsOf(const QString& wkt)
{
    const QuietGdal quiet;
    OGRSpatialReference reference;
    SystemUnits units;
    if (wkt.isEmpty() || reference.SetFromUserInput(wkt.toUtf8().constData()) != OGRERR_NONE)
        return units;
    units.degrees = reference.IsGeographic() != 0;
    if (!units.degrees)
        units.horizontal = unitOfMetres(reference.GetLinearUnits());
    if (reference.IsCompound())
        units.vertical = unitOfMetres(reference.GetTargetLinearUnits("VERT_CS"));
    return units;
}

QString crsName(const QString& wkt)
{
    const QuietGdal quiet;
    OGRSpatialReference reference;
    if (wkt.isEmpty() || reference.SetFromUserInput(wkt.toUtf8().constData()) != OGRERR_NONE)
        return {};
    QString name = QString::fromUtf8(reference.GetName());
    const char* authority = reference.GetAuthorityName(nullptr);
    const char* code = reference.GetAuthorityCode(nullptr);
    if (authority && code)
        name += QStringLiteral(" (%1:%2)").arg(QString::fromUtf8(authority), QString::fromUtf8(code));
    return name;
}

QString crsUnit(const QString& wkt)
{
    const QuietGdal quiet;
    OGRSpatialReference reference;
    if (wkt.isEmpty() || reference.SetFromUserInput(wkt.toUtf8().constData()) != OGRERR_NONE)
        return {};
    if (reference.IsGeographic())
        return QStringLiteral("degrees");
    const char* name = nullptr;
    return reference.GetLinearUnits(&name) == 1.0 ? QStringLiteral("m") : QString::fromUtf8(name);
}

int epsgCodeOf(const QString& wkt)
{
    const QuietGdal quiet;
    OGRSpatialReference reference;
    if (wkt.isEmpty() || reference.SetFromUserInput(wkt.toUtf8().constData()) != OGRERR_NONE)
        return 0;
    const char* const authority = reference.GetAuthorityName(nullptr);
    return authority && EQUAL(authority, "EPSG") ? QByteArray(reference.GetAuthorityCode(nullptr)).toInt() : 0;
}

} // namespace kpFormats
