// SPDX-License-Identifier: MIT
#include "writers/MatrixDataKMLExporter.h"

#include "writers/KmlFrame.h"
#include "writers/StreamNumber.h"
#include "writers/VertexCheck.h"

#include <QCoreApplication>

namespace kpBaseExport
{

namespace
{

constexpr int coordinateDecimals = 6;

void appendPoint(std::string& text, const QPointF& point)
{
    appendStreamFixed(text, point.y(), coordinateDecimals);
    text += ',';
    appendStreamFixed(text, point.x(), coordinateDecimals);
    text += '\n';
}

void appendPoints(std::string& text, const QList<QPointF>& points)
{
    for (const QPointF& point : points)
        appendPoint(text, point);
}

void appendName(std::string& text, const QString& name)
{
    text += "<name><![CDATA[" + name.toStdString() + "]]></name>";
}

/// KML's colour text: alpha, blue, green, red.
std::string kmlColour(const char* alpha, const QColor& colour)
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

void appendEdge(std::string& text, const char* edge, double degrees)
{
    text += std::string("<") + edge + ">";
    appendStreamFixed(text, degrees, coordinateDecimals);
    text += std::string("</") + edge + ">\n";
}

} // namespace

MatrixDataKMLExporter::MatrixDataKMLExporter(const QString& file)
    : MatrixDataExporter(file)
{
}

void MatrixDataKMLExporter::writeGeo(const GeoObject* object)
{
    requireVertexData(*object);
}

bool MatrixDataKMLExporter::fileOpen()
{
    if (!MatrixDataExporter::fileOpen())
        return false;
    stream << KmlFrame::beforeVersion << QCoreApplication::applicationVersion().toStdString() << KmlFrame::afterVersion;
    return true;
}

void MatrixDataKMLExporter::fileClose()
{
    stream << KmlFrame::epilogue;
    MatrixDataExporter::fileClose();
}

void MatrixDataKMLExporter::beginFolder(const QString& name)
{
    m_text = "<Folder>\n";
    appendName(m_text, name);
    put("\n");
}

void MatrixDataKMLExporter::endFolder()
{
    put("</Folder>\n");
}

void MatrixDataKMLExporter::writeName(const QString& name)
{
    appendName(m_text, name);
    put("\n");
}

void MatrixDataKMLExporter::writeBoundingArea(const QPointF& corner1, const QPointF& corner2)
{
    m_text = "<Placemark><name>bb</name><styleUrl>#transBluePoly</styleUrl>\n"
             "<Polygon><altitudeMode>clampToGround</altitudeMode>"
             "<outerBoundaryIs><LinearRing><coordinates>\n";
    appendPoints(m_text, {corner1, {corner1.x(), corner2.y()}, corner2, {corner2.x(), corner1.y()}, corner1});
    put("</coordinates></LinearRing></outerBoundaryIs></Polygon></Placemark>\n");
}

void MatrixDataKMLExporter::writeSectionTrace(const QList<QPointF>& points, const QString& name)
{
    m_text = "<Placemark>";
    appendName(m_text, name);
    m_text += "<styleUrl>#sectionTrace</styleUrl>\n"
              "<LineString><altitudeMode>clampToGround</altitudeMode><coordinates>\n";
    appendPoints(m_text, points);
    put("</coordinates></LineString></Placemark>\n");
}

void MatrixDataKMLExporter::writePolygon(const QList<QPointF>& points, const QString& name, const QColor& colour)
{
    const std::string number = std::to_string(++styleCounter);
    m_text = "<Style id=\"PSI" + number + "\"><PolyStyle><color>" + kmlColour("af", colour)
             + "</color><fill>1</fill></PolyStyle></Style>\n<Placemark>";
    appendName(m_text, name);
    m_text += "<styleUrl>#PSI" + number
              + "</styleUrl>\n<Polygon><altitudeMode>clampToGround</altitudeMode>"
                "<outerBoundaryIs><LinearRing><coordinates>\n";
    appendPoints(m_text, points);
    put("</coordinates></LinearRing></outerBoundaryIs></Polygon></Placemark>\n");
}

void MatrixDataKMLExporter::writePolyLine(const QList<QPointF>& points, const QString& name, const QColor& colour)
{
    const std::string number = std::to_string(++styleCounter);
    m_text = "<Style id=\"LSI" + number + "\"><LineStyle><width>2</width><color>" + kmlColour("aa", colour)
             + "</color></LineStyle></Style>\n<Placemark>";
    appendName(m_text, name);
    m_text += "<styleUrl>#LSI" + number
              + "</styleUrl>\n<LineString><altitudeMode>clampToGround</altitudeMode><coordinates>\n";
    appendPoints(m_text, points);
    put("</coordinates></LineString></Placemark>\n");
}

void MatrixDataKMLExporter::writeWell(const QPointF& position, const QString& name)
{
    m_text = "<Placemark>";
    appendName(m_text, name);
    m_text += "\n<Point><coordinates>\n";
    appendPoint(m_text, position);
    put("</coordinates></Point></Placemark>\n");
}

void MatrixDataKMLExporter::writeHorizontalImage(double north, double south, double east, double west, double rotation,
                                                 const QString& imageHref, const QString& name)
{
    m_text = "<GroundOverlay>";
    appendName(m_text, name);
    m_text += "\n<Icon><href>" + imageHref.toStdString() + "</href></Icon>\n<LatLonBox>\n";
    appendEdge(m_text, "north", north);
    appendEdge(m_text, "south", south);
    appendEdge(m_text, "east", east);
    appendEdge(m_text, "west", west);
    appendEdge(m_text, "rotation", rotation);
    put("</LatLonBox></GroundOverlay>\n");
}

void MatrixDataKMLExporter::writePointImage(const QPointF& position, const QString& name, const QString& imageSource,
                                            const QSize& size)
{
    m_text = "<Placemark>";
    appendName(m_text, name);
    m_text += "\n<description><![CDATA[<img src=\"" + imageSource.toStdString()
              + "\" width=" + std::to_string(size.width()) + " height=" + std::to_string(size.height())
              + " />]]></description>\n<Point><coordinates>\n";
    appendPoint(m_text, position);
    put("</coordinates></Point></Placemark>\n");
}

void MatrixDataKMLExporter::put(const std::string& text)
{
    m_text += text;
    stream.write(m_text.data(), static_cast<std::streamsize>(m_text.size()));
    m_text.clear();
}

} // namespace kpBaseExport
