// SPDX-License-Identifier: MIT
#pragma once

#include "ogr/OGRAttributeInfo.h"
#include "ogr/OGRFeatureDetails.h"
#include "ogr/OGRFeatureSource.h"

#include <QString>
#include <QVector>

#include <memory>

namespace kpBaseExport
{

/// One layer, written to one file: its features, all of one geometry type, and its attribute columns.
class KPBASEEXPORTCORE_EXPORT OGRLayerInfo
{
public:
    OGRLayerInfo() = default;
    OGRLayerInfo(QString name, const QVector<OGRFeatureDetails>& features, const QVector<OGRAttributeInfo>& attributes,
                 const QString& coordinateSystem);

    QString name() const;
    void name(const QString& name);
    QVector<OGRFeatureDetails> feature_details() const;
    QVector<OGRAttributeInfo> attribute_infos() const;
    /// Carried for the caller; the writer has its own, OGRExporter::coordSystem().
    QString coordinate_system() const;
    /// Geometry type of the first feature; wkbUnknown when there is none.
    OGRwkbGeometryType ogr_type() const;

    /// Takes the features from \a source instead of a list: for layers that are too big to be held twice. All are of
    /// \a type. Copies of the layer share the source, which is walked once per writing.
    void source(std::shared_ptr<OGRFeatureSource> source, OGRwkbGeometryType type);
    OGRFeatureSource* source() const;

    void append(const OGRFeatureDetails& feature);
    void append(const OGRAttributeInfo& attribute);

private:
    QString m_name;
    QVector<OGRFeatureDetails> m_features;
    QVector<OGRAttributeInfo> m_attributes;
    QString m_coordinateSystem;
    std::shared_ptr<OGRFeatureSource> m_source;
    OGRwkbGeometryType m_sourceType = wkbUnknown;
};

} // namespace kpBaseExport
