// SPDX-License-Identifier: MIT
#include "app/savers/KmlDrawing.h"

#include "app/readers/CoordinateSystems.h"
#include "app/savers/AttributeTable.h"
#include "app/savers/GridPicture.h"
#include "app/savers/KmlDocumentWriter.h"
#include "app/savers/OutputUnit.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>

namespace refhost
{

namespace
{

using AltitudeMode = KmlExportSettings::AltitudeMode;

constexpr int pointsAtOnce = 1024;
constexpr int trianglesAtOnce = 512;

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
            if (!m_drawing.stopped())
                m_drawing.m_report.note(QStringLiteral("object left out"), m_object.name, 1,
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

KmlDrawing::KmlDrawing(KmlSink& sink, const KmlExportSettings& settings, KeepPicture keepPicture, ProgressTicker& ticker,
                       ExportReport& report)
    : m_sink(sink)
    , m_settings(settings)
    , m_keepPicture(std::move(keepPicture))
    , m_ticker(ticker)
    , m_report(report)
    , m_ownSystem(wktOf(settings.crs))
    , m_transforms(wktOf(QStringLiteral("EPSG:4326")))
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
            if (object->type != type || stopped())
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
        m_report.note(QStringLiteral("renamed"), object.name, 1, QStringLiteral("characters that XML does not have are left out"));
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

PositionRules KmlDrawing::rulesFor(const ModelObject& object, AltitudeMode mode)
{
    PositionRules rules;
    rules.transform = m_transforms.from(systemOf(object));
    rules.heightFactor = unitFactor(object.lengthUnit, OutputUnit::Metre);
    rules.needsHeight = mode != AltitudeMode::Clamp;
    rules.geographic = true;
    return rules;
}

QString KmlDrawing::tableOf(const ModelObject& object, int vertex)
{
    if (!m_settings.attributes)
        return {};
    QString table = attributeTable(object, *m_selection, vertex);
    if (xmlText(table) != table)
        m_report.note(QStringLiteral("attribute text changed"), object.name, 1,
                      QStringLiteral("characters that XML does not have are left out"));
    return table;
}

void KmlDrawing::noteLeftOut(const ModelObject& object, const PositionReader& reader)
{
    m_report.note(QStringLiteral("position left out"), object.name, reader.leftOut(),
                  QStringLiteral("vertex %1 has no height or no place on the earth").arg(reader.firstLeftOut()));
}

void KmlDrawing::noteVertexAttributes(const ModelObject& object)
{
    if (!m_settings.attributes)
        return;
    qint64 lost = 0;
    QString first;
    for (const AttributeColumn& column : object.vertexAttributes) {
        if (m_selection->wantsAttribute(column.name) && lost++ == 0)
            first = column.name;
    }
    m_report.note(QStringLiteral("attribute of vertices not written"), object.name, lost, QStringLiteral("first %1").arg(first));
}

/// Writes what is in \a block and the rest of a line or ring.
void KmlDrawing::streamPositions(PositionReader& reader, int& next, int end, PositionBlock& block)
{
    do {
        m_sink.positions(block);
        m_ticker.step(static_cast<double>(block.size()));
    } while (!stopped() && reader.read(next, end, block));
}

void KmlDrawing::drawLines(const ModelObject& object)
{
    PositionReader reader(PositionSource::of(object), rulesFor(object, modeFor(object)));
    Placemark placemark(*this, object, KmlSink::Look::Line, object.parts.size() != 1);
    PositionBlock block;
    qint64 tooShort = 0;
    for (const Part& part : object.parts) {
        int next = part.first;
        const int end = part.first + part.count;
        if (stopped())
            break;
        if (!reader.read(next, end, block, 2) || block.size() < 2) {
            ++tooShort;
            continue;
        }
        placemark.open();
        m_sink.beginLine();
        streamPositions(reader, next, end, block);
        if (part.closed && openEnd(object, part) == end) {
            // Closed without saying its first vertex again.
            int first = part.first;
            if (reader.read(first, part.first + 1, block))
                m_sink.positions(block);
        }
        m_sink.endLine();
    }
    placemark.close();
    m_report.note(QStringLiteral("line of fewer than two points left out"), object.name, tooShort, object.name);
    noteLeftOut(object, reader);
    noteVertexAttributes(object);
}

void KmlDrawing::drawPolygons(const ModelObject& object)
{
    PositionReader reader(PositionSource::of(object), rulesFor(object, modeFor(object)));
    const auto outer = std::count_if(object.parts.begin(), object.parts.end(), [](const Part& part) { return !part.hole; });
    Placemark placemark(*this, object, KmlSink::Look::Area, outer != 1);
    PositionBlock block;
    qint64 tooShort = 0;
    qint64 closed = 0;
    bool open = false;
    for (const Part& part : object.parts) {
        if (stopped())
            break;
        if (!part.hole && open) {
            m_sink.endPolygon();
            open = false;
        }
        Part ring = part;
        ring.closed = true;
        int next = part.first;
        const int end = openEnd(object, ring);
        const bool drawable = reader.read(next, end, block, 3) && block.size() >= 3;
        if (!drawable || (part.hole && !open)) {
            ++tooShort;
            continue;
        }
        closed += end == part.first + part.count ? 1 : 0;
        placemark.open();
        if (!open)
            m_sink.beginPolygon();
        open = true;
        m_sink.beginRing(part.hole);
        streamPositions(reader, next, end, block);
        m_sink.endRing();
    }
    if (open)
        m_sink.endPolygon();
    placemark.close();
    m_report.note(QStringLiteral("ring of fewer than three points left out"), object.name, tooShort, object.name);
    m_report.note(QStringLiteral("ring closed"), object.name, closed, QStringLiteral("its last point was not its first"));
    noteLeftOut(object, reader);
    noteVertexAttributes(object);
}

void KmlDrawing::drawPoints(const ModelObject& object)
{
    const AltitudeMode mode = modeFor(object);
    const PositionReader reader(PositionSource::of(object), rulesFor(object, mode));
    const int count = object.vertexCount();
    const bool label = object.type == ObjectType::Labels;
    std::vector<int> numbers(pointsAtOnce);
    PositionBlock block;
    qint64 leftOut = 0;
    int firstLeftOut = 0;
    for (int first = 0; first < count && !stopped(); first += pointsAtOnce) {
        const int some = std::min(pointsAtOnce, count - first);
        std::iota(numbers.begin(), numbers.end(), first);
        reader.gather(numbers.data(), static_cast<std::size_t>(some), block);
        for (int index = 0; index < some; ++index) {
            const auto at = static_cast<std::size_t>(index);
            if (std::isnan(block.x[at])) {
                if (leftOut++ == 0)
                    firstLeftOut = first + index + 1;
                continue;
            }
            const QString name = count == 1 ? object.name : QStringLiteral("%1 %2").arg(object.name).arg(first + index + 1);
            m_sink.beginPlacemark(name, tableOf(object, first + index), label ? KmlSink::Look::Label : KmlSink::Look::Icon,
                                  object.color, mode);
            m_sink.point(block.x[at], block.y[at], block.z[at]);
            m_sink.endPlacemark();
            ++m_features;
        }
        m_ticker.step(some);
    }
    m_report.note(QStringLiteral("position left out"), object.name, leftOut,
                  QStringLiteral("vertex %1 has no height or no place on the earth").arg(firstLeftOut));
    if (count == 0)
        m_report.note(QStringLiteral("object left out"), object.name, 1, QStringLiteral("nothing of it can be drawn"));
}

/// A pin at the collar and, below it, the path.
void KmlDrawing::drawWell(const ModelObject& object)
{
    PositionReader reader(PositionSource::of(object), rulesFor(object, modeFor(object)));
    PositionBlock path;
    int next = 0;
    const bool placed = reader.read(next, object.vertexCount(), path, static_cast<std::size_t>(object.vertexCount()));
    Placemark placemark(*this, object, KmlSink::Look::Icon, path.size() > 1);
    if (placed) {
        placemark.open();
        m_sink.point(path.x[0], path.y[0], path.z[0]);
        if (path.size() > 1) {
            m_sink.beginLine();
            m_sink.positions(path);
            m_sink.endLine();
        }
    }
    m_ticker.step(object.vertexCount());
    placemark.close();
    noteLeftOut(object, reader);
    noteVertexAttributes(object);
}

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
    m_report.note(QStringLiteral("triangle left out"), object.name, leftOut, QStringLiteral("a corner has no place on the earth"));
    noteVertexAttributes(object);
}

void KmlDrawing::drawSurface(const ModelObject& object)
{
    const std::optional<GridPicture> picture = drawGrid(object, systemOf(object), m_ticker, object.vertexCount());
    if (m_ticker.cancelled())
        return;
    if (!picture) {
        m_report.note(QStringLiteral("object left out"), object.name, 1, QStringLiteral("no node has a value and a place on the earth"));
        return;
    }
    const QString heights = QStringLiteral("%1 to %2 %3").arg(picture->lowest).arg(picture->highest).arg(object.lengthUnit);
    m_sink.overlay(object.name, QStringLiteral("Heights from ") + heights + QStringLiteral(", green is low, white is high."),
                   m_keepPicture(picture->image), picture->box);
    ++m_features;
    m_report.note(QStringLiteral("surface written as a picture"), object.name, 1,
                  QStringLiteral("heights of %1 are colours").arg(heights));
    if (picture->coarser)
        m_report.note(QStringLiteral("picture coarser than the grid"), object.name, 1,
                      QStringLiteral("%1 x %2 pixels").arg(picture->image.width()).arg(picture->image.height()));
    noteVertexAttributes(object);
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
    if (!object.section)
        return;
    if (m_settings.altitudeMode == AltitudeMode::Clamp) {
        m_report.note(QStringLiteral("line on a section left out"), object.name, static_cast<qint64>(object.section->segments.size()),
                      QStringLiteral("it has no place on the ground; set altitudeMode=absolute"));
        return;
    }
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

} // namespace refhost
