// SPDX-License-Identifier: MIT
#include "export/DrawingWalk.h"

#include "export/CommonFindings.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace kpFormats
{

namespace
{

constexpr int pointsAtOnce = 1024;
constexpr qint64 figuresAtOnce = 512;

} // namespace

DrawingWalk::DrawingWalk(ProgressTicker& ticker, Findings& findings, QString noPlace, std::function<bool()> good,
                         std::function<void(PositionBlock&)> project)
    : m_ticker(ticker)
    , m_findings(findings)
    , m_noPlace(std::move(noPlace))
    , m_good(std::move(good))
    , m_project(std::move(project))
{
}

void DrawingWalk::project(PositionBlock& block) const
{
    if (m_project)
        m_project(block);
}

void DrawingWalk::noteLeftOut(const ModelObject& object, qint64 count, int first)
{
    m_findings.note(finding::positionLeftOut, object, count, m_noPlace.arg(first));
}

void DrawingWalk::noteLeftOut(const ModelObject& object, const PositionReader& reader)
{
    noteLeftOut(object, reader.leftOut(), reader.firstLeftOut());
}

bool DrawingWalk::line(PositionReader& reader, int first, int end, std::size_t least, const LinePen& pen)
{
    PositionBlock block;
    int next = first;
    const bool any = reader.read(next, end, block, least);
    if (block.size() < least) {
        project(block);
        if (any && pen.single)
            pen.single(placeOf(block, 0));
        return false;
    }
    pen.begin();
    do {
        project(block);
        pen.take(block);
        m_ticker.step(static_cast<double>(block.size()));
    } while (!stopped() && reader.read(next, end, block));
    if (pen.end)
        pen.end();
    return true;
}

DrawingWalk::PartCounts DrawingWalk::parts(const ModelObject& object, bool areas, const DrawPart& draw) const
{
    PartCounts counts;
    for (Part part : object.parts) {
        if (stopped())
            break;
        part.closed = part.closed || areas;
        const int end = openEnd(object, part);
        if (!draw(part, end))
            ++counts.tooShort;
        else if (areas && end == part.first + part.count)
            ++counts.closed;
    }
    return counts;
}

void DrawingWalk::note(const ModelObject& object, const PartCounts& counts, const FindingKind& tooShort,
                       const PositionReader& reader)
{
    m_findings.note(tooShort, object, counts.tooShort, object.name);
    m_findings.note(finding::ringClosed, object, counts.closed, QStringLiteral("its last point was not its first"));
    noteLeftOut(object, reader);
}

PositionBlock DrawingWalk::path(const ModelObject& object, PositionReader& reader)
{
    PositionBlock path;
    int next = 0;
    reader.read(next, object.vertexCount(), path, static_cast<std::size_t>(object.vertexCount()));
    project(path);
    m_ticker.step(object.vertexCount());
    return path;
}

void DrawingWalk::points(const ModelObject& object, const PositionReader& reader,
                         const std::function<void(int, const Place&)>& take)
{
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
            const Place place = placeOf(block, static_cast<std::size_t>(index));
            if (!std::isnan(place[0]))
                take(first + index, place);
            else if (leftOut++ == 0)
                firstLeftOut = first + index + 1;
        }
        m_ticker.step(some);
    }
    noteLeftOut(object, leftOut, firstLeftOut);
}

qint64 DrawingWalk::figures(const ModelObject& object, const PositionReader& reader, qint64 count, std::size_t corners,
                            const std::function<bool(qint64, std::vector<int>&)>& append,
                            const std::function<void(const PositionBlock&, std::size_t)>& take)
{
    std::vector<int> vertices;
    PositionBlock block;
    qint64 leftOut = 0;
    for (qint64 first = 0; first < count && !stopped(); first += figuresAtOnce) {
        const qint64 end = std::min(first + figuresAtOnce, count);
        vertices.clear();
        for (qint64 number = first; number < end; ++number)
            leftOut += append(number, vertices) ? 0 : 1;
        reader.gather(vertices.data(), vertices.size(), block);
        project(block);
        for (std::size_t at = 0; at < block.size(); at += corners) {
            const auto start = block.x.begin() + static_cast<std::ptrdiff_t>(at);
            const bool whole = std::none_of(start, start + static_cast<std::ptrdiff_t>(corners),
                                            [](double x) { return std::isnan(x); });
            if (whole)
                take(block, at);
            else
                ++leftOut;
        }
        m_ticker.step(static_cast<double>(object.vertexCount()) * static_cast<double>(end - first)
                      / static_cast<double>(count));
    }
    return leftOut;
}

} // namespace kpFormats
