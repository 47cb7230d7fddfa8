// SPDX-License-Identifier: MIT
#pragma once

#include "export/Verification.h"
#include "formats/kml/KmlSink.h"

#include <QImage>

#include <gdal_priv.h>
#include <ogrsf_frmts.h>

namespace kpFormats
{

/// Reads a written KML document with GDAL and compares it, placemark by placemark, with what it is told it holds.
class KmlReadBack : public KmlSink
{
public:
    /// \a archived: the document lies in a .kmz.
    KmlReadBack(const QString& path, bool archived);

    Verification result();
    /// Compares the picture that stands beside the document, or in the archive, with \a image.
    void checkPicture(const QString& name, const QImage& image);

    void beginFolder(const QString& name) override;
    void endFolder() override {}
    void beginPlacemark(const QString& name, const QString& description, Look look, const QColor& colour,
                        KmlExportSettings::AltitudeMode mode) override;
    void endPlacemark() override;
    void beginMulti() override {}
    void endMulti() override {}
    void point(double longitude, double latitude, double height) override;
    void beginLine() override {}
    void endLine() override {}
    void beginPolygon() override {}
    void beginRing(bool) override { ++m_rings; }
    void endRing() override;
    void endPolygon() override {}
    void positions(const PositionBlock& block) override;
    void overlay(const QString& name, const QString& description, const QString& picture,
                 const DegreeBox& box) override;
    bool good() const override { return m_result.fault.isEmpty(); }

private:
    void fail(const QString& fault);
    bool nextFeature(const QString& name);
    void compare(double longitude, double latitude, double height);

    QString m_document;
    QString m_pictures;
    GDALDatasetUniquePtr m_dataset;
    int m_layer = 0;
    OGRFeatureUniquePtr m_feature;
    std::vector<OGRRawPoint> m_places; ///< of the feature, in order
    std::vector<double> m_heights;
    std::size_t m_next = 0;
    int m_rings = 0;
    bool m_hasHeights = false;
    Verification m_result;
};

} // namespace kpFormats
