// SPDX-License-Identifier: MIT
#pragma once

#include "core/MatrixDataExporter.h"

#include <QColor>
#include <QList>
#include <QPointF>
#include <QSize>

namespace kpBaseExport
{

/// Writes a KML 2.1 document: folders, placemarks, ground overlays (KML 2.1 Reference, kml21.xsd).
/// Positions are QPointF with x = latitude and y = longitude, in decimal degrees. Names stand in CDATA sections;
/// texts are written as they are. Numbers have the decimals that the stream is set to. Folders are closed by whoever
/// opened them.
class KPBASEEXPORTCORE_EXPORT MatrixDataKMLExporter : public MatrixDataExporter
{
public:
    explicit MatrixDataKMLExporter(const QString& file = QString());

    /// Checks the record and writes nothing.
    /// \throws std::logic_error as requireVertexData()
    void writeGeo(const GeoObject* object) override;
    bool fileOpen() override;
    void fileClose() override;

    virtual void beginFolder(const QString& name);
    virtual void endFolder();
    /// Names the enclosing document or folder.
    virtual void writeName(const QString& name);
    /// A half-transparent rectangle between two corners.
    virtual void writeBoundingArea(const QPointF& corner1, const QPointF& corner2);
    virtual void writeSectionTrace(const QList<QPointF>& points, const QString& name);
    /// A filled ring; an invalid colour is white. Nothing is added to close the ring.
    virtual void writePolygon(const QList<QPointF>& points, const QString& name, const QColor& colour);
    virtual void writePolyLine(const QList<QPointF>& points, const QString& name, const QColor& colour);
    virtual void writeWell(const QPointF& position, const QString& name);
    /// A picture laid on the ground: edges in degrees, rotation in degrees counter-clockwise.
    virtual void writeHorizontalImage(double north, double south, double east, double west, double rotation,
                                      const QString& imageHref, const QString& name);
    /// A point whose balloon shows a picture of \a size pixels.
    virtual void writePointImage(const QPointF& position, const QString& name, const QString& imageSource,
                                 const QSize& size);

protected:
    int styleCounter = 0; ///< number of the last style of a line or polygon

private:
    void appendNumber(double degrees);
    void appendPoint(const QPointF& point);
    void appendPoints(const QList<QPointF>& points);
    void appendEdge(const char* edge, double degrees);
    void finish(const char* end);
};

} // namespace kpBaseExport
