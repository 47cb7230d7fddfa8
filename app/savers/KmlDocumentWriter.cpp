// SPDX-License-Identifier: MIT
#include "app/savers/KmlDocumentWriter.h"

#include "writers/StreamNumber.h"

namespace refhost
{

namespace
{

// A millionth of a degree is a tenth of a metre; eight decimals keep a millimetre.
constexpr int degreeDecimals = 8;
constexpr int heightDecimals = 3;

std::string colourText(const char* alpha, const QColor& colour)
{
    const QColor shown = colour.isValid() ? colour : QColor(Qt::white);
    return alpha
           + QStringLiteral("%1%2%3")
                 .arg(shown.blue(), 2, 16, QLatin1Char('0'))
                 .arg(shown.green(), 2, 16, QLatin1Char('0'))
                 .arg(shown.red(), 2, 16, QLatin1Char('0'))
                 .toStdString();
}

const char* modeText(KmlDocumentWriter::AltitudeMode mode)
{
    switch (mode) {
    case KmlDocumentWriter::AltitudeMode::ClampToGround:
        return "clampToGround";
    case KmlDocumentWriter::AltitudeMode::RelativeToGround:
        return "relativeToGround";
    case KmlDocumentWriter::AltitudeMode::Absolute:
        return "absolute";
    }
    return "clampToGround";
}

bool samePlace(const KmlPosition& a, const KmlPosition& b)
{
    return a.longitude == b.longitude && a.latitude == b.latitude && a.height == b.height;
}

bool isXmlCharacter(QChar character)
{
    const ushort code = character.unicode();
    return code >= 0x20 ? code < 0xfffe : code == '\t' || code == '\n' || code == '\r';
}

} // namespace

std::string xmlEscaped(const QString& text)
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
    return clean.toHtmlEscaped().replace(QLatin1Char('\''), QStringLiteral("&#39;")).toStdString();
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
    stream << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<kml xmlns=\"http://earth.google.com/kml/2.1\">\n"
              "<Document>\n";
    return true;
}

void KmlDocumentWriter::beginFolder(const QString& name)
{
    stream << "<Folder>\n";
    writeName(name);
}

void KmlDocumentWriter::writeName(const QString& name)
{
    stream << "<name>" << xmlEscaped(name) << "</name>\n";
}

void KmlDocumentWriter::beginPlacemark(const QString& name, const QString& description)
{
    m_feature = "<Placemark>\n<name>" + xmlEscaped(name) + "</name>\n";
    if (!description.isEmpty())
        m_feature += "<description>" + xmlEscaped(description) + "</description>\n";
}

void KmlDocumentWriter::beginGeometry(const char* element)
{
    m_feature += std::string("<") + element + ">";
    // Only lines on the ground follow its relief.
    if (altitudeMode == AltitudeMode::ClampToGround && std::string(element) != "Point")
        m_feature += "<tessellate>1</tessellate>";
    m_feature += std::string("<altitudeMode>") + modeText(altitudeMode) + "</altitudeMode>";
}

void KmlDocumentWriter::appendPositions(const Ring& positions, bool close)
{
    const auto append = [this](const KmlPosition& position) {
        kpBaseExport::appendStreamFixed(m_feature, position.longitude, degreeDecimals);
        m_feature += ',';
        kpBaseExport::appendStreamFixed(m_feature, position.latitude, degreeDecimals);
        if (altitudeMode != AltitudeMode::ClampToGround) {
            m_feature += ',';
            kpBaseExport::appendStreamFixed(m_feature, position.height, heightDecimals);
        }
        m_feature += '\n';
    };
    m_feature += "<coordinates>\n";
    for (const KmlPosition& position : positions)
        append(position);
    if (close && !positions.empty() && !samePlace(positions.front(), positions.back()))
        append(positions.front());
    m_feature += "</coordinates>";
}

void KmlDocumentWriter::endPlacemark()
{
    m_feature += "</Placemark>\n";
    stream.write(m_feature.data(), static_cast<std::streamsize>(m_feature.size()));
}

void KmlDocumentWriter::placeLines(const QString& name, const QString& description, const QColor& colour,
                                   const std::vector<Ring>& lines)
{
    beginPlacemark(name, description);
    m_feature += "<Style><LineStyle><color>" + colourText("ff", colour)
                 + "</color><width>2</width></LineStyle></Style>\n";
    if (lines.size() != 1)
        m_feature += "<MultiGeometry>\n";
    for (const Ring& line : lines) {
        beginGeometry("LineString");
        appendPositions(line, false);
        m_feature += "</LineString>\n";
    }
    if (lines.size() != 1)
        m_feature += "</MultiGeometry>\n";
    endPlacemark();
}

void KmlDocumentWriter::placePolygons(const QString& name, const QString& description, const QColor& colour,
                                      const std::vector<Polygon>& polygons)
{
    beginPlacemark(name, description);
    m_feature += "<Style><LineStyle><color>" + colourText("ff", colour)
                 + "</color><width>1</width></LineStyle><PolyStyle><color>" + colourText("af", colour)
                 + "</color></PolyStyle></Style>\n";
    if (polygons.size() != 1)
        m_feature += "<MultiGeometry>\n";
    for (const Polygon& polygon : polygons) {
        beginGeometry("Polygon");
        m_feature += "<outerBoundaryIs><LinearRing>";
        appendPositions(polygon.outer, true);
        m_feature += "</LinearRing></outerBoundaryIs>";
        for (const Ring& hole : polygon.inner) {
            m_feature += "<innerBoundaryIs><LinearRing>";
            appendPositions(hole, true);
            m_feature += "</LinearRing></innerBoundaryIs>";
        }
        m_feature += "</Polygon>\n";
    }
    if (polygons.size() != 1)
        m_feature += "</MultiGeometry>\n";
    endPlacemark();
}

void KmlDocumentWriter::placePoint(const QString& name, const QString& description, const QColor& colour,
                                   const KmlPosition& position)
{
    beginPlacemark(name, description);
    m_feature += "<Style><IconStyle><color>" + colourText("ff", colour) + "</color></IconStyle></Style>\n";
    beginGeometry("Point");
    appendPositions({position}, false);
    m_feature += "</Point>\n";
    endPlacemark();
}

void KmlDocumentWriter::placeOverlay(const QString& name, const QString& pictureFile, double north, double south,
                                     double east, double west)
{
    m_feature = "<GroundOverlay>\n<name>" + xmlEscaped(name) + "</name>\n<Icon><href>" + xmlEscaped(pictureFile)
                + "</href></Icon>\n<LatLonBox>";
    const auto edge = [this](const char* element, double degrees) {
        m_feature += std::string("<") + element + ">";
        kpBaseExport::appendStreamFixed(m_feature, degrees, degreeDecimals);
        m_feature += std::string("</") + element + ">";
    };
    edge("north", north);
    edge("south", south);
    edge("east", east);
    edge("west", west);
    m_feature += "</LatLonBox>\n</GroundOverlay>\n";
    stream.write(m_feature.data(), static_cast<std::streamsize>(m_feature.size()));
}

} // namespace refhost
