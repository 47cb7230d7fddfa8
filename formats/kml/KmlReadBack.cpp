// SPDX-License-Identifier: MIT
#include "formats/kml/KmlReadBack.h"

#include "formats/kml/KmlDocumentWriter.h"
#include "geo/GdalSession.h"

#include <QFileInfo>

#include <algorithm>
#include <cmath>

namespace kpFormats
{

namespace
{

constexpr double metresPerDegree = 111320.0;
// What is written has nine decimals; this is ten times what they lose.
constexpr double mostError = 0.01;

QString nameOf(const OGRFeature& feature)
{
    const int field = feature.GetFieldIndex("Name");
    return field < 0 ? QString() : QString::fromUtf8(feature.GetFieldAsString(field));
}

/// A name as a reader gives it back: spaces and line ends at its borders do not count.
QString comparable(const QString& name)
{
    QString text = xmlText(name);
    return text.replace(QLatin1Char('\r'), QLatin1Char('\n')).trimmed();
}

void collect(const OGRGeometry& geometry, std::vector<OGRRawPoint>& places, std::vector<double>& heights)
{
    const auto add = [&](double x, double y, double z) {
        places.emplace_back(x, y);
        heights.push_back(z);
    };
    switch (wkbFlatten(geometry.getGeometryType())) {
    case wkbPoint:
        add(geometry.toPoint()->getX(), geometry.toPoint()->getY(), geometry.toPoint()->getZ());
        break;
    case wkbLineString: {
        const OGRLineString& line = *geometry.toLineString();
        for (int index = 0; index < line.getNumPoints(); ++index)
            add(line.getX(index), line.getY(index), line.getZ(index));
        break;
    }
    case wkbPolygon:
        for (const OGRLinearRing* ring : *geometry.toPolygon())
            collect(*ring, places, heights);
        break;
    default:
        if (OGR_GT_IsSubClassOf(geometry.getGeometryType(), wkbGeometryCollection)) {
            for (const OGRGeometry* part : *geometry.toGeometryCollection())
                collect(*part, places, heights);
        }
    }
}

} // namespace

KmlReadBack::KmlReadBack(const QString& path, bool archived)
    : m_document(archived ? QStringLiteral("/vsizip/{%1}/doc.kml").arg(path) : path)
    , m_pictures(archived ? QStringLiteral("/vsizip/{%1}").arg(path) : QFileInfo(path).absolutePath())
{
    const QuietGdal quiet;
    registerGdalDrivers();
    const char* const drivers[] = {"LIBKML", nullptr};
    m_result.reader = QStringLiteral("GDAL driver LIBKML");
    m_dataset.reset(GDALDataset::Open(m_document.toUtf8().constData(), GDAL_OF_VECTOR, drivers));
    if (!m_dataset)
        fail(QStringLiteral("the file could not be read: %1").arg(QuietGdal::lastMessage()));
    m_layer = -1;
}

void KmlReadBack::fail(const QString& fault)
{
    if (m_result.fault.isEmpty())
        m_result.fault = fault;
}

Verification KmlReadBack::result()
{
    const QuietGdal quiet;
    qint64 count = 0;
    for (int layer = 0; m_dataset && layer < m_dataset->GetLayerCount(); ++layer)
        count += m_dataset->GetLayer(layer)->GetFeatureCount();
    if (good() && count != m_result.count)
        fail(QStringLiteral("the file holds %1 features where %2 were written").arg(count).arg(m_result.count));
    if (m_result.worstError > mostError)
        fail(QStringLiteral("a position is %1 m off").arg(m_result.worstError));
    return m_result;
}

void KmlReadBack::beginFolder(const QString& name)
{
    if (!good())
        return;
    ++m_layer;
    OGRLayer* layer = m_dataset->GetLayer(m_layer);
    if (!layer || QString::fromUtf8(layer->GetName()) != name)
        fail(QStringLiteral("there is no folder %1").arg(name));
    else
        layer->ResetReading();
}

bool KmlReadBack::nextFeature(const QString& name)
{
    if (!good())
        return false;
    const QuietGdal quiet;
    OGRLayer* layer = m_dataset->GetLayer(std::max(m_layer, 0));
    m_feature.reset(layer ? layer->GetNextFeature() : nullptr);
    m_places.clear();
    m_heights.clear();
    m_next = 0;
    if (!m_feature || !m_feature->GetGeometryRef()) {
        fail(QStringLiteral("%1 is missing").arg(name));
        return false;
    }
    if (comparable(nameOf(*m_feature)) != comparable(name)) {
        fail(QStringLiteral("%1 is named %2").arg(name, nameOf(*m_feature)));
        return false;
    }
    collect(*m_feature->GetGeometryRef(), m_places, m_heights);
    ++m_result.count;
    return true;
}

void KmlReadBack::beginPlacemark(const QString& name, const QString&, Look, const QColor&,
                                 KmlExportSettings::AltitudeMode mode)
{
    m_hasHeights = mode != KmlExportSettings::AltitudeMode::Clamp;
    nextFeature(name);
}

void KmlReadBack::endPlacemark()
{
    if (good() && m_next != m_places.size())
        fail(QStringLiteral("%1 has %2 positions where %3 were written")
                 .arg(nameOf(*m_feature))
                 .arg(m_places.size())
                 .arg(m_next));
}

void KmlReadBack::point(double longitude, double latitude, double height)
{
    compare(longitude, latitude, height);
}

void KmlReadBack::endRing()
{
    // The ring's first position again.
    ++m_next;
}

void KmlReadBack::positions(const PositionBlock& block)
{
    for (std::size_t index = 0; index < block.size() && good(); ++index)
        compare(block.x[index], block.y[index], block.z[index]);
}

void KmlReadBack::compare(double longitude, double latitude, double height)
{
    if (!good())
        return;
    if (m_next >= m_places.size())
        return fail(QStringLiteral("positions of %1 are missing").arg(nameOf(*m_feature)));
    const double east = (m_places[m_next].x - longitude) * std::cos(latitude * M_PI / 180.0) * metresPerDegree;
    const double north = (m_places[m_next].y - latitude) * metresPerDegree;
    const double up = m_hasHeights ? m_heights[m_next] - height : 0.0;
    m_result.differs(std::hypot(east, north, up));
    ++m_next;
}

void KmlReadBack::overlay(const QString& name, const QString&, const QString&, const DegreeBox& box)
{
    if (!nextFeature(name))
        return;
    OGREnvelope envelope;
    m_feature->GetGeometryRef()->getEnvelope(&envelope);
    const double worst = std::max({std::abs(envelope.MinX - box.west), std::abs(envelope.MaxX - box.east),
                                   std::abs(envelope.MinY - box.south), std::abs(envelope.MaxY - box.north)});
    m_result.differs(worst * metresPerDegree);
}

void KmlReadBack::checkPicture(const QString& name, const QImage& image)
{
    const QuietGdal quiet;
    const QString path = m_pictures + QLatin1Char('/') + name;
    const GDALDatasetUniquePtr picture(GDALDataset::Open(path.toUtf8().constData(), GDAL_OF_RASTER));
    if (!picture)
        return fail(QStringLiteral("the picture %1 cannot be read").arg(name));
    if (picture->GetRasterXSize() != image.width() || picture->GetRasterYSize() != image.height())
        return fail(QStringLiteral("the picture %1 has another size than was written").arg(name));
}

} // namespace kpFormats
