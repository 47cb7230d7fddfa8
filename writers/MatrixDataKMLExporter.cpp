// SPDX-License-Identifier: MIT
#include "writers/MatrixDataKMLExporter.h"

#include "writers/KmlColour.h"
#include "writers/StreamNumber.h"
#include "writers/VertexCheck.h"

#include <QCoreApplication>

namespace kpBaseExport
{

namespace
{

// The fixed text around the features of a KML 2.1 document. The only substitution is the application's
// version, which stands between beforeVersion and afterVersion.

constexpr char beforeVersion[] = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                                 "<kml xmlns=\"http://earth.google.com/kml/2.1\">\n"
                                 "<Document><atom:author><![CDATA[";

constexpr char afterVersion[] =
    "]]></atom:author>"
    "<Style id=\"transBluePoly\"><LineStyle><width>1.5</width></LineStyle>"
    "<PolyStyle><color>7dff0000</color></PolyStyle></Style>\n"
    "<Style id=\"sectionTrace\"><LineStyle><width>5</width><color>aa0000ff</color></LineStyle></Style>\n"
    "<Style id=\"well\"><IconStyle><color>ffffff00</color><scale>1.0</scale>"
    "<Icon><href>http://maps.google.com/mapfiles/kml/pal4/icon25.png</href></Icon></IconStyle></Style>\n";

constexpr char epilogue[] = "</Document>\n</kml>\n";

void appendName(std::string& text, const QString& name)
{
    text += "<name><![CDATA[" + name.toStdString() + "]]></name>";
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
    blockStream.text() += beforeVersion + QCoreApplication::applicationVersion().toStdString() + afterVersion;
    blockStream.flush();
    return true;
}

void MatrixDataKMLExporter::fileClose()
{
    if (stream.is_open())
        blockStream.text() += epilogue;
    MatrixDataExporter::fileClose();
}

void MatrixDataKMLExporter::beginFolder(const QString& name)
{
    blockStream.text() += "<Folder>\n";
    appendName(blockStream.text(), name);
    finish("\n");
}

void MatrixDataKMLExporter::endFolder()
{
    finish("</Folder>\n");
}

void MatrixDataKMLExporter::writeName(const QString& name)
{
    appendName(blockStream.text(), name);
    finish("\n");
}

void MatrixDataKMLExporter::writeBoundingArea(const QPointF& corner1, const QPointF& corner2)
{
    blockStream.text() += "<Placemark><name>bb</name><styleUrl>#transBluePoly</styleUrl>\n"
                          "<Polygon><altitudeMode>clampToGround</altitudeMode>"
                          "<outerBoundaryIs><LinearRing><coordinates>\n";
    appendPoints({corner1, {corner1.x(), corner2.y()}, corner2, {corner2.x(), corner1.y()}, corner1});
    finish("</coordinates></LinearRing></outerBoundaryIs></Polygon></Placemark>\n");
}

void MatrixDataKMLExporter::writeSectionTrace(const QList<QPointF>& points, const QString& name)
{
    blockStream.text() += "<Placemark>";
    appendName(blockStream.text(), name);
    blockStream.text() += "<styleUrl>#sectionTrace</styleUrl>\n"
                          "<LineString><altitudeMode>clampToGround</altitudeMode><coordinates>\n";
    appendPoints(points);
    finish("</coordinates></LineString></Placemark>\n");
}

void MatrixDataKMLExporter::writePolygon(const QList<QPointF>& points, const QString& name, const QColor& colour)
{
    const std::string number = std::to_string(++styleCounter);
    blockStream.text() += "<Style id=\"PSI" + number + "\"><PolyStyle><color>" + kmlColour("af", colour)
                          + "</color><fill>1</fill></PolyStyle></Style>\n<Placemark>";
    appendName(blockStream.text(), name);
    blockStream.text() += "<styleUrl>#PSI" + number
                          + "</styleUrl>\n<Polygon><altitudeMode>clampToGround</altitudeMode>"
                            "<outerBoundaryIs><LinearRing><coordinates>\n";
    appendPoints(points);
    finish("</coordinates></LinearRing></outerBoundaryIs></Polygon></Placemark>\n");
}

void MatrixDataKMLExporter::writePolyLine(const QList<QPointF>& points, const QString& name, const QColor& colour)
{
    const std::string number = std::to_string(++styleCounter);
    blockStream.text() += "<Style id=\"LSI" + number + "\"><LineStyle><width>2</width><color>" + kmlColour("aa", colour)
                          + "</color></LineStyle></Style>\n<Placemark>";
    appendName(blockStream.text(), name);
    blockStream.text() += "<styleUrl>#LSI" + number
                          + "</styleUrl>\n<LineString><altitudeMode>clampToGround</altitudeMode><coordinates>\n";
    appendPoints(points);
    finish("</coordinates></LineString></Placemark>\n");
}

void MatrixDataKMLExporter::writeWell(const QPointF& position, const QString& name)
{
    blockStream.text() += "<Placemark>";
    appendName(blockStream.text(), name);
    blockStream.text() += "\n<Point><coordinates>\n";
    appendPoint(position);
    finish("</coordinates></Point></Placemark>\n");
}

void MatrixDataKMLExporter::writeHorizontalImage(double north, double south, double east, double west, double rotation,
                                                 const QString& imageHref, const QString& name)
{
    blockStream.text() += "<GroundOverlay>";
    appendName(blockStream.text(), name);
    blockStream.text() += "\n<Icon><href>" + imageHref.toStdString() + "</href></Icon>\n<LatLonBox>\n";
    appendEdge("north", north);
    appendEdge("south", south);
    appendEdge("east", east);
    appendEdge("west", west);
    appendEdge("rotation", rotation);
    finish("</LatLonBox></GroundOverlay>\n");
}

void MatrixDataKMLExporter::writePointImage(const QPointF& position, const QString& name, const QString& imageSource,
                                            const QSize& size)
{
    blockStream.text() += "<Placemark>";
    appendName(blockStream.text(), name);
    blockStream.text() += "\n<description><![CDATA[<img src=\"" + imageSource.toStdString()
                          + "\" width=" + std::to_string(size.width()) + " height=" + std::to_string(size.height())
                          + " />]]></description>\n<Point><coordinates>\n";
    appendPoint(position);
    finish("</coordinates></Point></Placemark>\n");
}

void MatrixDataKMLExporter::appendNumber(double degrees)
{
    // The saver may have asked the stream for other decimals.
    appendStreamFixed(blockStream.text(), degrees, static_cast<int>(stream.precision()));
}

void MatrixDataKMLExporter::appendPoint(const QPointF& point)
{
    appendNumber(point.y());
    blockStream.text() += ',';
    appendNumber(point.x());
    blockStream.text() += '\n';
}

void MatrixDataKMLExporter::appendPoints(const QList<QPointF>& points)
{
    for (const QPointF& point : points)
        appendPoint(point);
}

void MatrixDataKMLExporter::appendEdge(const char* edge, double degrees)
{
    blockStream.text() += std::string("<") + edge + ">";
    appendNumber(degrees);
    blockStream.text() += std::string("</") + edge + ">\n";
}

void MatrixDataKMLExporter::finish(const char* end)
{
    blockStream.text() += end;
    blockStream.flush();
}

} // namespace kpBaseExport
