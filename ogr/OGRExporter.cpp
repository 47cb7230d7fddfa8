// SPDX-License-Identifier: MIT
#include "ogr/OGRExporter.h"

#include "host/data/AbstractProgress.h"
#include "ogr/OGRGeometries.h"
#include "ogr/OGRMessageCatcher.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cpl_string.h>
#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include <algorithm>
#include <limits>
#include <string>
#include <utility>
#include <vector>

namespace kpBaseExport
{

/// What the operations on features need to know of a layer, looked up once.
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

/// The state of one write().
struct OGRExporter::Writing
{
    explicit Writing(bool recording)
        : messages(recording)
    {
    }

    OGRMessageCatcher messages;
    DataSource shared; ///< with OGRExporterOptions::oneFile, the one data source
    LayerColumns columns;
    OGRwkbGeometryType type = wkbUnknown;
    QString layerName;
    int number = 0; ///< of the feature, from 1
    bool refused = false;
    std::string text; ///< of the field being set
};

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

// A value that has the very type of its field is taken as it lies there, past QVariant's conversions.

template <typename Type>
bool isOf(const QVariant& value)
{
    return value.userType() == qMetaTypeId<Type>();
}

template <typename Type>
const Type& as(const QVariant& value)
{
    return *static_cast<const Type*>(value.constData());
}

/// Converts a text into memory that is kept for the next one.
void encode(const QString& text, bool utf8, std::string& encoded)
{
    const int size = text.size();
    encoded.resize(static_cast<std::size_t>(size));
    const QChar* const from = text.constData();
    for (int index = 0; index < size; ++index) {
        const ushort code = from[index].unicode();
        if (code == 0 || code >= 0x80) {
            const QByteArray bytes = utf8 ? text.toUtf8() : text.toLatin1();
            encoded.assign(bytes.constData(), static_cast<std::size_t>(bytes.size()));
            return;
        }
        encoded[static_cast<std::size_t>(index)] = static_cast<char>(code);
    }
}

/// The style of a feature of one colour, in OGR's feature style language.
std::string styleText(const char* colour, OGRwkbGeometryType type, bool byGeometry)
{
    const OGRwkbGeometryType flat = wkbFlatten(type);
    if (byGeometry && (flat == wkbLineString || flat == wkbMultiLineString))
        return std::string("PEN(c:") + colour + ",w:1px)";
    if (byGeometry && (flat == wkbPolygon || flat == wkbMultiPolygon))
        return std::string("BRUSH(fc:") + colour + ");PEN(c:#000000,w:1px)";
    return std::string("SYMBOL(c:") + colour + ",id:\"ogr-sym-7\")";
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
    Writing writing(m_options.recordRefusals);
    m_writing = &writing;
    removeFile(fileName);
    bool written = writeLayers(layers);
    if (writing.shared)
        written = closeDataSource(std::move(writing.shared), writing.layerName, fileName) && written;
    m_writing = nullptr;
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
    m_writing->messages.take();
    dataSource.reset();
    if (!m_options.recordRefusals)
        return true;
    const bool failed = m_writing->messages.failed();
    const QString message = m_writing->messages.take();
    if (!message.isEmpty())
        m_refusals.push_back({OGRRefusal::Closing, layerName, name, message, !failed});
    return !failed;
}

bool OGRExporter::processLayer(const OGRLayerInfo& layer, bool singleLayer)
{
    m_writing->layerName = layer.name();
    if (m_options.oneFile) {
        if (!m_writing->shared)
            m_writing->shared = createDataSource(layer.name(), fileName);
        return m_writing->shared && processOGRGeometryLayer(layer, m_writing->shared.get(), layer.ogr_type());
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
    m_writing->messages.take();
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
        m_refusals.push_back({kind, layer, subject, m_writing->messages.take(), taken});
}

bool OGRExporter::writeFeatures(const OGRLayerInfo& layer, OGRLayer* ogrLayer, OGRwkbGeometryType type)
{
    OGRFeatureDefn* definition = ogrLayer->GetLayerDefn();
    const QVector<OGRFeatureDetails> features = layer.feature_details();
    OGRFeatureSource* const source = layer.source();
    OGRFeatureDetails made;
    made.feature_type(type);
    const int count = source ? source->count() : features.size();
    int lastPercent = 0;
    if (progress)
        progress->progressStarted(true);
    if (count != 0)
        updateFeaturesProgressBarIfRequired(count, 1, lastPercent);
    m_writing->type = type;
    for (int index = 0; index < count; ++index) {
        m_writing->number = index + 1;
        bool there = true;
        if (source) {
            made.clear();
            there = source->next(index, made);
        }
        if (there) {
            const OGRFeatureDetails& details = source ? made : features[index];
            OGRFeature* feature = OGRFeature::CreateFeature(definition);
            setFeatureAttributes(feature, details, layer);
            setGeometry(details, feature, type);
            setOGRFeatureStyle(feature);
            CheckOGRFeature(feature, ogrLayer);
            if (m_writing->refused && m_options.stopAtRefusal)
                return false;
        }
        if (!updateFeaturesProgressBarIfRequired(count, index + 1, lastPercent))
            return false;
    }
    return true;
}

void OGRExporter::addFieldInfo(OGRLayer* ogrLayer, const OGRLayerInfo& layer)
{
    OGRFeatureDefn* definition = ogrLayer->GetLayerDefn();
    LayerColumns& columns = m_writing->columns;
    columns.columns.clear();
    if (m_writeAttributes) {
        for (const OGRAttributeInfo& attribute : layer.attribute_infos()) {
            const QString name = attribute.name().toLower();
            columns.columns.push_back({attribute.attribute_type(), name == QLatin1String("dip"),
                                       name == QLatin1String("type"), createField(ogrLayer, layer, attribute)});
        }
    }
    columns.colour = definition->GetFieldIndex("colorval");
}

/// Index of the new field; -1 when the driver refuses it. The name is no way to find it again: drivers shorten names.
int OGRExporter::createField(OGRLayer* ogrLayer, const OGRLayerInfo& layer, const OGRAttributeInfo& attribute)
{
    const OGRFieldType type = attribute.attribute_type() == OFTStringList ? OFTString : attribute.attribute_type();
    OGRFieldDefn field(encoded(attribute.name()).constData(), type);
    if (m_options.fieldSizes) {
        field.SetSubType(attribute.subtype());
        field.SetWidth(attribute.width());
        field.SetPrecision(attribute.decimals());
    }
    OGRFeatureDefn* definition = ogrLayer->GetLayerDefn();
    const int before = definition->GetFieldCount();
    m_writing->messages.take();
    if (ogrLayer->CreateField(&field, TRUE) != OGRERR_NONE) {
        refuse(OGRRefusal::Field, layer.name(), attribute.name());
        return -1;
    }
    // Some drivers have the field already, such as the one for the feature's number.
    return definition->GetFieldCount() > before ? before : definition->GetFieldIndex(field.GetNameRef());
}

void OGRExporter::setFeatureAttributes(OGRFeature* feature, const OGRFeatureDetails& details, const OGRLayerInfo&)
{
    if (!m_writeAttributes)
        return;
    int typeIndex = -1;
    double dip = std::numeric_limits<double>::quiet_NaN();
    double number = 0;
    const QVector<QVariant> values = details.object_attributes();
    const std::vector<LayerColumns::Column>& columns = m_writing->columns.columns;
    const int count = std::min(values.size(), static_cast<int>(columns.size()));
    for (int position = 0; position < count; ++position) {
        const QVariant& value = values[position];
        const LayerColumns::Column& column = columns[static_cast<std::size_t>(position)];
        if (column.field < 0)
            continue;
        if (!value.isValid()) {
            if (m_options.explicitNulls)
                feature->SetFieldNull(column.field);
            continue;
        }
        switch (column.type) {
        case OFTInteger:
            feature->SetField(column.field, isOf<int>(value) ? as<int>(value) : value.toInt());
            break;
        case OFTReal:
            number = isOf<double>(value) ? as<double>(value) : value.toDouble();
            feature->SetField(column.field, number);
            if (column.isDip)
                dip = number;
            break;
        case OFTString:
        case OFTStringList:
            if (isOf<QString>(value))
                encode(as<QString>(value), m_options.utf8, m_writing->text);
            else
                encode(value.toString(), m_options.utf8, m_writing->text);
            feature->SetField(column.field, m_writing->text.c_str());
            if (column.isType)
                typeIndex = column.field;
            break;
        case OFTDate:
        case OFTTime:
        case OFTDateTime:
            if (m_options.dates)
                feature->SetField(column.field, value.toString().toUtf8().constData());
            break;
        default:
            break;
        }
    }
    if (!m_options.keepTypeTexts)
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
            feature->SetGeometryDirectly(ringsOf(details, m_options.closeRings, false).release());
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
            feature->SetGeometryDirectly(ringsOf(details, m_options.closeRings, true).release());
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
    feature->SetGeometryDirectly(lineOf(details).release());
}

void OGRExporter::SetOGRFeaturesGeometryToPolygon(const OGRFeatureDetails& details, OGRFeature* feature)
{
    feature->SetGeometryDirectly(polygonOf(details, m_options.closeRings).release());
}

void OGRExporter::SetOGRFeaturesGeometryToMultiPolyline(const OGRFeatureDetails& details, OGRFeature* feature)
{
    feature->SetGeometryDirectly(linesOf(details).release());
}

void OGRExporter::setOGRFeatureStyle(OGRFeature* feature)
{
    const int colour = m_writing->columns.colour;
    if (colour == -1)
        return;
    const std::string style = styleText(feature->GetFieldAsString(colour), m_writing->type, m_options.styleByGeometry);
    feature->SetStyleString(style.c_str());
}

void OGRExporter::CheckOGRFeature(OGRFeature* feature, OGRLayer* layer)
{
    m_writing->messages.take();
    const OGRErr result = layer->CreateFeature(feature);
    OGRFeature::DestroyFeature(feature);
    if (!m_options.recordRefusals)
        return;
    const bool refused = result != OGRERR_NONE || m_writing->messages.failed();
    m_writing->refused = m_writing->refused || refused;
    if (refused || m_writing->messages.any())
        refuse(OGRRefusal::Feature, m_writing->layerName, QString::number(m_writing->number), !refused);
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

} // namespace kpBaseExport
