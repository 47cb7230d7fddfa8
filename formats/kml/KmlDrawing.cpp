// SPDX-License-Identifier: MIT
#include "formats/kml/KmlDrawing.h"

#include "export/AttributeTable.h"
#include "export/CommonFindings.h"
#include "formats/kml/GridPicture.h"
#include "formats/kml/KmlDocumentWriter.h"
#include "formats/kml/KmlFindings.h"
#include "geo/CoordinateSystems.h"
#include "model/OutputUnit.h"

#include <algorithm>
#include <limits>

namespace kpFormats
{

namespace
{

using AltitudeMode = KmlExportSettings::AltitudeMode;

} // namespace

/// A placemark that begins when the first of its geometries turns out to have a place.
class KmlDrawing::Placemark
{
public:
    Placemark(KmlDrawing& drawing, const ModelObject& object, KmlSink::Look look, bool several)
        : m_drawing(drawing)
        , m_object(object)
        , m_look(look)
        , m_several(several)
    {
    }

    void open()
    {
        if (m_open)
            return;
        m_open = true;
        ++m_drawing.m_features;
        m_drawing.m_sink.beginPlacemark(m_object.name, m_drawing.tableOf(m_object, -1), m_look, m_object.color,
                                        m_drawing.modeFor(m_object));
        if (m_several)
            m_drawing.m_sink.beginMulti();
    }

    void close()
    {
        if (!m_open) {
            if (!m_drawing.m_walk.stopped() && !m_drawing.m_undrawable.contains(&m_object))
                m_drawing.m_findings.note(finding::objectLeftOut, m_object, 1,
                                          QStringLiteral("nothing of it can be drawn"));
            return;
        }
        if (m_several)
            m_drawing.m_sink.endMulti();
        m_drawing.m_sink.endPlacemark();
    }

private:
    KmlDrawing& m_drawing;
    const ModelObject& m_object;
    KmlSink::Look m_look;
    bool m_several;
    bool m_open = false;
};

KmlDrawing::KmlDrawing(KmlSink& sink, const KmlExportSettings& settings, const QSet<const ModelObject*>& undrawable,
                       KeepPicture keepPicture, ProgressTicker& ticker, Findings& findings)
    : m_sink(sink)
    , m_settings(settings)
    , m_undrawable(undrawable)
    , m_keepPicture(std::move(keepPicture))
    , m_ticker(ticker)
    , m_findings(findings)
    , m_ownSystem(wktOf(settings.crs))
    , m_transforms(wktOf(QStringLiteral("EPSG:4326")))
    , m_walk(ticker, findings, QStringLiteral("vertex %1 has no height or no place on the earth"))
{
}

qint64 KmlDrawing::draw(const std::vector<const ModelObject*>& objects, const ExportSelection& selection)
{
    m_selection = &selection;
    if (m_settings.boundingArea)
        drawBounds(objects);
    for (const ObjectType type : allObjectTypes()) {
        bool open = false;
        for (const ModelObject* object : objects) {
            if (object->type != type || m_walk.stopped())
                continue;
            if (!open)
                m_sink.beginFolder(typeName(type));
            open = true;
            drawObject(*object);
        }
        if (open)
            m_sink.endFolder();
    }
    return m_features;
}

void KmlDrawing::drawObject(const ModelObject& object)
{
    if (xmlText(object.name) != object.name)
        m_findings.note(finding::renamed, object, 1, QStringLiteral("characters that XML does not have are left out"));
    m_ticker.step(1);
    switch (object.type) {
    case ObjectType::Polygons:
        return drawPolygons(object);
    case ObjectType::Polylines:
        return drawLines(object);
    case ObjectType::Wells:
        return drawWell(object);
    case ObjectType::MeshSurfaces:
        return drawMesh(object);
    case ObjectType::GridSurfaces:
    case ObjectType::Images:
        return drawSurface(object);
    case ObjectType::CrossSections:
        return drawSection(object);
    default:
        return drawPoints(object);
    }
}

QString KmlDrawing::systemOf(const ModelObject& object) const
{
    return object.crs.isEmpty() ? m_ownSystem : object.crs;
}

AltitudeMode KmlDrawing::modeFor(const ModelObject& object) const
{
    return object.hasZ ? m_settings.altitudeMode : AltitudeMode::Clamp;
}

PositionReader KmlDrawing::readerOf(const ModelObject& object)
{
    return readerOf(PositionSource::of(object), object, modeFor(object));
}

PositionReader KmlDrawing::readerOf(const PositionSource& source, const ModelObject& object, AltitudeMode mode)
{
    PositionRules rules;
    rules.transform = m_transforms.from(systemOf(object));
    rules.heightFactor = unitFactor(object.lengthUnit, OutputUnit::Metre);
    rules.needsHeight = mode != AltitudeMode::Clamp;
    rules.geographic = true;
    return PositionReader(source, rules);
}

QString KmlDrawing::tableOf(const ModelObject& object, int vertex)
{
    if (!m_settings.attributes)
        return {};
    QString table = attributeTable(object, *m_selection, vertex);
    if (xmlText(table) != table)
        m_findings.note(kmlFinding::attributeTextChanged, object, 1,
                        QStringLiteral("characters that XML does not have are left out"));
    return table;
}

DrawingWalk::LinePen KmlDrawing::linePen(std::function<void()> open)
{
    DrawingWalk::LinePen pen;
    pen.begin = [this, open = std::move(open)] {
        open();
        m_sink.beginLine();
    };
    pen.take = [this](const PositionBlock& block) { m_sink.positions(block); };
    pen.end = [this] { m_sink.endLine(); };
    return pen;
}

void KmlDrawing::drawLines(const ModelObject& object)
{
    PositionReader reader = readerOf(object);
    Placemark placemark(*this, object, KmlSink::Look::Line, object.parts.size() != 1);
    const DrawingWalk::PartCounts counts = m_walk.parts(object, false, [&](const Part& part, int end) {
        DrawingWalk::LinePen pen = linePen([&] { placemark.open(); });
        pen.end = [&] {
            PositionBlock start;
            int first = part.first;
            if (part.closed && reader.read(first, part.first + 1, start))
                m_sink.positions(start);
            m_sink.endLine();
        };
        return m_walk.line(reader, part.first, end, 2, pen);
    });
    placemark.close();
    m_walk.note(object, counts, finding::shortLine, reader);
}

void KmlDrawing::drawPolygons(const ModelObject& object)
{
    PositionReader reader = readerOf(object);
    const auto outer =
        std::count_if(object.parts.begin(), object.parts.end(), [](const Part& part) { return !part.hole; });
    Placemark placemark(*this, object, KmlSink::Look::Area, outer != 1);
    bool open = false;
    const auto endPolygon = [&] {
        if (open)
            m_sink.endPolygon();
        open = false;
    };
    const DrawingWalk::PartCounts counts = m_walk.parts(object, true, [&](const Part& part, int end) {
        if (!part.hole)
            endPolygon();
        else if (!open)
            return false;
        DrawingWalk::LinePen pen;
        pen.begin = [&] {
            placemark.open();
            if (!open)
                m_sink.beginPolygon();
            open = true;
            m_sink.beginRing(part.hole);
        };
        pen.take = [this](const PositionBlock& block) { m_sink.positions(block); };
        pen.end = [this] { m_sink.endRing(); };
        return m_walk.line(reader, part.first, end, 3, pen);
    });
    endPolygon();
    placemark.close();
    m_walk.note(object, counts, finding::shortRing, reader);
}

void KmlDrawing::drawPoints(const ModelObject& object)
{
    const AltitudeMode mode = modeFor(object);
    const bool single = object.vertexCount() == 1;
    const KmlSink::Look look = object.type == ObjectType::Labels ? KmlSink::Look::Label : KmlSink::Look::Icon;
    m_walk.points(object, readerOf(object), [&](int vertex, const DrawingWalk::Place& place) {
        const QString name = single ? object.name : QStringLiteral("%1 %2").arg(object.name).arg(vertex + 1);
        m_sink.beginPlacemark(name, tableOf(object, vertex), look, object.color, mode);
        m_sink.point(place[0], place[1], place[2]);
        m_sink.endPlacemark();
        ++m_features;
    });
}

/// A pin at the collar and, below it, the path.
void KmlDrawing::drawWell(const ModelObject& object)
{
    PositionReader reader = readerOf(object);
    const PositionBlock path = m_walk.path(object, reader);
    Placemark placemark(*this, object, KmlSink::Look::Icon, path.size() > 1);
    if (path.size() > 0) {
        placemark.open();
        m_sink.point(path.x[0], path.y[0], path.z[0]);
    }
    if (path.size() > 1) {
        m_sink.beginLine();
        m_sink.positions(path);
        m_sink.endLine();
    }
    placemark.close();
    m_walk.noteLeftOut(object, reader);
}

void KmlDrawing::polygon(const PositionBlock& corners)
{
    m_sink.beginPolygon();
    m_sink.beginRing(false);
    m_sink.positions(corners);
    m_sink.endRing();
    m_sink.endPolygon();
}

void KmlDrawing::drawMesh(const ModelObject& object)
{
    constexpr std::size_t corners = 3;
    Placemark placemark(*this, object, KmlSink::Look::Area, object.triangles.size() != 1);
    PositionBlock triangle;
    triangle.resize(corners);
    const qint64 leftOut = m_walk.figures(
        object, readerOf(object), static_cast<qint64>(object.triangles.size()), corners,
        [&object](qint64 number, std::vector<int>& vertices) {
            const std::array<int, corners>& face = object.triangles[static_cast<std::size_t>(number)];
            vertices.insert(vertices.end(), face.begin(), face.end());
            return true;
        },
        [&](const PositionBlock& block, std::size_t at) {
            for (std::size_t corner = 0; corner < corners; ++corner) {
                triangle.x[corner] = block.x[at + corner];
                triangle.y[corner] = block.y[at + corner];
                triangle.z[corner] = block.z[at + corner];
            }
            placemark.open();
            polygon(triangle);
        });
    placemark.close();
    m_findings.note(kmlFinding::triangleLeftOut, object, leftOut, QStringLiteral("a corner has no place on the earth"));
}

void KmlDrawing::drawSurface(const ModelObject& object)
{
    const std::optional<GridPicture> picture = drawGrid(object, systemOf(object), m_ticker, object.vertexCount());
    if (m_ticker.cancelled())
        return;
    if (!picture) {
        if (!m_undrawable.contains(&object))
            m_findings.note(finding::objectLeftOut, object, 1,
                            QStringLiteral("no node has a value and a place on the earth"));
        return;
    }
    const QString heights =
        QStringLiteral("%1 to %2 %3").arg(picture->lowest).arg(picture->highest).arg(object.lengthUnit);
    m_sink.overlay(object.name,
                   QStringLiteral("Heights from ") + heights + QStringLiteral(", green is low, white is high."),
                   m_keepPicture(picture->image), picture->box);
    ++m_features;
    m_findings.note(kmlFinding::surfaceWrittenAsAPicture, object, 1,
                    QStringLiteral("heights of %1 are colours").arg(heights));
    if (picture->coarser)
        m_findings.note(kmlFinding::pictureCoarserThanTheGrid, object, 1,
                        QStringLiteral("%1 x %2 pixels").arg(picture->image.width()).arg(picture->image.height()));
}

/// The trace and, where heights are written, what is drawn on the section.
void KmlDrawing::drawSection(const ModelObject& object)
{
    PositionReader reader = readerOf(PositionSource::of(object), object, AltitudeMode::Clamp);
    Placemark trace(*this, object, KmlSink::Look::Trace, false);
    m_walk.line(reader, 0, object.vertexCount(), 2, linePen([&] { trace.open(); }));
    trace.close();
    m_walk.noteLeftOut(object, reader);
    if (!object.section || m_settings.altitudeMode == AltitudeMode::Clamp)
        return;
    for (const SectionSegment& segment : object.section->segments) {
        if (!m_walk.stopped())
            drawSegment(object, segment);
    }
}

void KmlDrawing::drawSegment(const ModelObject& object, const SectionSegment& segment)
{
    const auto begin = [&](KmlSink::Look look) {
        m_sink.beginPlacemark(QStringLiteral("%1: %2").arg(object.name, segment.name), QString(), look, segment.color,
                              m_settings.altitudeMode);
        ++m_features;
    };
    PositionReader reader = readerOf(PositionSource::of(segment), object, m_settings.altitudeMode);
    DrawingWalk::LinePen pen = linePen([&] { begin(KmlSink::Look::Line); });
    pen.end = [this] {
        m_sink.endLine();
        m_sink.endPlacemark();
    };
    pen.single = [&](const DrawingWalk::Place& place) {
        begin(KmlSink::Look::Icon);
        m_sink.point(place[0], place[1], place[2]);
        m_sink.endPlacemark();
    };
    m_walk.line(reader, 0, static_cast<int>(segment.z.size()), 2, pen);
    m_walk.noteLeftOut(object, reader);
}

void KmlDrawing::drawBounds(const std::vector<const ModelObject*>& objects)
{
    constexpr double infinite = std::numeric_limits<double>::infinity();
    DegreeBox box{-infinite, infinite, -infinite, infinite};
    PositionBlock block;
    for (const ModelObject* object : objects) {
        PositionReader reader = readerOf(PositionSource::of(*object), *object, AltitudeMode::Clamp);
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
    polygon(block);
    m_sink.endPlacemark();
    m_sink.endFolder();
    ++m_features;
}

} // namespace kpFormats
