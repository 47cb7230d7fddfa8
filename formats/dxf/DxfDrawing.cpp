// SPDX-License-Identifier: MIT
#include "formats/dxf/DxfDrawing.h"

#include "export/CommonFindings.h"
#include "formats/dxf/DxfFindings.h"
#include "geo/CoordinateSystems.h"
#include "model/SurfaceFaces.h"

#include <algorithm>
#include <cmath>

namespace kpFormats
{

namespace
{

using Settings = DxfExportSettings;

constexpr std::size_t boundaryAtOnce = 2048;

} // namespace

DxfDrawing::DxfDrawing(DxfSink& sink, const DxfExportSettings& settings, const QSet<const ModelObject*>& undrawable,
                       ProgressTicker& ticker, Findings& findings)
    : m_sink(sink)
    , m_settings(settings)
    , m_undrawable(undrawable)
    , m_ticker(ticker)
    , m_findings(findings)
    , m_rules(wktOf(settings.crs), settings.lengthUnit)
    , m_walk(
          ticker, findings, QStringLiteral("vertex %1 is not a number or has no place in the coordinate system"),
          [&sink] { return sink.good(); }, [this](PositionBlock& block) { project(block); })
    , m_layers(settings.unicodeLayers)
{
}

qint64 DxfDrawing::draw(const std::vector<const ModelObject*>& objects)
{
    findPlane(objects);
    findTextHeight(objects);
    for (const ModelObject* object : objects) {
        if (m_walk.stopped())
            break;
        takePen(*object);
        const qint64 before = m_entities;
        drawObject(*object);
        if (m_entities == before && !m_walk.stopped() && !m_undrawable.contains(object))
            m_findings.note(finding::objectLeftOut, *object, 1, QStringLiteral("nothing of it can be drawn"));
    }
    return m_entities;
}

PositionReader DxfDrawing::readerOf(const PositionSource& source, const ModelObject& object)
{
    return PositionReader(source, m_rules.of(object, m_settings.dimension != Settings::Dimension::Map));
}

/// Turns map positions and heights into those of a drawing seen from the side.
void DxfDrawing::project(PositionBlock& block) const
{
    if (!fromSide())
        return;
    for (std::size_t index = 0; index < block.size(); ++index) {
        const double along =
            (block.x[index] - m_plane.x) * m_plane.alongX + (block.y[index] - m_plane.y) * m_plane.alongY;
        block.x[index] = along;
        block.y[index] = std::isnan(along) ? along : block.z[index];
        block.z[index] = 0.0;
    }
}

DxfSink::Corner DxfDrawing::corner(const PositionBlock& block, std::size_t index) const
{
    return corner(placeOf(block, index));
}

DxfSink::Corner DxfDrawing::corner(const DrawingWalk::Place& place) const
{
    return {place[0], place[1], isFlat() ? 0.0 : place[2]};
}

void DxfDrawing::findPlane(const std::vector<const ModelObject*>& objects)
{
    const auto section = std::find_if(objects.begin(), objects.end(), [](const ModelObject* object) {
        return object->type == ObjectType::CrossSections && object->vertexCount() > 1;
    });
    if (!fromSide() || section == objects.end())
        return;
    const ModelObject& object = **section;
    PositionBlock ends;
    const int numbers[] = {0, object.vertexCount() - 1};
    readerOf(PositionSource::of(object), object).gather(numbers, 2, ends);
    const double length = std::hypot(ends.x[1] - ends.x[0], ends.y[1] - ends.y[0]);
    if (length > 0)
        m_plane = {ends.x[0], ends.y[0], (ends.x[1] - ends.x[0]) / length, (ends.y[1] - ends.y[0]) / length};
}

/// A two-hundredth of the drawing, judged by the first and last position of each object.
void DxfDrawing::findTextHeight(const std::vector<const ModelObject*>& objects)
{
    m_textHeight = m_settings.textHeight;
    if (m_textHeight > 0)
        return;
    double least[2] = {0, 0};
    double most[2] = {0, 0};
    bool any = false;
    PositionBlock ends;
    for (const ModelObject* object : objects) {
        if (object->vertexCount() == 0)
            continue;
        const int numbers[] = {0, object->vertexCount() - 1};
        readerOf(PositionSource::of(*object), *object).gather(numbers, 2, ends);
        project(ends);
        for (std::size_t index = 0; index < 2; ++index) {
            if (!std::isfinite(ends.x[index]))
                continue;
            const double place[] = {ends.x[index], ends.y[index]};
            for (int axis = 0; axis < 2; ++axis) {
                least[axis] = any ? std::min(least[axis], place[axis]) : place[axis];
                most[axis] = any ? std::max(most[axis], place[axis]) : place[axis];
            }
            any = true;
        }
    }
    const double size = std::hypot(most[0] - least[0], most[1] - least[1]);
    m_textHeight = size > 0 ? size / 200.0 : 1.0;
}

void DxfDrawing::takeColour(const QColor& colour)
{
    m_pen.colour = nearestColourIndex(colour);
    m_sink.setPen(m_pen);
}

void DxfDrawing::takePen(const ModelObject& object)
{
    const QString group = m_settings.layers == Settings::Layers::Set    ? object.set
                          : m_settings.layers == Settings::Layers::Type ? typeName(object.type)
                                                                        : QString();
    m_pen.layer = m_layers.layer(group);
    m_pen.flat = isFlat();
    m_pen.decimals = m_rules.inDegrees(object) ? 9 : m_settings.lengthUnit == OutputUnit::Kilometre ? 7 : 4;
    takeColour(object.color);
    // Once for each layer.
    if (!group.isEmpty() && m_layers.shown(group) != group && !m_renamed.contains(group)) {
        m_renamed.insert(group);
        m_findings.note(dxfFinding::layerRenamed, group, 1, QStringLiteral("now %1").arg(m_layers.shown(group)));
    }
    // There is no place for the name of a line or surface but a remark.
    bool changed = false;
    m_sink.comment(dxfText(object.name, changed));
}

void DxfDrawing::drawObject(const ModelObject& object)
{
    m_ticker.step(1);
    switch (object.type) {
    case ObjectType::Polygons:
    case ObjectType::Polylines:
        return drawLines(object, object.type == ObjectType::Polygons);
    case ObjectType::Wells:
        return drawWell(object);
    case ObjectType::GridSurfaces:
    case ObjectType::MeshSurfaces:
        return drawSurface(object);
    case ObjectType::CrossSections:
        return drawSection(object);
    case ObjectType::Labels:
        return drawPoints(object, false, true);
    case ObjectType::Pins:
        return drawPoints(object, true, true);
    default:
        return drawPoints(object, true, false);
    }
}

bool DxfDrawing::drawLine(PositionReader& reader, int first, int end, bool closed, bool orPoint)
{
    DrawingWalk::LinePen pen;
    pen.begin = [&] { m_sink.beginLine(closed); };
    pen.take = [this](const PositionBlock& block) { m_sink.positions(block); };
    pen.end = [this] {
        m_sink.endLine();
        ++m_entities;
    };
    if (orPoint)
        pen.single = [this](const DrawingWalk::Place& place) { drawPoint(corner(place)); };
    return m_walk.line(reader, first, end, 2, pen);
}

void DxfDrawing::drawLines(const ModelObject& object, bool area)
{
    PositionReader reader = readerOf(PositionSource::of(object), object);
    const DrawingWalk::PartCounts counts = m_walk.parts(
        object, area, [&](const Part& part, int end) { return drawLine(reader, part.first, end, part.closed); });
    m_walk.note(object, counts, finding::shortLine, reader);
}

void DxfDrawing::drawPoint(const DxfSink::Corner& place)
{
    m_sink.point(place);
    ++m_entities;
}

void DxfDrawing::drawName(const ModelObject& object, const DxfSink::Corner& place)
{
    bool changed = false;
    const std::string text = dxfText(object.name, changed);
    if (text.empty())
        return;
    m_sink.text(place, m_textHeight, text);
    ++m_entities;
    if (changed)
        m_findings.note(dxfFinding::textChanged, object, 1, QStringLiteral("characters that a drawing does not have"));
}

void DxfDrawing::drawPoints(const ModelObject& object, bool points, bool names)
{
    m_walk.points(object, readerOf(PositionSource::of(object), object), [&](int, const DrawingWalk::Place& place) {
        if (points)
            drawPoint(corner(place));
        if (names)
            drawName(object, corner(place));
    });
}

/// The path, or the collar where there is no more, and the name at the collar.
void DxfDrawing::drawWell(const ModelObject& object)
{
    PositionReader reader = readerOf(PositionSource::of(object), object);
    const PositionBlock path = m_walk.path(object, reader);
    m_walk.noteLeftOut(object, reader);
    if (path.size() == 0)
        return;
    if (path.size() > 1) {
        m_sink.beginLine(false);
        m_sink.positions(path);
        m_sink.endLine();
        ++m_entities;
    } else {
        drawPoint(corner(path, 0));
    }
    drawName(object, corner(path, 0));
}

void DxfDrawing::drawSurface(const ModelObject& object)
{
    if (m_settings.faces)
        drawFaces(object);
    if (m_settings.meshPoints)
        drawPoints(object, true, false);
    if (m_settings.boundaries)
        drawBoundaries(object);
}

void DxfDrawing::drawFaces(const ModelObject& object)
{
    const qint64 empty = m_walk.figures(
        object, readerOf(PositionSource::of(object), object), faceCount(object), std::tuple_size<Face>::value,
        [&object](qint64 number, std::vector<int>& vertices) {
            Face face;
            if (!faceAt(object, number, face))
                return false;
            vertices.insert(vertices.end(), face.begin(), face.end());
            return true;
        },
        [this](const PositionBlock& block, std::size_t at) {
            m_sink.face({corner(block, at), corner(block, at + 1), corner(block, at + 2), corner(block, at + 3)});
            ++m_entities;
        });
    m_findings.note(dxfFinding::cellWithoutValues, object, empty, QStringLiteral("there is no face"));
}

void DxfDrawing::drawBoundaries(const ModelObject& object)
{
    const double half = object.vertexCount() / 2.0;
    const std::vector<std::vector<int>> lines = boundaryLines(object, m_ticker, half);
    std::size_t points = 0;
    for (const std::vector<int>& line : lines)
        points += line.size();
    for (const std::vector<int>& line : lines) {
        if (m_walk.stopped())
            return;
        if (!drawBoundary(object, line, half / static_cast<double>(points)))
            m_findings.note(dxfFinding::boundaryLeftOut, object, 1,
                            QStringLiteral("it has no place in the coordinate system"));
    }
}

/// False when a vertex of it has no place.
bool DxfDrawing::drawBoundary(const ModelObject& object, const std::vector<int>& line, double weight)
{
    const bool closed = line.size() > 2 && line.front() == line.back();
    const std::size_t count = line.size() - (closed ? 1 : 0);
    const PositionReader reader = readerOf(PositionSource::of(object), object);
    std::vector<PositionBlock> blocks;
    for (std::size_t first = 0; first < count && !m_walk.stopped(); first += boundaryAtOnce) {
        const std::size_t some = std::min(boundaryAtOnce, count - first);
        blocks.emplace_back();
        reader.gather(line.data() + first, some, blocks.back());
        project(blocks.back());
        m_ticker.step(weight * static_cast<double>(some));
        if (std::any_of(blocks.back().x.begin(), blocks.back().x.end(), [](double x) { return std::isnan(x); }))
            return false;
    }
    m_sink.beginLine(closed);
    for (const PositionBlock& block : blocks) {
        if (m_ticker.poll())
            return true;
        m_sink.positions(block);
    }
    m_sink.endLine();
    ++m_entities;
    return true;
}

/// In space the trace and, where they are, the lines on the section; on a map the trace; from the side the lines,
/// unfolded along the trace.
void DxfDrawing::drawSection(const ModelObject& object)
{
    if (!fromSide()) {
        PositionReader trace = readerOf(PositionSource::of(object), object);
        drawLine(trace, 0, object.vertexCount(), false);
        m_walk.noteLeftOut(object, trace);
    }
    if (!object.section || m_settings.dimension == DxfExportSettings::Dimension::Map)
        return;
    for (const SectionSegment& segment : object.section->segments) {
        if (m_walk.stopped())
            return;
        takeColour(segment.color);
        bool changed = false;
        m_sink.comment(dxfText(segment.name, changed));
        if (fromSide()) {
            drawUnfolded(object, segment);
            continue;
        }
        PositionReader reader = readerOf(PositionSource::of(segment), object);
        drawLine(reader, 0, static_cast<int>(segment.z.size()), false, true);
        m_walk.noteLeftOut(object, reader);
    }
}

void DxfDrawing::drawUnfolded(const ModelObject& object, const SectionSegment& segment)
{
    const PositionRules rules = m_rules.of(object, true);
    PositionBlock block;
    block.resize(segment.z.size());
    for (std::size_t index = 0; index < block.size(); ++index) {
        block.x[index] = segment.distance[index] * rules.factor;
        block.y[index] = segment.z[index] * rules.heightFactor;
        block.z[index] = 0.0;
    }
    if (block.size() == 1) {
        m_sink.point(corner(block, 0));
    } else {
        m_sink.beginLine(false);
        m_sink.positions(block);
        m_sink.endLine();
    }
    m_ticker.step(static_cast<double>(block.size()));
    ++m_entities;
}

} // namespace kpFormats
