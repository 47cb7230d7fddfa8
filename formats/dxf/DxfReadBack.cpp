// SPDX-License-Identifier: MIT
#include "formats/dxf/DxfReadBack.h"

#include "geo/GdalSession.h"

#include <algorithm>
#include <cmath>

namespace kpFormats
{

namespace
{

void collect(const OGRGeometry& geometry, std::vector<DxfSink::Corner>& places)
{
    const OGRwkbGeometryType type = wkbFlatten(geometry.getGeometryType());
    if (type == wkbPoint) {
        const OGRPoint& point = *geometry.toPoint();
        places.push_back({point.getX(), point.getY(), point.getZ()});
    } else if (type == wkbLineString) {
        const OGRLineString& line = *geometry.toLineString();
        for (int index = 0; index < line.getNumPoints(); ++index)
            places.push_back({line.getX(index), line.getY(index), line.getZ(index)});
    } else if (type == wkbPolygon) {
        for (const OGRLinearRing* ring : *geometry.toPolygon())
            collect(*ring, places);
    }
}

} // namespace

DxfReadBack::DxfReadBack(const QString& path)
{
    const QuietGdal quiet;
    registerGdalDrivers();
    const char* const drivers[] = {"DXF", nullptr};
    m_result.reader = QStringLiteral("GDAL driver DXF");
    m_dataset.reset(GDALDataset::Open(path.toUtf8().constData(), GDAL_OF_VECTOR, drivers));
    if (!m_dataset || m_dataset->GetLayerCount() < 1)
        fail(QStringLiteral("the file could not be read: %1").arg(QuietGdal::lastMessage()));
    else
        m_dataset->GetLayer(0)->ResetReading();
}

void DxfReadBack::fail(const QString& fault)
{
    if (m_result.fault.isEmpty())
        m_result.fault = fault;
}

Verification DxfReadBack::result()
{
    const QuietGdal quiet;
    if (good() && OGRFeatureUniquePtr(m_dataset->GetLayer(0)->GetNextFeature()))
        fail(QStringLiteral("the file holds more entities than were written"));
    return m_result;
}

bool DxfReadBack::nextEntity()
{
    m_places.clear();
    m_next = 0;
    if (!good())
        return false;
    const QuietGdal quiet;
    m_feature.reset(m_dataset->GetLayer(0)->GetNextFeature());
    if (!m_feature || !m_feature->GetGeometryRef()) {
        fail(QStringLiteral("entity %1 is missing").arg(m_result.count + 1));
        return false;
    }
    collect(*m_feature->GetGeometryRef(), m_places);
    ++m_result.count;
    return true;
}

void DxfReadBack::compare(const Corner& place)
{
    if (!good())
        return;
    if (m_next >= m_places.size())
        return fail(QStringLiteral("positions of entity %1 are missing").arg(m_result.count));
    const Corner& read = m_places[m_next++];
    const double up = m_pen.flat ? 0.0 : read[2] - place[2];
    const double error = std::hypot(read[0] - place[0], read[1] - place[1], up);
    m_result.differs(error);
    // Half of the last decimal in each direction, and what a double of seven digits cannot tell apart.
    if (!(error <= std::pow(10.0, -std::min(m_pen.decimals, m_pen.flat ? 9 : 7))))
        fail(QStringLiteral("a position of entity %1 is %2 off").arg(m_result.count).arg(error));
}

void DxfReadBack::finish()
{
    if (good() && m_next != m_places.size())
        fail(QStringLiteral("entity %1 has %2 positions where %3 were written")
                 .arg(m_result.count)
                 .arg(m_places.size())
                 .arg(m_next));
}

void DxfReadBack::point(const Corner& place)
{
    if (nextEntity())
        compare(place);
    finish();
}

void DxfReadBack::text(const Corner& place, double, const std::string&)
{
    point(place);
}

void DxfReadBack::beginLine(bool closed)
{
    nextEntity();
    m_closed = closed;
}

void DxfReadBack::positions(const PositionBlock& block)
{
    for (std::size_t index = 0; index < block.size(); ++index) {
        const Corner place{block.x[index], block.y[index], block.z[index]};
        if (m_next == 0)
            m_first = place;
        compare(place);
    }
}

void DxfReadBack::endLine()
{
    // A closed line comes back with its first position at the end.
    if (m_closed)
        compare(m_first);
    finish();
}

void DxfReadBack::face(const std::array<Corner, 4>& corners)
{
    if (!nextEntity())
        return;
    const std::size_t count = corners[2] == corners[3] ? 3 : 4;
    for (std::size_t corner = 0; corner < count; ++corner)
        compare(corners[corner]);
    compare(corners[0]);
    finish();
}

} // namespace kpFormats
