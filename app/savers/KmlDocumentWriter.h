// SPDX-License-Identifier: MIT
#pragma once

#include "writers/MatrixDataKMLExporter.h"

#include <QString>

#include <string>
#include <vector>

namespace refhost
{

/// A position on the ellipsoid: degrees, and metres above sea level where hasHeight is set.
struct KmlPosition
{
    double longitude = 0.0;
    double latitude = 0.0;
    double height = 0.0;
};

/// Writes a KML document that is valid against the KML 2.1 schema (kml21.xsd): texts escaped, rings closed, holes as
/// inner boundaries, each placemark with its own style in the order that the schema asks for. Streams: nothing is
/// kept but the text of the feature being written.
class KmlDocumentWriter : public kpBaseExport::MatrixDataKMLExporter
{
public:
    using Ring = std::vector<KmlPosition>;

    enum class AltitudeMode { ClampToGround, RelativeToGround, Absolute };

    struct Polygon
    {
        Ring outer;
        std::vector<Ring> inner;
    };

    explicit KmlDocumentWriter(const QString& file = QString());

    /// How heights are meant; with ClampToGround none is written.
    AltitudeMode altitudeMode = AltitudeMode::ClampToGround;

    bool fileOpen() override;
    void beginFolder(const QString& name) override;
    void writeName(const QString& name) override;

    /// One placemark of one or more lines. Lines of fewer than two points are the caller's to leave out.
    void placeLines(const QString& name, const QString& description, const QColor& colour,
                    const std::vector<Ring>& lines);
    /// One placemark of one or more polygons; rings are closed here.
    void placePolygons(const QString& name, const QString& description, const QColor& colour,
                       const std::vector<Polygon>& polygons);
    void placePoint(const QString& name, const QString& description, const QColor& colour,
                    const KmlPosition& position);
    /// A picture laid on the ground.
    void placeOverlay(const QString& name, const QString& pictureFile, double north, double south, double east,
                      double west);

private:
    void beginPlacemark(const QString& name, const QString& description);
    void beginGeometry(const char* element);
    void appendPositions(const Ring& positions, bool close);
    void endPlacemark();

    std::string m_feature;
};

/// \a text with the five special characters as entities; characters that XML 1.0 does not know are dropped.
std::string xmlEscaped(const QString& text);

} // namespace refhost
