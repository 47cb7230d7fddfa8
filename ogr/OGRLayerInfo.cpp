// SPDX-License-Identifier: MIT
#include "ogr/OGRLayerInfo.h"

#include <utility>

namespace kpBaseExport
{

OGRLayerInfo::OGRLayerInfo(QString name, const QVector<OGRFeatureDetails>& features,
                           const QVector<OGRAttributeInfo>& attributes, const QString& coordinateSystem)
    : m_name(std::move(name))
    , m_features(features)
    , m_attributes(attributes)
    , m_coordinateSystem(coordinateSystem)
{
}

QString OGRLayerInfo::name() const
{
    return m_name;
}

void OGRLayerInfo::name(const QString& name)
{
    m_name = name;
}

QVector<OGRFeatureDetails> OGRLayerInfo::feature_details() const
{
    return m_features;
}

QVector<OGRAttributeInfo> OGRLayerInfo::attribute_infos() const
{
    return m_attributes;
}

QString OGRLayerInfo::coordinate_system() const
{
    return m_coordinateSystem;
}

OGRwkbGeometryType OGRLayerInfo::ogr_type() const
{
    if (m_source)
        return m_sourceType;
    return m_features.isEmpty() ? wkbUnknown : m_features.first().feature_type();
}

void OGRLayerInfo::source(std::shared_ptr<OGRFeatureSource> source, OGRwkbGeometryType type)
{
    m_source = std::move(source);
    m_sourceType = type;
}

OGRFeatureSource* OGRLayerInfo::source() const
{
    return m_source.get();
}

void OGRLayerInfo::append(const OGRFeatureDetails& feature)
{
    m_features.append(feature);
}

void OGRLayerInfo::append(const OGRAttributeInfo& attribute)
{
    m_attributes.append(attribute);
}

} // namespace kpBaseExport
