// SPDX-License-Identifier: MIT
// Surfaces, sections and the bounding area of a KML document.
#include "export/CommonFindings.h"
#include "formats/kml/GridPicture.h"
#include "formats/kml/KmlDrawing.h"
#include "formats/kml/KmlFindings.h"
#include "formats/kml/KmlPlacemark.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace kpFormats
{

namespace
{

using AltitudeMode = KmlExportSettings::AltitudeMode;

constexpr int trianglesAtOnce = 512;

} // namespace

void KmlDrawing::drawMesh(const ModelObject& object)
{
    const PositionReader reader(PositionSource::of(object), rulesFor(object, modeFor(object)));
    Placemark placemark(*this, object, KmlSink::Look::Area, object.triangles.size() != 1);
    PositionBlock corners;
    PositionBlock triangle;
    triangle.resize(3);
    qint64 leftOut = 0;
    for (std::size_t first = 0; first < object.triangles.size() && !stopped(); first += trianglesAtOnce) {
        const std::size_t some = std::min<std::size_t>(trianglesAtOnce, object.triangles.size() - first);
        reader.gather(object.triangles[first].data(), some * 3, corners);
        for (std::size_t index = 0; index < some; ++index) {
            bool complete = true;
            for (std::size_t corner = 0; corner < 3; ++corner) {
                triangle.x[corner] = corners.x[3 * index + corner];
                triangle.y[corner] = corners.y[3 * index + corner];
                triangle.z[corner] = corners.z[3 * index + corner];
                complete = complete && !std::isnan(triangle.x[corner]);
            }
            if (!complete) {
                ++leftOut;
                continue;
            }
            placemark.open();
            m_sink.beginPolygon();
            m_sink.beginRing(false);
            m_sink.positions(triangle);
            m_sink.endRing();
            m_sink.endPolygon();
        }
        m_ticker.step(static_cast<double>(object.vertexCount()) * static_cast<double>(some)
                      / static_cast<double>(object.triangles.size()));
    }
    placemark.close();
    m_findings.note(kmlFinding::triangleLeftOut, object.name, leftOut,
                    QStringLiteral("a corner has no place on the earth"));
}

void KmlDrawing::drawSurface(const ModelObject& object)
{
    const std::optional<GridPicture> picture = drawGrid(object, systemOf(object), m_ticker, object.vertexCount());
    if (m_ticker.cancelled())
        return;
    if (!picture) {
        if (!m_undrawable.contains(&object))
            m_findings.note(finding::objectLeftOut, object.name, 1,
                            QStringLiteral("no node has a value and a place on the earth"));
        return;
    }
    const QString heights =
        QStringLiteral("%1 to %2 %3").arg(picture->lowest).arg(picture->highest).arg(object.lengthUnit);
    m_sink.overlay(object.name,
                   QStringLiteral("Heights from ") + heights + QStringLiteral(", green is low, white is high."),
                   m_keepPicture(picture->image), picture->box);
    ++m_features;
    m_findings.note(kmlFinding::surfaceWrittenAsAPicture, object.name, 1,
                    QStringLiteral("heights of %1 are colours").arg(heights));
    if (picture->coarser)
        m_findings.note(kmlFinding::pictureCoarserThanTheGrid, object.name, 1,
                        QStringLiteral("%1 x %2 pixels").arg(picture->image.width()).arg(picture->image.height()));
}

/// The trace and, where heights are written, what is drawn on the section.
void KmlDrawing::drawSection(const ModelObject& object)
{
    PositionReader reader(PositionSource::of(object), rulesFor(object, AltitudeMode::Clamp));
    Placemark trace(*this, object, KmlSink::Look::Trace, false);
    PositionBlock block;
    int next = 0;
    if (reader.read(next, object.vertexCount(), block, 2) && block.size() > 1) {
        trace.open();
        m_sink.beginLine();
        streamPositions(reader, next, object.vertexCount(), block);
        m_sink.endLine();
    }
    trace.close();
    noteLeftOut(object, reader);
    if (!object.section || m_settings.altitudeMode == AltitudeMode::Clamp)
        return;
    for (const SectionSegment& segment : object.section->segments) {
        if (!stopped())
            drawSegment(object, segment);
    }
}

void KmlDrawing::drawSegment(const ModelObject& object, const SectionSegment& segment)
{
    PositionReader reader(PositionSource::of(segment), rulesFor(object, m_settings.altitudeMode));
    PositionBlock block;
    int next = 0;
    const int end = static_cast<int>(segment.z.size());
    if (reader.read(next, end, block, 2)) {
        const bool line = block.size() > 1;
        m_sink.beginPlacemark(QStringLiteral("%1: %2").arg(object.name, segment.name), QString(),
                              line ? KmlSink::Look::Line : KmlSink::Look::Icon, segment.color, m_settings.altitudeMode);
        if (line) {
            m_sink.beginLine();
            streamPositions(reader, next, end, block);
            m_sink.endLine();
        } else {
            m_sink.point(block.x[0], block.y[0], block.z[0]);
        }
        m_sink.endPlacemark();
        ++m_features;
    }
    noteLeftOut(object, reader);
}

void KmlDrawing::drawBounds(const std::vector<const ModelObject*>& objects)
{
    constexpr double infinite = std::numeric_limits<double>::infinity();
    DegreeBox box{-infinite, infinite, -infinite, infinite};
    PositionBlock block;
    for (const ModelObject* object : objects) {
        PositionReader reader(PositionSource::of(*object), rulesFor(*object, AltitudeMode::Clamp));
        int next = 0;
        while (reader.read(next, object->vertexCount(), block)) {
            const auto x = std::minmax_element(block.x.begin(), block.x.end());
            const auto y = std::minmax_element(block.y.begin(), block.y.end());
            box.west = std::min(box.west, *x.first);
            box.east = std::max(box.east, *x.second);
            box.south = std::min(box.south, *y.first);
            box.north = std::max(box.north, *y.second);
        }
    }
    if (!(box.west < box.east && box.south < box.north))
        return;
    block.x = {box.west, box.east, box.east, box.west};
    block.y = {box.south, box.south, box.north, box.north};
    block.z = {0, 0, 0, 0};
    m_sink.beginFolder(QStringLiteral("Bounding Area"));
    m_sink.beginPlacemark(QStringLiteral("bb"), QString(), KmlSink::Look::Bounds, QColor(), AltitudeMode::Clamp);
    m_sink.beginPolygon();
    m_sink.beginRing(false);
    m_sink.positions(block);
    m_sink.endRing();
    m_sink.endPolygon();
    m_sink.endPlacemark();
    m_sink.endFolder();
    ++m_features;
}

} // namespace kpFormats
