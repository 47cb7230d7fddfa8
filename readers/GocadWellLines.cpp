// SPDX-License-Identifier: MIT
#include "readers/GocadWellLines.h"

#include <cmath>
#include <limits>

namespace kpFormats
{

GocadWellLines::GocadWellLines(TextScanner& scanner, GocadObject& well)
    : m_scanner(scanner)
    , m_well(well)
{
}

double GocadWellLines::number(const char* what)
{
    std::string_view word;
    if (!m_scanner.nextWord(word))
        m_scanner.fail(QStringLiteral("%1 is missing").arg(QLatin1String(what)), QStringLiteral("correct the line"));
    return m_scanner.number(word);
}

/// The rest of the line, without quotes around it.
QString GocadWellLines::text() const
{
    const std::string_view rest = m_scanner.rest();
    QString text = QString::fromUtf8(rest.data(), static_cast<int>(rest.size()));
    if (text.size() > 1 && text.startsWith(QLatin1Char('"')) && text.endsWith(QLatin1Char('"')))
        text = text.mid(1, text.size() - 2);
    return text;
}

void GocadWellLines::read(std::string_view keyword)
{
    if (m_inCurve) {
        readCurve(keyword);
    } else if (keyword == "WREF") {
        readPlace("WREF", m_reference);
        m_hasReference = true;
    } else if (keyword == "KB") {
        m_aboveReference = number("the height of KB");
    } else if (keyword == "PATH_ZM_UNIT") {
        m_well.depthUnit = text();
    } else if (keyword == "PATH") {
        readPath();
    } else if (keyword == "VRTX") {
        std::array<double, 3> place{};
        readPlace("VRTX", place);
        addVertex(std::numeric_limits<double>::quiet_NaN(), place[0], place[1], place[2]);
    } else if (keyword == "STATION") {
        readStation();
    } else if (keyword == "MRKR" || keyword == "ZONE") {
        ++m_well.marks;
    } else if (keyword == "WELL_CURVE") {
        m_curves.push_back({});
        m_curves.back().noData = std::numeric_limits<double>::quiet_NaN();
        m_inCurve = true;
    }
}

void GocadWellLines::readPlace(const char* keyword, std::array<double, 3>& place)
{
    for (double& axis : place)
        axis = number(keyword);
}

/// Depth along the hole, z, and how far east and north of the reference.
void GocadWellLines::readPath()
{
    if (!m_hasReference)
        m_scanner.fail(QStringLiteral("PATH stands before WREF, from which it counts"),
                       QStringLiteral("put WREF before the path"));
    const double depth = number("the depth");
    const double z = number("the height");
    const double east = number("the way east");
    const double north = number("the way north");
    addVertex(depth, m_reference[0] + east, m_reference[1] + north, z);
}

/// Depth along the hole, inclination from straight down, azimuth.
void GocadWellLines::readStation()
{
    constexpr double radian = M_PI / 180.0;
    const double depth = number("the depth");
    const double inclination = number("the inclination");
    const double azimuth = number("the azimuth");
    if (depth < 0.0 || (!m_stations.empty() && !(depth > m_stations.back().depth)))
        m_scanner.fail(QStringLiteral("the depth of a STATION is not below that of the one before"),
                       QStringLiteral("put the stations in order of their depths"));
    m_stations.push_back({depth, azimuth * radian, (90.0 - inclination) * radian});
}

void GocadWellLines::readCurve(std::string_view keyword)
{
    Curve& curve = m_curves.back();
    if (keyword == "END_CURVE") {
        m_inCurve = false;
    } else if (keyword == "PROPERTY") {
        curve.name = text();
    } else if (keyword == "PROP_UNIT") {
        curve.unit = text();
    } else if (keyword == "PROP_NO_DATA_VALUE") {
        curve.noData = number("the value of no data");
    } else if (keyword == "REC") {
        curve.depths.push_back(number("the depth"));
        curve.values.push_back(number("the value"));
    } else if (keyword == "NPTS" || keyword == "SEEK" || keyword == "COLUMN") {
        curve.elsewhere = true;
    }
}

void GocadWellLines::addVertex(double depth, double x, double y, double z)
{
    if (m_well.x.size() >= static_cast<std::size_t>(std::numeric_limits<int>::max()))
        m_scanner.fail(QStringLiteral("there are more vertices than an object can have"),
                       QStringLiteral("split the file"));
    m_well.depths.push_back(depth);
    m_well.x.push_back(x);
    m_well.y.push_back(y);
    m_well.z.push_back(z);
}

/// The path from the directions of the hole, beginning where its depth is 0.
void GocadWellLines::followStations()
{
    if (!m_hasReference)
        m_scanner.fail(QStringLiteral("the well %1 has stations but no WREF").arg(m_well.name),
                       QStringLiteral("say where it is"));
    const double up = m_well.zIsDepth ? -1.0 : 1.0;
    const WellPath path(m_stations);
    if (m_stations.front().depth > 0.0)
        addVertex(0.0, m_reference[0], m_reference[1], m_reference[2] + up * m_aboveReference);
    for (const WellStation& station : m_stations) {
        const std::array<double, 3> moved = path.at(station.depth);
        addVertex(station.depth, m_reference[0] + moved[0], m_reference[1] + moved[1],
                  m_reference[2] + up * (m_aboveReference + moved[2]));
    }
}

void GocadWellLines::finish()
{
    if (m_inCurve)
        m_scanner.fail(QStringLiteral("the curve %1 has no END_CURVE").arg(m_curves.back().name),
                       QStringLiteral("put it before END"));
    if (m_well.x.empty() && !m_stations.empty())
        followStations();
    for (Curve& curve : m_curves) {
        if (curve.name.isEmpty() || curve.elsewhere || m_well.x.empty() || !addCurve(curve))
            m_well.curvesLeftOut.append(curve.name.isEmpty() ? QStringLiteral("unnamed") : curve.name);
    }
}

/// \returns false when a depth of the curve is none of the path's
bool GocadWellLines::addCurve(Curve& curve)
{
    std::vector<double> values(m_well.depths.size(), std::numeric_limits<double>::quiet_NaN());
    std::size_t vertex = 0;
    for (std::size_t record = 0; record < curve.depths.size(); ++record) {
        while (vertex < values.size() && m_well.depths[vertex] != curve.depths[record])
            ++vertex;
        if (vertex == values.size())
            return false;
        values[vertex++] = curve.values[record];
    }
    m_well.properties.append(curve.name);
    m_well.units.append(curve.unit);
    m_well.noDataValues.push_back(curve.noData);
    m_well.values.push_back(std::move(values));
    return true;
}

} // namespace kpFormats
