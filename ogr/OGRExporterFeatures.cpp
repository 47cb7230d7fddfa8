// SPDX-License-Identifier: MIT
// The half of OGRExporter that fills a layer: fields, values, geometry, style, progress.
#include "host/data/AbstractProgress.h"
#include "ogr/OGRExporterRun.h"
#include "ogr/OGRGeometries.h"

#include <ogrsf_frmts.h>

#include <algorithm>
#include <limits>
#include <string>

namespace kpBaseExport
{

namespace
{

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
    m_run->type = type;
    for (int index = 0; index < count; ++index) {
        m_run->number = index + 1;
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
            if (m_run->refused && m_options.stopAtRefusal)
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
    LayerColumns& columns = m_run->columns;
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
    m_run->messages.take();
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
    const std::vector<LayerColumns::Column>& columns = m_run->columns.columns;
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
                encode(as<QString>(value), m_options.utf8, m_run->text);
            else
                encode(value.toString(), m_options.utf8, m_run->text);
            feature->SetField(column.field, m_run->text.c_str());
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
    const int colour = m_run->columns.colour;
    if (colour == -1)
        return;
    const std::string style = styleText(feature->GetFieldAsString(colour), m_run->type, m_options.styleByGeometry);
    feature->SetStyleString(style.c_str());
}

void OGRExporter::CheckOGRFeature(OGRFeature* feature, OGRLayer* layer)
{
    m_run->messages.take();
    const OGRErr result = layer->CreateFeature(feature);
    OGRFeature::DestroyFeature(feature);
    if (!m_options.recordRefusals)
        return;
    const bool refused = result != OGRERR_NONE || m_run->messages.failed();
    m_run->refused = m_run->refused || refused;
    if (refused || m_run->messages.any())
        refuse(OGRRefusal::Feature, m_run->layerName, QString::number(m_run->number), !refused);
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
