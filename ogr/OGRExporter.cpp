// SPDX-License-Identifier: MIT
#include "ogr/OGRExporter.h"

#include "ogr/OGRExporterRun.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cpl_string.h>
#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include <algorithm>
#include <utility>

namespace kpBaseExport
{

namespace
{

QLatin1String suffixOfType(OGRwkbGeometryType type)
{
    switch (type) {
    case wkbPoint:
    case wkbMultiPoint:
        return QLatin1String("_points");
    case wkbLineString:
    case wkbMultiLineString:
        return QLatin1String("_polylines");
    case wkbPolygon:
    case wkbMultiPolygon:
        return QLatin1String("_polygons");
    case wkbPoint25D:
    case wkbMultiPoint25D:
        return QLatin1String("_points3d");
    case wkbLineString25D:
    case wkbMultiLineString25D:
        return QLatin1String("_polylines3d");
    case wkbPolygon25D:
    case wkbMultiPolygon25D:
        return QLatin1String("_polygons3d");
    default:
        return QLatin1String("");
    }
}

CPLStringList stringList(const QStringList& options)
{
    CPLStringList list;
    for (const QString& option : options)
        list.AddString(option.toUtf8().constData());
    return list;
}

/// Deletes a file. A device of that name is left alone.
void removeFile(const QString& name)
{
    const QFileInfo info(name);
    if (info.isFile() || info.isSymLink())
        QFile::remove(name);
}

} // namespace

OGRExporter::OGRExporter(const QString& file, const QString& driver, kpBase::AbstractProgress* reporter)
    : MatrixDataExporter(file, reporter)
    , m_driverName(driver)
{
}

OGRExporter::~OGRExporter() = default;

void OGRExporter::writeHeader(const GeoObject*) {}

void OGRExporter::writeGeo(const GeoObject*) {}

void OGRExporter::coordSystem(const QString& wkt)
{
    m_coordSystemWkt = wkt;
}

QString OGRExporter::getCoordSystemWkt() const
{
    return m_coordSystemWkt;
}

void OGRExporter::writeAttributes(bool enabled)
{
    m_writeAttributes = enabled;
}

void OGRExporter::options(const OGRExporterOptions& options)
{
    m_options = options;
}

const std::vector<OGRRefusal>& OGRExporter::refusals() const
{
    return m_refusals;
}

bool OGRExporter::write(const QVector<OGRLayerInfo>& layers)
{
    m_refusals.clear();
    Run run(m_options.recordRefusals);
    m_run = &run;
    removeFile(fileName);
    bool written = writeLayers(layers);
    if (run.shared)
        written = closeDataSource(std::move(run.shared), run.layerName, fileName) && written;
    m_run = nullptr;
    return written;
}

bool OGRExporter::writeLayers(const QVector<OGRLayerInfo>& layers)
{
    const bool singleLayer = layers.size() == 1;
    return std::all_of(layers.begin(), layers.end(),
                       [this, singleLayer](const OGRLayerInfo& layer) { return processLayer(layer, singleLayer); });
}

QString OGRExporter::layerFileName(const QString& path, OGRwkbGeometryType type)
{
    const QFileInfo info(path);
    return QDir::toNativeSeparators(info.absolutePath() + QDir::separator() + info.completeBaseName()
                                    + suffixOfType(type) + QLatin1Char('.') + info.suffix());
}

QString OGRExporter::getLayerOutFileName(bool singleLayer, QString name, OGRwkbGeometryType type)
{
    if (!singleLayer)
        name = layerFileName(fileName, type);
    removeFile(name);
    return name;
}

OGRExporter::DataSource OGRExporter::createDataSource(const QString& layerName, const QString& name)
{
    GDALDriverManager* manager = GetGDALDriverManager();
    if (!manager)
        return nullptr;
    GDALDriver* driver = manager->GetDriverByName(m_driverName.toLatin1().constData());
    if (!driver) {
        refuse(OGRRefusal::Layer, layerName, m_driverName);
        return nullptr;
    }
    const CPLStringList creation = stringList(m_options.datasetOptions);
    DataSource dataSource(
        driver->Create(name.toUtf8().constData(), 0, 0, 0, GDT_Unknown, const_cast<char**>(creation.List())));
    if (!dataSource)
        refuse(OGRRefusal::Layer, layerName, name);
    return dataSource;
}

void OGRExporter::CloseDataSource::operator()(GDALDataset* dataSource) const
{
    GDALClose(dataSource);
}

bool OGRExporter::closeDataSource(DataSource dataSource, const QString& layerName, const QString& name)
{
    // Much is only written on closing, and closing reports its failures as messages alone.
    m_run->messages.take();
    dataSource.reset();
    if (!m_options.recordRefusals)
        return true;
    const bool failed = m_run->messages.failed();
    const QString message = m_run->messages.take();
    if (!message.isEmpty())
        m_refusals.push_back({OGRRefusal::Closing, layerName, name, message, !failed});
    return !failed;
}

bool OGRExporter::processLayer(const OGRLayerInfo& layer, bool singleLayer)
{
    m_run->layerName = layer.name();
    if (m_options.oneFile) {
        if (!m_run->shared)
            m_run->shared = createDataSource(layer.name(), fileName);
        return m_run->shared && processOGRGeometryLayer(layer, m_run->shared.get(), layer.ogr_type());
    }
    const QString name = getLayerOutFileName(singleLayer, fileName, layer.ogr_type());
    DataSource dataSource = createDataSource(layer.name(), name);
    if (!dataSource)
        return false;
    const bool written = processOGRGeometryLayer(layer, dataSource.get(), layer.ogr_type());
    return closeDataSource(std::move(dataSource), layer.name(), name) && written;
}

std::unique_ptr<OGRSpatialReference, void (*)(OGRSpatialReference*)>
OGRExporter::spatialReference(const QString& layerName)
{
    const auto release = [](OGRSpatialReference* reference) { OSRRelease(OGRSpatialReference::ToHandle(reference)); };
    std::unique_ptr<OGRSpatialReference, void (*)(OGRSpatialReference*)> reference(nullptr, release);
    if (m_coordSystemWkt.isEmpty())
        return reference;
    reference.reset(OGRSpatialReference::FromHandle(OSRNewSpatialReference(encoded(m_coordSystemWkt).constData())));
    if (!reference || reference->Validate() != OGRERR_NONE) {
        refuse(OGRRefusal::SpatialReference, layerName, QString());
        reference.reset();
        return reference;
    }
    // Points come as x, y: longitude before latitude whatever the authority says.
    reference->SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
    return reference;
}

bool OGRExporter::processOGRGeometryLayer(const OGRLayerInfo& layer, GDALDataset* dataSource, OGRwkbGeometryType type)
{
    const auto reference = spatialReference(layer.name());
    const CPLStringList creation = stringList(m_options.layerOptions);
    OGRLayer* ogrLayer = dataSource->CreateLayer(encoded(layer.name()).constData(), reference.get(), type,
                                                 const_cast<char**>(creation.List()));
    if (!ogrLayer) {
        refuse(OGRRefusal::Layer, layer.name(), QString());
        // Off its opt-in the exporter passes over such a layer.
        return !m_options.recordRefusals;
    }
    addFieldInfo(ogrLayer, layer);
    const bool transaction = m_options.transaction && dataSource->TestCapability(ODsCTransactions)
                             && dataSource->StartTransaction() == OGRERR_NONE;
    const bool written = writeFeatures(layer, ogrLayer, type);
    if (!transaction)
        return written;
    m_run->messages.take();
    if (dataSource->CommitTransaction() == OGRERR_NONE)
        return written;
    refuse(OGRRefusal::Closing, layer.name(), QString());
    return false;
}

QByteArray OGRExporter::encoded(const QString& text) const
{
    return m_options.utf8 ? text.toUtf8() : text.toLatin1();
}

void OGRExporter::refuse(OGRRefusal::Kind kind, const QString& layer, const QString& subject, bool taken)
{
    if (m_options.recordRefusals && m_refusals.size() < mostRefusals)
        m_refusals.push_back({kind, layer, subject, m_run->messages.take(), taken});
}

} // namespace kpBaseExport
