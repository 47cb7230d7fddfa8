// SPDX-License-Identifier: MIT
#pragma once

#include "ogr/OGRAttributeInfo.h"
#include "ogr/OGRFeatureDetails.h"

#include <QString>
#include <QVector>

namespace kpBaseExport
{

/// One layer, written to one file: its features, all of one geometry type, and its attribute columns.
class KPBASEEXPORT_EXPORT OGRLayerInfo
{
public:
    OGRLayerInfo() = default;
    OGRLayerInfo(QString name, const QVector<OGRFeatureDetails>& features,
                 const QVector<OGRAttributeInfo>& attributes, const QString& coordinateSystem);

    QString name() const;
    void name(const QString& name);
    QVector<OGRFeatureDetails> feature_details() const;
    QVector<OGRAttributeInfo> attribute_infos() const;
    /// Carried for the caller; the writer has its own, OGRExporter::coordSystem().
    QString coordinate_system() const;
    /// Geometry type of the first feature; wkbUnknown when there is none.
    OGRwkbGeometryType ogr_type() const;

    void append(const OGRFeatureDetails& feature);
    void append(const OGRAttributeInfo& attribute);

private:
    QString m_name;
    QVector<OGRFeatureDetails> m_features;
    QVector<OGRAttributeInfo> m_attributes;
    QString m_coordinateSystem;
};

} // namespace kpBaseExport
