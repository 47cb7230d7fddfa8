// SPDX-License-Identifier: MIT
#include "formats/dxf/DxfDrawing.h"
#include "export/CommonFindings.h"
#include "formats/dxf/DxfFindings.h"

#include "geo/CoordinateSystems.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace kpFormats
{

namespace
{

using Settings = DxfExportSettings;

constexpr int pointsAtOnce = 1024;

} // namespace

DxfDrawing::DxfDrawing(DxfSink& sink, const DxfExportSettings& settings, const QSet<const ModelObject*>& undrawable,
                       ProgressTicker& ticker, Findings& findings)
    : m_sink(sink)
    , m_settings(settings)
    , m_undrawable(undrawable)
    , m_ticker(ticker)
    , m_findings(findings)
    , m_rules(wktOf(settings.crs), settings.lengthUnit)
    , m_layers(settings.unicodeLayers)
{
}

qint64 DxfDrawing::draw(const std::vector<const ModelObject*>& objects)
{
    findPlane(objects);
    findTextHeight(objects);
    for (const ModelObject* object : objects) {
        if (stopped())
            break;
        takePen(*object);
        const qint64 before = m_entities;
        drawObject(*object);
        if (m_entities == before && !stopped() && !m_undrawable.contains(object))
            m_findings.note(finding::objectLeftOut, object->name, 1, QStringLiteral("nothing of it can be drawn"));
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
    return {block.x[index], block.y[index], isFlat() ? 0.0 : block.z[index]};
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

void DxfDrawing::noteLeftOut(const ModelObject& object, const PositionReader& reader)
{
    m_findings.note(finding::positionLeftOut, object.name, reader.leftOut(),
                    QStringLiteral("vertex %1 is not a number or has no place in the coordinate system")
                        .arg(reader.firstLeftOut()));
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

bool DxfDrawing::drawLine(PositionReader& reader, int first, int end, bool closed)
{
    PositionBlock block;
    int next = first;
    if (!reader.read(next, end, block, 2) || block.size() < 2)
        return false;
    m_sink.beginLine(closed);
    do {
        project(block);
        m_sink.positions(block);
        m_ticker.step(static_cast<double>(block.size()));
    } while (!stopped() && reader.read(next, end, block));
    m_sink.endLine();
    ++m_entities;
    return true;
}

void DxfDrawing::drawLines(const ModelObject& object, bool area)
{
    PositionReader reader = readerOf(PositionSource::of(object), object);
    qint64 tooShort = 0;
    qint64 closed = 0;
    for (const Part& part : object.parts) {
        if (stopped())
            break;
        Part line = part;
        line.closed = part.closed || area;
        const int end = openEnd(object, line);
        if (!drawLine(reader, part.first, end, line.closed))
            ++tooShort;
        else if (area && end == part.first + part.count)
            ++closed;
    }
    m_findings.note(finding::shortLine, object.name, tooShort, object.name);
    m_findings.note(finding::ringClosed, object.name, closed, QStringLiteral("its last point was not its first"));
    noteLeftOut(object, reader);
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
        m_findings.note(dxfFinding::textChanged, object.name, 1,
                        QStringLiteral("characters that a drawing does not have"));
}

void DxfDrawing::drawPoints(const ModelObject& object, bool points, bool names)
{
    const PositionReader reader = readerOf(PositionSource::of(object), object);
    std::vector<int> numbers(pointsAtOnce);
    PositionBlock block;
    qint64 leftOut = 0;
    int firstLeftOut = 0;
    const int count = object.vertexCount();
    for (int first = 0; first < count && !stopped(); first += pointsAtOnce) {
        const int some = std::min(pointsAtOnce, count - first);
        std::iota(numbers.begin(), numbers.end(), first);
        reader.gather(numbers.data(), static_cast<std::size_t>(some), block);
        project(block);
        for (int index = 0; index < some; ++index) {
            const auto at = static_cast<std::size_t>(index);
            if (std::isnan(block.x[at])) {
                if (leftOut++ == 0)
                    firstLeftOut = first + index + 1;
                continue;
            }
            if (points) {
                m_sink.point(corner(block, at));
                ++m_entities;
            }
            if (names)
                drawName(object, corner(block, at));
        }
        m_ticker.step(some);
    }
    m_findings.note(
        finding::positionLeftOut, object.name, leftOut,
        QStringLiteral("vertex %1 is not a number or has no place in the coordinate system").arg(firstLeftOut));
}

/// The path, or the collar where there is no more, and the name at the collar.
void DxfDrawing::drawWell(const ModelObject& object)
{
    PositionReader reader = readerOf(PositionSource::of(object), object);
    const bool path = drawLine(reader, 0, object.vertexCount(), false);
    noteLeftOut(object, reader);
    PositionReader again = readerOf(PositionSource::of(object), object);
    PositionBlock collar;
    int next = 0;
    if (!again.read(next, object.vertexCount(), collar))
        return;
    project(collar);
    if (!path) {
        m_sink.point(corner(collar, 0));
        ++m_entities;
    }
    drawName(object, corner(collar, 0));
}

} // namespace kpFormats
