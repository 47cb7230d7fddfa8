// SPDX-License-Identifier: MIT
// Surfaces and sections of a drawing.
#include "formats/dxf/DxfDrawing.h"
#include "formats/dxf/DxfFindings.h"
#include "model/SurfaceFaces.h"

#include <algorithm>
#include <cmath>

namespace kpFormats
{

namespace
{

constexpr int facesAtOnce = 512;
constexpr std::size_t boundaryAtOnce = 2048;

} // namespace

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
    const PositionReader reader = readerOf(PositionSource::of(object), object);
    const qint64 count = faceCount(object);
    std::vector<int> vertices;
    PositionBlock block;
    qint64 empty = 0;
    for (qint64 first = 0; first < count && !stopped(); first += facesAtOnce) {
        const qint64 end = std::min<qint64>(first + facesAtOnce, count);
        vertices.clear();
        for (qint64 number = first; number < end; ++number) {
            Face face;
            if (faceAt(object, number, face))
                vertices.insert(vertices.end(), face.begin(), face.end());
            else
                ++empty;
        }
        reader.gather(vertices.data(), vertices.size(), block);
        project(block);
        for (std::size_t at = 0; at < block.size(); at += 4) {
            const std::array<DxfSink::Corner, 4> corners{corner(block, at), corner(block, at + 1),
                                                         corner(block, at + 2), corner(block, at + 3)};
            if (std::any_of(corners.begin(), corners.end(),
                            [](const DxfSink::Corner& one) { return std::isnan(one[0]); })) {
                ++empty;
                continue;
            }
            m_sink.face(corners);
            ++m_entities;
        }
        m_ticker.step(static_cast<double>(object.vertexCount()) * static_cast<double>(end - first)
                      / static_cast<double>(count));
    }
    m_findings.note(dxfFinding::cellWithoutValues, object.name, empty, QStringLiteral("there is no face"));
}

void DxfDrawing::drawBoundaries(const ModelObject& object)
{
    const double half = object.vertexCount() / 2.0;
    const std::vector<std::vector<int>> lines = boundaryLines(object, m_ticker, half);
    std::size_t points = 0;
    for (const std::vector<int>& line : lines)
        points += line.size();
    for (const std::vector<int>& line : lines) {
        if (stopped())
            return;
        if (!drawBoundary(object, line, half / static_cast<double>(points)))
            m_findings.note(dxfFinding::boundaryLeftOut, object.name, 1,
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
    for (std::size_t first = 0; first < count && !stopped(); first += boundaryAtOnce) {
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
        noteLeftOut(object, trace);
    }
    if (!object.section || m_settings.dimension == DxfExportSettings::Dimension::Map)
        return;
    for (const SectionSegment& segment : object.section->segments) {
        if (stopped())
            return;
        takeColour(segment.color);
        bool changed = false;
        m_sink.comment(dxfText(segment.name, changed));
        if (fromSide()) {
            drawUnfolded(object, segment);
            continue;
        }
        PositionReader reader = readerOf(PositionSource::of(segment), object);
        const int end = static_cast<int>(segment.z.size());
        PositionBlock block;
        int next = 0;
        if (!drawLine(reader, 0, end, false) && reader.read(next, end, block)) {
            m_sink.point(corner(block, 0));
            ++m_entities;
        }
        noteLeftOut(object, reader);
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
