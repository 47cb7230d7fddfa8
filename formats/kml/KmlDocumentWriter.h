// SPDX-License-Identifier: MIT
#pragma once

#include "export/BlockWriter.h"
#include "formats/kml/KmlSink.h"

#include <string>

namespace kpFormats
{

/// Writes a KML document that is valid against the KML 2.1 schema (kml21.xsd): texts escaped, rings closed, holes as
/// inner boundaries, each placemark with its own style in the order that the schema asks for. Streams in blocks.
class KmlDocumentWriter : public KmlSink
{
public:
    /// Opens the document at \a path; \a target is the final name, for messages. This and everything that is written
    /// \throws ExportError when the file cannot be opened or written.
    KmlDocumentWriter(const QString& path, const QString& target);

    /// Ends the document and closes the file. \throws ExportError
    void close();

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

private:
    void appendName(const QString& name);
    void appendFeatureHead(const QString& name, const QString& description);
    void appendGeometryHead(bool follows);
    void appendPosition(double longitude, double latitude, double height);

    BlockWriter m_file;
    std::string& m_text; ///< of the file
    KmlExportSettings::AltitudeMode m_mode = KmlExportSettings::AltitudeMode::Clamp;
    std::string m_ringStart; ///< first position of the open ring, as written
    bool m_hole = false;
};

/// \a text without the characters that XML 1.0 does not know.
QString xmlText(const QString& text);
/// xmlText() with the five special characters as entities.
std::string xmlEscaped(const QString& text);

} // namespace kpFormats
