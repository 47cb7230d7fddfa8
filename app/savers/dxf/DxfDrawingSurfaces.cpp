// SPDX-License-Identifier: MIT
// Surfaces and sections of a drawing.
#include "app/savers/dxf/DxfDrawing.h"
#include "app/savers/dxf/DxfLosses.h"
#include "app/savers/SurfaceFaces.h"

#include <algorithm>
#include <cmath>

namespace refhost
{

namespace
{

constexpr int facesAtOnce = 512;

} // namespace

void DxfDrawing::drawSurface(const ModelObject& object)
{
    if (isSwitchedOff(object, m_settings)) {
        m_report.note(QStringLiteral("surface left out"), object.name, 1,
                      QStringLiteral("faces, meshPoints and boundaries are all off"));
        return;
    }
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
    m_report.note(QStringLiteral("cell without values"), object.name, empty, QStringLiteral("there is no face"));
}

void DxfDrawing::drawBoundaries(const ModelObject& object)
{
    for (const std::vector<int>& line : boundaryLines(object, m_ticker)) {
        if (stopped())
            return;
        const bool closed = line.size() > 2 && line.front() == line.back();
        PositionBlock block;
        readerOf(PositionSource::of(object), object).gather(line.data(), line.size() - (closed ? 1 : 0), block);
        project(block);
        if (std::any_of(block.x.begin(), block.x.end(), [](double x) { return std::isnan(x); })) {
            m_report.note(QStringLiteral("boundary left out"), object.name, 1,
                          QStringLiteral("it has no place in the coordinate system"));
            continue;
        }
        m_sink.beginLine(closed);
        m_sink.positions(block);
        m_sink.endLine();
        ++m_entities;
    }
    m_ticker.step(object.vertexCount());
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
        takeColour(segment.color, segment.name);
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

} // namespace refhost
