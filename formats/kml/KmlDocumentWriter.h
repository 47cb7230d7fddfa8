// SPDX-License-Identifier: MIT
#pragma once

#include "formats/kml/KmlSink.h"
#include "writers/MatrixDataKMLExporter.h"

#include <QString>

#include <string>

namespace kpFormats
{

/// Writes a KML document that is valid against the KML 2.1 schema (kml21.xsd): texts escaped, rings closed, holes as
/// inner boundaries, each placemark with its own style in the order that the schema asks for. Streams in blocks.
class KmlDocumentWriter : public kpBaseExport::MatrixDataKMLExporter, public KmlSink
{
public:
    explicit KmlDocumentWriter(const QString& file = QString());

    bool fileOpen() override;
    void fileClose() override;
    void writeName(const QString& name) override;

    void beginFolder(const QString& name) override;
    void endFolder() override;
    void beginPlacemark(const QString& name, const QString& description, Look look, const QColor& colour,
                        KmlExportSettings::AltitudeMode mode) override;
    void endPlacemark() override;
    void beginMulti() override;
    void endMulti() override;
    void point(double longitude, double latitude, double height) override;
    void beginLine() override;
    void endLine() override;
    void beginPolygon() override;
    void beginRing(bool hole) override;
    void endRing() override;
    void endPolygon() override;
    void positions(const PositionBlock& block) override;
    void overlay(const QString& name, const QString& description, const QString& picture,
                 const DegreeBox& box) override;
    bool good() const override { return !writeFailed(); }

private:
    void appendFeatureHead(const QString& name, const QString& description);
    void appendGeometryHead(bool follows);
    void appendPosition(double longitude, double latitude, double height);
    void flush(std::size_t limit);

    std::string m_block;
    KmlExportSettings::AltitudeMode m_mode = KmlExportSettings::AltitudeMode::Clamp;
    std::string m_ringStart; ///< first position of the open ring, as written
    bool m_hole = false;
};

/// \a text without the characters that XML 1.0 does not know.
QString xmlText(const QString& text);
/// xmlText() with the five special characters as entities.
std::string xmlEscaped(const QString& text);

} // namespace kpFormats
