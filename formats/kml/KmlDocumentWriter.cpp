// SPDX-License-Identifier: MIT
#include "formats/kml/KmlDocumentWriter.h"

#include "formats/kml/KmlDecimals.h"
#include "writers/StreamNumber.h"

namespace kpFormats
{

namespace
{

using AltitudeMode = KmlExportSettings::AltitudeMode;

constexpr std::size_t blockSize = 128 * 1024;

std::string colourText(const char* alpha, const QColor& colour)
{
    const QColor shown = colour.isValid() ? colour : QColor(Qt::white);
    std::string text = alpha;
    for (const int component : {shown.blue(), shown.green(), shown.red()}) {
        constexpr char digits[] = "0123456789abcdef";
        text += digits[component / 16];
        text += digits[component % 16];
    }
    return text;
}

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
        return line(colourText("ff", colour), "2");
    case KmlSink::Look::Area:
        return line(colourText("ff", colour), "1") + "<PolyStyle><color>" + colourText("af", colour)
               + "</color></PolyStyle>";
    case KmlSink::Look::Icon:
        return "<IconStyle><color>" + colourText("ff", colour) + "</color></IconStyle>"
               + line(colourText("ff", colour), "2");
    case KmlSink::Look::Label:
        return "<IconStyle><scale>0</scale></IconStyle><LabelStyle><color>" + colourText("ff", colour)
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

KmlDocumentWriter::KmlDocumentWriter(const QString& file)
    : MatrixDataKMLExporter(file)
{
}

bool KmlDocumentWriter::fileOpen()
{
    // Past the prologue of the base, which is not valid against the schema.
    if (!MatrixDataExporter::fileOpen())
        return false;
    m_block =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<kml xmlns=\"http://earth.google.com/kml/2.1\">\n<Document>\n";
    return true;
}

void KmlDocumentWriter::fileClose()
{
    flush(0);
    MatrixDataKMLExporter::fileClose();
}

void KmlDocumentWriter::beginFolder(const QString& name)
{
    m_block += "<Folder>\n";
    writeName(name);
}

void KmlDocumentWriter::endFolder()
{
    m_block += "</Folder>\n";
    flush(blockSize);
}

void KmlDocumentWriter::writeName(const QString& name)
{
    m_block += "<name>" + xmlEscaped(name) + "</name>\n";
}

void KmlDocumentWriter::appendFeatureHead(const QString& name, const QString& description)
{
    writeName(name);
    if (!description.isEmpty())
        m_block += "<description>" + xmlEscaped(description) + "</description>\n";
}

void KmlDocumentWriter::beginPlacemark(const QString& name, const QString& description, Look look, const QColor& colour,
                                       KmlExportSettings::AltitudeMode mode)
{
    m_mode = mode;
    m_block += "<Placemark>\n";
    appendFeatureHead(name, description);
    m_block += "<Style>" + styleText(look, colour) + "</Style>\n";
}

void KmlDocumentWriter::endPlacemark()
{
    m_block += "</Placemark>\n";
    flush(blockSize);
}

void KmlDocumentWriter::beginMulti()
{
    m_block += "<MultiGeometry>\n";
}

void KmlDocumentWriter::endMulti()
{
    m_block += "</MultiGeometry>\n";
}

void KmlDocumentWriter::appendGeometryHead(bool follows)
{
    // Only lines and areas on the ground follow its relief.
    if (follows && m_mode == AltitudeMode::Clamp)
        m_block += "<tessellate>1</tessellate>";
    m_block += "<altitudeMode>";
    m_block += modeText(m_mode);
    m_block += "</altitudeMode>";
}

void KmlDocumentWriter::point(double longitude, double latitude, double height)
{
    m_block += "<Point>";
    appendGeometryHead(false);
    m_block += "<coordinates>\n";
    appendPosition(longitude, latitude, height);
    m_block += "</coordinates></Point>\n";
}

void KmlDocumentWriter::beginLine()
{
    m_block += "<LineString>";
    appendGeometryHead(true);
    m_block += "<coordinates>\n";
}

void KmlDocumentWriter::endLine()
{
    m_block += "</coordinates></LineString>\n";
}

void KmlDocumentWriter::beginPolygon()
{
    m_block += "<Polygon>";
    appendGeometryHead(true);
}

void KmlDocumentWriter::beginRing(bool hole)
{
    m_hole = hole;
    m_ringStart.clear();
    m_block += hole ? "<innerBoundaryIs><LinearRing><coordinates>\n" : "<outerBoundaryIs><LinearRing><coordinates>\n";
}

void KmlDocumentWriter::endRing()
{
    m_block += m_ringStart;
    m_block +=
        m_hole ? "</coordinates></LinearRing></innerBoundaryIs>" : "</coordinates></LinearRing></outerBoundaryIs>";
    m_ringStart.clear();
}

void KmlDocumentWriter::endPolygon()
{
    m_block += "</Polygon>\n";
}

void KmlDocumentWriter::positions(const PositionBlock& block)
{
    const std::size_t start = m_block.size();
    for (std::size_t index = 0; index < block.size(); ++index) {
        appendPosition(block.x[index], block.y[index], block.z[index]);
        if (index == 0 && m_ringStart.empty())
            m_ringStart = m_block.substr(start);
    }
    flush(blockSize);
}

void KmlDocumentWriter::appendPosition(double longitude, double latitude, double height)
{
    kpBaseExport::appendStreamFixed(m_block, longitude, kmlDegreeDecimals);
    m_block += ',';
    kpBaseExport::appendStreamFixed(m_block, latitude, kmlDegreeDecimals);
    if (m_mode != AltitudeMode::Clamp) {
        m_block += ',';
        kpBaseExport::appendStreamFixed(m_block, height, kmlHeightDecimals);
    }
    m_block += '\n';
}

void KmlDocumentWriter::overlay(const QString& name, const QString& description, const QString& picture,
                                const DegreeBox& box)
{
    m_block += "<GroundOverlay>\n";
    appendFeatureHead(name, description);
    m_block += "<Icon><href>" + xmlEscaped(picture) + "</href></Icon>\n<LatLonBox>";
    const auto edge = [this](const char* element, double degrees) {
        m_block += std::string("<") + element + ">";
        kpBaseExport::appendStreamFixed(m_block, degrees, kmlDegreeDecimals);
        m_block += std::string("</") + element + ">";
    };
    edge("north", box.north);
    edge("south", box.south);
    edge("east", box.east);
    edge("west", box.west);
    m_block += "</LatLonBox>\n</GroundOverlay>\n";
    flush(blockSize);
}

void KmlDocumentWriter::flush(std::size_t limit)
{
    if (m_block.size() <= limit)
        return;
    stream.write(m_block.data(), static_cast<std::streamsize>(m_block.size()));
    m_block.clear();
}

} // namespace kpFormats
