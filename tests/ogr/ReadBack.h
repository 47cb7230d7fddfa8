// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

#include <ogrsf_frmts.h>

// Written files, read through a fresh OGR open.

inline GDALDatasetUniquePtr openVector(const QString& path, unsigned mode = GDAL_OF_READONLY)
{
    if (GDALGetDriverCount() == 0)
        GDALAllRegister();
    // A number that the driver gives each feature is none of its fields.
    CPLSetConfigOption("GML_EXPOSE_GML_ID", "NO");
    return GDALDatasetUniquePtr(GDALDataset::Open(path.toUtf8().constData(), GDAL_OF_VECTOR | mode));
}

/// A text for each feature of a file, layer by layer.
template <typename Text>
QStringList featureTexts(const QString& path, const Text& textOf)
{
    QStringList texts;
    const GDALDatasetUniquePtr source = openVector(path);
    if (!source)
        return {QStringLiteral("could not open ") + path};
    for (OGRLayer* layer : source->GetLayers()) {
        for (auto& feature : *layer)
            texts.append(textOf(*feature));
    }
    return texts;
}

/// Every feature's geometry as WKT.
inline QStringList geometryTexts(const QString& path)
{
    return featureTexts(path, [](const OGRFeature& feature) {
        const OGRGeometry* geometry = feature.GetGeometryRef();
        return geometry ? QString::fromStdString(geometry->exportToWkt()) : QStringLiteral("none");
    });
}

inline QStringList fieldTexts(const QString& path, const char* field)
{
    return featureTexts(
        path, [field](const OGRFeature& feature) { return QString::fromUtf8(feature.GetFieldAsString(field)); });
}

/// The names of the fields of a file's first layer.
inline QString fieldNamesIn(const QString& path)
{
    QStringList names;
    const GDALDatasetUniquePtr source = openVector(path);
    OGRFeatureDefn* definition = source->GetLayer(0)->GetLayerDefn();
    for (int field = 0; field < definition->GetFieldCount(); ++field)
        names.append(QString::fromUtf8(definition->GetFieldDefn(field)->GetNameRef()));
    return names.join(QLatin1Char(' '));
}
