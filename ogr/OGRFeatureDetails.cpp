// SPDX-License-Identifier: MIT
#include "ogr/OGRFeatureDetails.h"

#include <utility>

namespace kpBaseExport
{

OGRFeatureDetails::OGRFeatureDetails(OGRwkbGeometryType type, int length)
    : m_type(type)
    , m_length(length)
{
}

OGRwkbGeometryType OGRFeatureDetails::feature_type() const
{
    return m_type;
}

void OGRFeatureDetails::feature_type(OGRwkbGeometryType type)
{
    m_type = type;
}

int OGRFeatureDetails::length() const
{
    return m_length;
}

QVector<OGRPoint> OGRFeatureDetails::points() const
{
    return m_points;
}

void OGRFeatureDetails::points(const QVector<OGRPoint>& points)
{
    m_points = points;
}

QVector<unsigned long long> OGRFeatureDetails::start_polygon_indices() const
{
    return m_partEnds;
}

void OGRFeatureDetails::start_polygon_indices(const QVector<unsigned long long>& indices)
{
    m_partEnds = indices;
}

QVector<bool> OGRFeatureDetails::holes() const
{
    return m_holes;
}

void OGRFeatureDetails::holes(const QVector<bool>& flags)
{
    m_holes = flags;
}

QVector<QVariant> OGRFeatureDetails::object_attributes() const
{
    return m_objectAttributes;
}

void OGRFeatureDetails::append_object_attribute(const QVariant& value)
{
    m_objectAttributes.append(value);
}

void OGRFeatureDetails::append_object_attribute(QVariant&& value)
{
    m_objectAttributes.append(std::move(value));
}

QVector<QVector<QVariant>> OGRFeatureDetails::vertex_attributes() const
{
    return m_vertexAttributes;
}

void OGRFeatureDetails::append_vertex_attributes(const QVector<QVariant>& values)
{
    m_vertexAttributes.append(values);
}

void OGRFeatureDetails::append_point(const OGRPoint& point)
{
    m_points.append(point);
}

int OGRFeatureDetails::point_count() const
{
    return m_points.size();
}

void OGRFeatureDetails::truncate_points(int count)
{
    if (count < m_points.size())
        m_points.resize(count);
}

void OGRFeatureDetails::append_start_polygon_index(unsigned long long index)
{
    m_partEnds.append(index);
}

void OGRFeatureDetails::append_hole(bool flag)
{
    m_holes.append(flag);
}

void OGRFeatureDetails::clear()
{
    m_objectAttributes.resize(0);
    m_vertexAttributes.resize(0);
    m_points.resize(0);
    m_partEnds.resize(0);
    m_holes.resize(0);
}

} // namespace kpBaseExport
