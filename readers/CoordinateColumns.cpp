// SPDX-License-Identifier: MIT
#include "readers/CoordinateColumns.h"

#include "geo/CoordinateSystems.h"

#include <algorithm>
#include <cmath>

namespace kpFormats
{

namespace
{

int axisOf(const QStringList& columns, const QString& chosen, const char* usual)
{
    return columnNamed(columns,
                       chosen.isEmpty() ? QString::fromLatin1(usual).split(QLatin1Char(',')) : QStringList{chosen});
}

} // namespace

int columnNamed(const QStringList& columns, const QStringList& names)
{
    for (const QString& name : names) {
        for (int column = 0; column < columns.size(); ++column) {
            if (columns[column].compare(name, Qt::CaseInsensitive) == 0)
                return column;
        }
    }
    return -1;
}

CoordinateColumns::CoordinateColumns(const QStringList& columns, const LoadOptions& options)
    : x(axisOf(columns, options.x, "x,easting,east,xcollar,lon,long,longitude"))
    , y(axisOf(columns, options.y, "y,northing,north,ycollar,lat,latitude"))
    , z(axisOf(columns, options.z, "z,elevation,elev,zcollar,altitude"))
{
}

QString systemOfColumns(const QString& xName, const QString& yName, const std::vector<double>& x,
                        const std::vector<double>& y, LoadNotes& notes)
{
    const auto within = [](const std::vector<double>& numbers, double limit) {
        return std::all_of(numbers.begin(), numbers.end(), [limit](double n) { return std::abs(n) <= limit; });
    };
    if (!xName.startsWith(QLatin1String("lon"), Qt::CaseInsensitive)
        || !yName.startsWith(QLatin1String("lat"), Qt::CaseInsensitive) || !within(x, 360.0) || !within(y, 90.0))
        return {};
    notes.append(QStringLiteral("its columns %1 and %2 are taken as degrees of EPSG:4326 (name the coordinate "
                                "system where it is another)")
                     .arg(xName, yName));
    return wktOf(QStringLiteral("EPSG:4326"));
}

} // namespace kpFormats
