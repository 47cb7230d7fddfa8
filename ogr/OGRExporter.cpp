// SPDX-License-Identifier: MIT
#include "ogr/OGRExporter.h"

#include "host/data/AbstractProgress.h"
#include "ogr/OGRMessageCatcher.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cpl_string.h>
#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include <algorithm>
#include <cmath>
#include <limits>

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

void addPoints(OGRSimpleCurve& curve, const QVector<OGRPoint>& points, int first, int end)
{
    for (int index = first; index < end; ++index)
        curve.addPoint(&points[index]);
}

/// The parts' ends, none beyond the points and none before the part's start.
std::vector<int> partEnds(const QVector<unsigned long long>& indices, int pointCount)
{
    std::vector<int> ends;
    int start = 0;
    for (const unsigned long long index : indices) {
        const auto end = static_cast<int>(std::min<unsigned long long>(index, static_cast<unsigned>(pointCount)));
        start = std::max(start, end);
        ends.push_back(start);
    }
    return ends;
}

} // namespace

/// What setFeatureAttributes needs to know of a layer, looked up once.
struct OGRExporter::LayerColumns
{
    struct Column
    {
        OGRFieldType type;
        bool isDip;
        bool isType;
        int field; ///< index in the layer's definition; -1 when the driver refused the field
    };

    std::vector<Column> columns;
    int colour = -1; ///< index of the field "colorval"
};

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
    OGRMessageCatcher messages(m_options.recordRefusals);
    m_messages = &messages;
    if (QFile::exists(fileName))
        QFile::remove(fileName);
    const bool singleLayer = layers.size() == 1;
    const bool written = std::all_of(layers.begin(), layers.end(), [this, singleLayer](const OGRLayerInfo& layer) {
        return processLayer(layer, singleLayer);
    });
    m_messages = nullptr;
    return written;
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
    if (QFile::exists(name))
        QFile::remove(name);
    return name;
}

bool OGRExporter::processLayer(const OGRLayerInfo& layer, bool singleLayer)
{
    GDALDriverManager* manager = GetGDALDriverManager();
    if (!manager)
        return false;
    GDALDriver* driver = manager->GetDriverByName(m_driverName.toLatin1().constData());
    if (!driver) {
        refuse(OGRRefusal::Layer, layer.name(), m_driverName);
        return false;
    }
    const QString name = getLayerOutFileName(singleLayer, fileName, layer.ogr_type());
    const CPLStringList creation = stringList(m_options.datasetOptions);
    GDALDataset* dataSource =
        driver->Create(name.toUtf8().constData(), 0, 0, 0, GDT_Unknown, const_cast<char**>(creation.List()));
    if (!dataSource) {
        refuse(OGRRefusal::Layer, layer.name(), name);
        return false;
    }
    bool written = processOGRGeometryLayer(layer, dataSource, layer.ogr_type());
    // Much is only written on closing, and closing reports its failures as messages alone.
    m_messages->take();
    GDALClose(dataSource);
    if (m_options.recordRefusals) {
        const QString message = m_messages->take();
        if (!message.isEmpty()) {
            m_refusals.push_back({OGRRefusal::Closing, layer.name(), name, message});
            written = false;
        }
    }
    return written;
}

std::unique_ptr<OGRSpatialReference, void (*)(OGRSpatialReference*)>
OGRExporter::spatialReference(const QString& layerName)
{
    const auto release = [](OGRSpatialReference* reference) { OSRRelease(OGRSpatialReference::ToHandle(reference)); };
    std::unique_ptr<OGRSpatialReference, void (*)(OGRSpatialReference*)> reference(nullptr, release);
    if (m_coordSystemWkt.isEmpty())
        return reference;
    reference.reset(OGRSpatialReference::FromHandle(OSRNewSpatialReference(m_coordSystemWkt.toLatin1().constData())));
    if (!reference || reference->Validate() != OGRERR_NONE) {
        refuse(OGRRefusal::SpatialReference, layerName, QString());
        reference.reset();
        return reference;
    }
    // Points come as x, y: longitude before latitude whatever the authority says.
    reference->SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
    return reference;
}

bool OGRExporter::processOGRGeometryLayer(const OGRLayerInfo& layer, GDALDataset* dataSource,
                                          OGRwkbGeometryType type)
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

    OGRFeatureDefn* definition = ogrLayer->GetLayerDefn();
    LayerColumns columns;
    columns.colour = definition->GetFieldIndex("colorval");
    const QVector<OGRAttributeInfo> attributes = layer.attribute_infos();
    // Fields are addressed by position, unless the driver refused one and the later ones moved up.
    const bool allCreated = definition->GetFieldCount() >= attributes.size();
    int position = 0;
    for (const OGRAttributeInfo& attribute : attributes) {
        const QString name = attribute.name().toLower();
        const int field = allCreated ? position : definition->GetFieldIndex(encoded(attribute.name()).constData());
        columns.columns.push_back({attribute.attribute_type(), name == QLatin1String("dip"),
                                   name == QLatin1String("type"), field});
        ++position;
    }

    const QVector<OGRFeatureDetails> features = layer.feature_details();
    const int count = features.size();
    int lastPercent = 0;
    if (progress)
        progress->progressStarted(true);
    if (count != 0)
        updateFeaturesProgressBarIfRequired(count, 1, lastPercent);
    int number = 0;
    for (const OGRFeatureDetails& details : features) {
        ++number;
        OGRFeature* feature = OGRFeature::CreateFeature(definition);
        setFeatureAttributes(feature, details, columns);
        setGeometry(details, feature, type);
        setOGRFeatureStyle(feature, columns.colour);
        CheckOGRFeature(feature, ogrLayer, layer.name(), number);
        if (!updateFeaturesProgressBarIfRequired(count, number, lastPercent))
            return false;
    }
    return true;
}

void OGRExporter::addFieldInfo(OGRLayer* ogrLayer, const OGRLayerInfo& layer)
{
    if (!m_writeAttributes)
        return;
    for (const OGRAttributeInfo& attribute : layer.attribute_infos()) {
        const OGRFieldType type =
            attribute.attribute_type() == OFTStringList ? OFTString : attribute.attribute_type();
        OGRFieldDefn field(encoded(attribute.name()).constData(), type);
        if (m_options.fieldSizes) {
            field.SetWidth(attribute.width());
            field.SetPrecision(attribute.decimals());
        }
        m_messages->take();
        if (ogrLayer->CreateField(&field, TRUE) != OGRERR_NONE)
            refuse(OGRRefusal::Field, layer.name(), attribute.name());
    }
}

void OGRExporter::setFeatureAttributes(OGRFeature* feature, const OGRFeatureDetails& details,
                                       const LayerColumns& columns)
{
    if (!m_writeAttributes)
        return;
    int typeIndex = -1;
    double dip = std::numeric_limits<double>::quiet_NaN();
    const QVector<QVariant> values = details.object_attributes();
    const int count = std::min(values.size(), static_cast<int>(columns.columns.size()));
    for (int position = 0; position < count; ++position) {
        const QVariant& value = values[position];
        const LayerColumns::Column& column = columns.columns[static_cast<std::size_t>(position)];
        if (!value.isValid() || column.field < 0)
            continue;
        switch (column.type) {
        case OFTInteger:
            feature->SetField(column.field, value.toInt());
            break;
        case OFTReal:
            feature->SetField(column.field, value.toDouble());
            if (column.isDip)
                dip = value.toDouble();
            break;
        case OFTString:
        case OFTStringList:
            feature->SetField(column.field, encoded(value.toString()).constData());
            if (column.isType)
                typeIndex = column.field;
            break;
        default:
            break;
        }
    }
    updateHorizontalAndVerticalDips(dip, feature, typeIndex);
}

void OGRExporter::updateHorizontalAndVerticalDips(const double& dip, OGRFeature* feature, const int& typeIndex)
{
    if (typeIndex == -1)
        return;
    const char* prefix = nullptr;
    if (dip == 0.0)
        prefix = "Horizontal ";
    else if (dip == 90.0)
        prefix = "Vertical ";
    if (!prefix)
        return;
    const std::string text = feature->GetFieldAsString(typeIndex);
    if (!text.empty())
        feature->SetField(typeIndex, (prefix + text).c_str());
}

void OGRExporter::setGeometry(const OGRFeatureDetails& details, OGRFeature* feature, OGRwkbGeometryType type)
{
    switch (type) {
    case wkbPoint:
    case wkbPoint25D:
        SetOGRFeaturesGeometryToPoint(details, feature);
        break;
    case wkbLineString:
    case wkbLineString25D:
        SetOGRFeaturesGeometryToPolyline(details, feature);
        break;
    case wkbPolygon:
    case wkbPolygon25D:
        if (m_options.ringParts)
            setGeometryToRings(details, feature, false);
        else
            SetOGRFeaturesGeometryToPolygon(details, feature);
        break;
    case wkbMultiLineString:
    case wkbMultiLineString25D:
        SetOGRFeaturesGeometryToMultiPolyline(details, feature);
        break;
    case wkbMultiPolygon:
    case wkbMultiPolygon25D:
        if (m_options.ringParts)
            setGeometryToRings(details, feature, true);
        break;
    default:
        break;
    }
}

void OGRExporter::SetOGRFeaturesGeometryToPoint(const OGRFeatureDetails& details, OGRFeature* feature)
{
    const QVector<OGRPoint> points = details.points();
    if (!points.isEmpty())
        feature->SetGeometry(&points.first());
}

void OGRExporter::SetOGRFeaturesGeometryToPolyline(const OGRFeatureDetails& details, OGRFeature* feature)
{
    const QVector<OGRPoint> points = details.points();
    OGRLineString line;
    addPoints(line, points, 0, points.size());
    feature->SetGeometry(&line);
}

void OGRExporter::SetOGRFeaturesGeometryToPolygon(const OGRFeatureDetails& details, OGRFeature* feature)
{
    const QVector<OGRPoint> points = details.points();
    OGRLinearRing ring;
    addPoints(ring, points, 0, points.size());
    if (m_options.closeRings)
        ring.closeRings();
    OGRPolygon polygon;
    polygon.addRing(&ring);
    feature->SetGeometry(&polygon);
}

void OGRExporter::SetOGRFeaturesGeometryToMultiPolyline(const OGRFeatureDetails& details, OGRFeature* feature)
{
    const QVector<OGRPoint> points = details.points();
    OGRMultiLineString lines;
    int start = 0;
    for (const int end : partEnds(details.start_polygon_indices(), points.size())) {
        OGRLineString line;
        addPoints(line, points, start, end);
        lines.addGeometry(&line);
        start = end;
    }
    feature->SetGeometry(&lines);
}

void OGRExporter::setGeometryToRings(const OGRFeatureDetails& details, OGRFeature* feature, bool multi)
{
    const QVector<OGRPoint> points = details.points();
    const QVector<bool> holes = details.holes();
    std::vector<int> ends = partEnds(details.start_polygon_indices(), points.size());
    if (ends.empty())
        ends.push_back(points.size());
    std::vector<OGRPolygon> polygons;
    int start = 0;
    for (std::size_t part = 0; part < ends.size(); ++part) {
        OGRLinearRing ring;
        addPoints(ring, points, start, ends[part]);
        if (m_options.closeRings)
            ring.closeRings();
        const bool hole = static_cast<int>(part) < holes.size() && holes[static_cast<int>(part)];
        if (!hole || polygons.empty())
            polygons.emplace_back();
        polygons.back().addRing(&ring);
        start = ends[part];
    }
    if (!multi && polygons.size() == 1) {
        feature->SetGeometry(&polygons.front());
        return;
    }
    OGRMultiPolygon collection;
    for (const OGRPolygon& polygon : polygons)
        collection.addGeometry(&polygon);
    feature->SetGeometry(&collection);
}

void OGRExporter::setOGRFeatureStyle(OGRFeature* feature, int colourIndex)
{
    if (colourIndex == -1)
        return;
    const std::string style =
        std::string("SYMBOL(c:") + feature->GetFieldAsString(colourIndex) + ",id:\"ogr-sym-7\")";
    feature->SetStyleString(style.c_str());
}

void OGRExporter::CheckOGRFeature(OGRFeature* feature, OGRLayer* layer, const QString& layerName, int number)
{
    m_messages->take();
    const OGRErr result = layer->CreateFeature(feature);
    OGRFeature::DestroyFeature(feature);
    if (!m_options.recordRefusals)
        return;
    // A warning alone means that the feature was taken with some loss.
    const QString message = m_messages->take();
    if (result != OGRERR_NONE || !message.isEmpty())
        m_refusals.push_back({OGRRefusal::Feature, layerName, QString::number(number), message});
}

int OGRExporter::featureIndexAsPercentage(int featureCount, int featureIndex)
{
    return static_cast<int>(static_cast<double>(featureIndex) / featureCount * 100.0);
}

bool OGRExporter::updateFeaturesProgressBarIfRequired(int featureCount, int featureIndex, int& lastPercent)
{
    const int percent = featureIndexAsPercentage(featureCount, featureIndex);
    if (percent == lastPercent)
        return true;
    lastPercent = percent;
    if (!progress)
        return true;
    progress->progressChanged(percent);
    return !progress->isCancelled();
}

QByteArray OGRExporter::encoded(const QString& text) const
{
    return m_options.utf8 ? text.toUtf8() : text.toLatin1();
}

void OGRExporter::refuse(OGRRefusal::Kind kind, const QString& layer, const QString& subject)
{
    if (m_options.recordRefusals)
        m_refusals.push_back({kind, layer, subject, m_messages->take()});
}

} // namespace kpBaseExport
