// SPDX-License-Identifier: MIT
#pragma once

#include "core/MatrixDataExporter.h"
#include "ogr/OGRExporterOptions.h"
#include "ogr/OGRLayerInfo.h"
#include "ogr/OGRRefusal.h"

#include <memory>
#include <vector>

class GDALDataset;
class OGRFeature;
class OGRLayer;
class OGRSpatialReference;

namespace kpBaseExport
{

/// Writes layers through any OGR driver, one file per layer. The host has registered GDAL's drivers before.
/// A single layer goes to fileName; each of several to fileName with the suffix of its geometry type.
class KPBASEEXPORTCORE_EXPORT OGRExporter : public MatrixDataExporter
{
public:
    /// \a driver is the driver's name, such as "ESRI Shapefile". The progress is told whole percentages of each layer.
    OGRExporter(const QString& file, const QString& driver, kpBase::AbstractProgress* reporter);
    ~OGRExporter() override;

    void writeHeader(const GeoObject* object) override;
    void writeGeo(const GeoObject* object) override;

    /// Spatial reference of every layer as WKT; an invalid one is left out.
    void coordSystem(const QString& wkt);
    QString getCoordSystemWkt() const;
    /// Whether attribute columns and values are written; off in a new exporter.
    void writeAttributes(bool enabled);
    /// Switches on what the defaults leave out.
    void options(const OGRExporterOptions& options);
    /// What the driver refused in the last write(), when OGRExporterOptions::recordRefusals is on; at most
    /// mostRefusals of them.
    const std::vector<OGRRefusal>& refusals() const;
    static constexpr std::size_t mostRefusals = 1000;

    using MatrixDataExporter::write;
    /// Writes the layers in order. False at the first that failed or was cancelled; the files written before stay.
    bool write(const QVector<OGRLayerInfo>& layers);

    /// Name of the file of one of several layers: \a path with a suffix such as "_points3d", absolute, in native form.
    static QString layerFileName(const QString& path, OGRwkbGeometryType type);

private:
    struct LayerColumns;
    struct Writing;

    QString getLayerOutFileName(bool singleLayer, QString name, OGRwkbGeometryType type);
    bool processLayer(const OGRLayerInfo& layer, bool singleLayer);
    bool processOGRGeometryLayer(const OGRLayerInfo& layer, GDALDataset* dataSource, OGRwkbGeometryType type);
    void addFieldInfo(OGRLayer* ogrLayer, const OGRLayerInfo& layer);
    void setFeatureAttributes(OGRFeature* feature, const OGRFeatureDetails& details, const OGRLayerInfo& layer);
    void updateHorizontalAndVerticalDips(const double& dip, OGRFeature* feature, const int& typeIndex);
    void SetOGRFeaturesGeometryToPoint(const OGRFeatureDetails& details, OGRFeature* feature);
    void SetOGRFeaturesGeometryToPolyline(const OGRFeatureDetails& details, OGRFeature* feature);
    void SetOGRFeaturesGeometryToPolygon(const OGRFeatureDetails& details, OGRFeature* feature);
    void SetOGRFeaturesGeometryToMultiPolyline(const OGRFeatureDetails& details, OGRFeature* feature);
    void setOGRFeatureStyle(OGRFeature* feature);
    void CheckOGRFeature(OGRFeature* feature, OGRLayer* layer);
    static int featureIndexAsPercentage(int featureCount, int featureIndex);
    bool updateFeaturesProgressBarIfRequired(int featureCount, int featureIndex, int& lastPercent);

    /// Closed also when a source of features or the progress throws.
    struct CloseDataSource
    {
        void operator()(GDALDataset* dataSource) const;
    };
    using DataSource = std::unique_ptr<GDALDataset, CloseDataSource>;

    DataSource createDataSource(const QString& layerName, const QString& name);
    bool closeDataSource(DataSource dataSource, const QString& layerName, const QString& name);
    bool writeLayers(const QVector<OGRLayerInfo>& layers);
    bool writeFeatures(const OGRLayerInfo& layer, OGRLayer* ogrLayer, OGRwkbGeometryType type);
    int createField(OGRLayer* ogrLayer, const OGRLayerInfo& layer, const OGRAttributeInfo& attribute);
    void setGeometry(const OGRFeatureDetails& details, OGRFeature* feature, OGRwkbGeometryType type);
    std::unique_ptr<OGRSpatialReference, void (*)(OGRSpatialReference*)> spatialReference(const QString& layerName);
    QByteArray encoded(const QString& text) const;
    void refuse(OGRRefusal::Kind kind, const QString& layer, const QString& subject, bool taken = false);

    QString m_driverName;
    QString m_coordSystemWkt;
    bool m_writeAttributes = false;
    OGRExporterOptions m_options;
    std::vector<OGRRefusal> m_refusals;
    Writing* m_writing = nullptr; ///< lives for the time of a write()
};

} // namespace kpBaseExport
