// SPDX-License-Identifier: MIT
#include "formats/kml/KmlDocumentWriter.h"

#include "writers/KmlColour.h"
#include "writers/StreamNumber.h"

namespace kpFormats
{

namespace
{

using kpBaseExport::kmlColour;
using AltitudeMode = KmlExportSettings::AltitudeMode;

const char* modeText(AltitudeMode mode)
{
    switch (mode) {
    case AltitudeMode::Clamp:
        return "clampToGround";
    case AltitudeMode::Relative:
        return "relativeToGround";
    case AltitudeMode::Absolute:
        return "absolute";
    }
    return "clampToGround";
}

std::string styleText(KmlSink::Look look, const QColor& colour)
{
    const auto line = [](const std::string& text, const char* width) {
        return "<LineStyle><color>" + text + "</color><width>" + width + "</width></LineStyle>";
    };
    switch (look) {
    case KmlSink::Look::Line:
        return line(kmlColour("ff", colour), "2");
    case KmlSink::Look::Area:
        return line(kmlColour("ff", colour), "1") + "<PolyStyle><color>" + kmlColour("af", colour)
               + "</color></PolyStyle>";
    case KmlSink::Look::Icon:
        return "<IconStyle><color>" + kmlColour("ff", colour) + "</color></IconStyle>"
               + line(kmlColour("ff", colour), "2");
    case KmlSink::Look::Label:
        return "<IconStyle><scale>0</scale></IconStyle><LabelStyle><color>" + kmlColour("ff", colour)
               + "</color></LabelStyle>";
    case KmlSink::Look::Trace:
        return line("aa0000ff", "5");
    case KmlSink::Look::Bounds:
        return line("ffff0000", "1.5") + "<PolyStyle><color>7dff0000</color></PolyStyle>";
    }
    return {};
}

bool isXmlCharacter(QChar character)
{
    const ushort code = character.unicode();
    return code >= 0x20 ? code < 0xfffe : code == '\t' || code == '\n' || code == '\r';
}

} // namespace

QString xmlText(const QString& text)
{
    QString clean;
    clean.reserve(text.size());
    for (int index = 0; index < text.size(); ++index) {
        const QChar character = text[index];
        // Half of a surrogate pair cannot be written in UTF-8.
        if (character.isHighSurrogate() && index + 1 < text.size() && text[index + 1].isLowSurrogate()) {
            clean += character;
            clean += text[++index];
        } else if (!character.isSurrogate() && isXmlCharacter(character)) {
            clean += character;
        }
    }
    return clean;
}

std::string xmlEscaped(const QString& text)
{
    // A carriage return as such would be read as a line feed.
    return xmlText(text)
        .toHtmlEscaped()
        .replace(QLatin1Char('\''), QStringLiteral("&#39;"))
        .replace(QLatin1Char('\r'), QStringLiteral("&#13;"))
        .toStdString();
}

KmlDocumentWriter::KmlDocumentWriter(const QString& path, const QString& target)
    : m_file(path, target)
    , m_text(m_file.text())
{
    m_text +=
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<kml xmlns=\"http://earth.google.com/kml/2.1\">\n<Document>\n";
}

void KmlDocumentWriter::close()
{
    m_text += "</Document>\n</kml>\n";
    m_file.close();
}

void KmlDocumentWriter::beginFolder(const QString& name)
{
    m_text += "<Folder>\n";
    appendName(name);
}

void KmlDocumentWriter::endFolder()
{
    m_text += "</Folder>\n";
    m_file.check();
}

void KmlDocumentWriter::appendName(const QString& name)
{
    m_text += "<name>" + xmlEscaped(name) + "</name>\n";
}

void KmlDocumentWriter::appendFeatureHead(const QString& name, const QString& description)
{
    appendName(name);
    if (!description.isEmpty())
        m_text += "<description>" + xmlEscaped(description) + "</description>\n";
}

void KmlDocumentWriter::beginPlacemark(const QString& name, const QString& description, Look look, const QColor& colour,
                                       KmlExportSettings::AltitudeMode mode)
{
    m_mode = mode;
    m_text += "<Placemark>\n";
    appendFeatureHead(name, description);
    m_text += "<Style>" + styleText(look, colour) + "</Style>\n";
}

void KmlDocumentWriter::endPlacemark()
{
    m_text += "</Placemark>\n";
    m_file.check();
}

void KmlDocumentWriter::beginMulti()
{
    m_text += "<MultiGeometry>\n";
}

void KmlDocumentWriter::endMulti()
{
    m_text += "</MultiGeometry>\n";
}

void KmlDocumentWriter::appendGeometryHead(bool follows)
{
    // Only lines and areas on the ground follow its relief.
    if (follows && m_mode == AltitudeMode::Clamp)
        m_text += "<tessellate>1</tessellate>";
    m_text += "<altitudeMode>";
    m_text += modeText(m_mode);
    m_text += "</altitudeMode>";
}

void KmlDocumentWriter::point(double longitude, double latitude, double height)
{
    m_text += "<Point>";
    appendGeometryHead(false);
    m_text += "<coordinates>\n";
    appendPosition(longitude, latitude, height);
    m_text += "</coordinates></Point>\n";
}

void KmlDocumentWriter::beginLine()
{
    m_text += "<LineString>";
    appendGeometryHead(true);
    m_text += "<coordinates>\n";
}

void KmlDocumentWriter::endLine()
{
    m_text += "</coordinates></LineString>\n";
}

void KmlDocumentWriter::beginPolygon()
{
    m_text += "<Polygon>";
    appendGeometryHead(true);
}

void KmlDocumentWriter::beginRing(bool hole)
{
    m_hole = hole;
    m_ringStart.clear();
    m_text += hole ? "<innerBoundaryIs><LinearRing><coordinates>\n" : "<outerBoundaryIs><LinearRing><coordinates>\n";
}

void KmlDocumentWriter::endRing()
{
    m_text += m_ringStart;
    m_text +=
        m_hole ? "</coordinates></LinearRing></innerBoundaryIs>" : "</coordinates></LinearRing></outerBoundaryIs>";
    m_ringStart.clear();
}

void KmlDocumentWriter::endPolygon()
{
    m_text += "</Polygon>\n";
}

void KmlDocumentWriter::positions(const PositionBlock& block)
{
    const std::size_t start = m_text.size();
    for (std::size_t index = 0; index < block.size(); ++index) {
        appendPosition(block.x[index], block.y[index], block.z[index]);
        if (index == 0 && m_ringStart.empty())
            m_ringStart = m_text.substr(start);
    }
    m_file.check();
}

void KmlDocumentWriter::appendPosition(double longitude, double latitude, double height)
{
    kpBaseExport::appendStreamFixed(m_text, longitude, kmlDegreeDecimals);
    m_text += ',';
    kpBaseExport::appendStreamFixed(m_text, latitude, kmlDegreeDecimals);
    if (m_mode != AltitudeMode::Clamp) {
        m_text += ',';
        kpBaseExport::appendStreamFixed(m_text, height, kmlHeightDecimals);
    }
    m_text += '\n';
}

void KmlDocumentWriter::overlay(const QString& name, const QString& description, const QString& picture,
                                const DegreeBox& box)
{
    m_text += "<GroundOverlay>\n";
    appendFeatureHead(name, description);
    m_text += "<Icon><href>" + xmlEscaped(picture) + "</href></Icon>\n<LatLonBox>";
    const auto edge = [this](const char* element, double degrees) {
        m_text += std::string("<") + element + ">";
        kpBaseExport::appendStreamFixed(m_text, degrees, kmlDegreeDecimals);
        m_text += std::string("</") + element + ">";
    };
    edge("north", box.north);
    edge("south", box.south);
    edge("east", box.east);
    edge("west", box.west);
    m_text += "</LatLonBox>\n</GroundOverlay>\n";
    m_file.check();
}

} // namespace kpFormats
