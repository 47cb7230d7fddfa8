// SPDX-License-Identifier: MIT
#pragma once

#include "core/kpBaseExportCoreExport.h"

#include <QVariant>
#include <QVector>

#include <ogr_geometry.h>

namespace kpBaseExport
{

/// One feature of a layer: its vertices and its attribute values. A plain value; copies share their data.
class KPBASEEXPORTCORE_EXPORT OGRFeatureDetails
{
public:
    OGRFeatureDetails() = default;
    OGRFeatureDetails(OGRwkbGeometryType type, int length);

    OGRwkbGeometryType feature_type() const;
    void feature_type(OGRwkbGeometryType type);
    /// A count given by the caller; not used by the writer.
    int length() const;

    /// The vertices in order: x, y and, for 2.5D types, z.
    QVector<OGRPoint> points() const;
    void points(const QVector<OGRPoint>& points);
    void append_point(const OGRPoint& point);
    int point_count() const;
    /// Takes the points after the first \a count away.
    void truncate_points(int count);

    /// For each part, the index in points() at which the next part starts; the last entry is the number of points used.
    QVector<unsigned long long> start_polygon_indices() const;
    void start_polygon_indices(const QVector<unsigned long long>& indices);
    void append_start_polygon_index(unsigned long long index);

    /// For each part of a polygon, whether it is a hole of the outer ring before it.
    /// Used when OGRExporterOptions::ringParts is on.
    QVector<bool> holes() const;
    void holes(const QVector<bool>& flags);
    void append_hole(bool flag);

    /// One value per column of the layer; an invalid QVariant leaves the field unset.
    QVector<QVariant> object_attributes() const;
    void append_object_attribute(const QVariant& value);
    void append_object_attribute(QVariant&& value);

    /// Values per vertex, carried for the caller; not used by the writer.
    QVector<QVector<QVariant>> vertex_attributes() const;
    void append_vertex_attributes(const QVector<QVariant>& values);

    /// Takes points, parts and values away but keeps their memory, for the next feature.
    void clear();

private:
    OGRwkbGeometryType m_type = wkbUnknown;
    int m_length = 0;
    QVector<QVariant> m_objectAttributes;
    QVector<QVector<QVariant>> m_vertexAttributes;
    QVector<OGRPoint> m_points;
    QVector<unsigned long long> m_partEnds;
    QVector<bool> m_holes;
};

} // namespace kpBaseExport
