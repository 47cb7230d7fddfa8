// SPDX-License-Identifier: MIT
#include "model/SectionCutter.h"

#include "model/GridSampler.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <tuple>
#include <unordered_map>

namespace kpFormats
{

namespace
{

// Beyond this many samples on one leg the step grows.
constexpr double mostSamples = 1e6;

SectionSegment newSegment(const ModelObject& object)
{
    SectionSegment segment;
    segment.name = object.name;
    segment.type = object.type;
    segment.color = object.color;
    return segment;
}

template <typename Point>
void append(SectionSegment& segment, const Point& point)
{
    segment.distance.push_back(point.distance);
    segment.x.push_back(point.x);
    segment.y.push_back(point.y);
    segment.z.push_back(point.z);
}

} // namespace

/// Where a leg cuts a triangle. Pieces with an end of the same key meet there.
struct SectionCutter::Piece
{
    using Key = std::tuple<long long, int, int>; ///< leg and mesh edge, or trace point, triangle and -1

    Key keys[2];
    Point ends[2];
};

SectionCutter::SectionCutter(const std::vector<double>& x, const std::vector<double>& y)
{
    double before = 0;
    for (std::size_t index = 1; index < x.size(); ++index) {
        const double startX = m_legs.empty() ? x.front() : m_legs.back().x + m_legs.back().dx;
        const double startY = m_legs.empty() ? y.front() : m_legs.back().y + m_legs.back().dy;
        const double length = std::hypot(x[index] - startX, y[index] - startY);
        if (!(length > 0))
            continue;
        m_legs.push_back({startX, startY, x[index] - startX, y[index] - startY, length, before});
        before += length;
    }
}

std::vector<SectionSegment> SectionCutter::cut(const ModelObject& object) const
{
    std::vector<SectionSegment> segments;
    if (!object.hasZ)
        return segments;
    if (object.grid)
        cutGrid(object, segments);
    else if (!object.triangles.empty())
        cutMesh(object, segments);
    else if (object.type == ObjectType::Polylines || object.type == ObjectType::Wells)
        cutLines(object, segments);
    return segments;
}

SectionCutter::Point SectionCutter::pointOn(const Leg& leg, double share, double z)
{
    return {leg.before + share * leg.length, leg.x + share * leg.dx, leg.y + share * leg.dy, z};
}

void SectionCutter::cutGrid(const ModelObject& object, std::vector<SectionSegment>& segments) const
{
    const GridSampler height(object);
    SectionSegment segment = newSegment(object);
    const auto finish = [&] {
        if (segment.z.size() > 1)
            segments.push_back(std::move(segment));
        segment = newSegment(object);
    };
    for (const Leg& leg : m_legs) {
        const int steps = static_cast<int>(std::clamp(std::ceil(2.0 * leg.length / height.step()), 1.0, mostSamples));
        // A leg starts where the one before ended.
        for (int step = leg.before > 0 ? 1 : 0; step <= steps; ++step) {
            const double share = static_cast<double>(step) / steps;
            const double z = height(leg.x + share * leg.dx, leg.y + share * leg.dy);
            if (std::isfinite(z))
                append(segment, pointOn(leg, share, z));
            else
                finish();
        }
    }
    finish();
}

void SectionCutter::cutLines(const ModelObject& object, std::vector<SectionSegment>& segments) const
{
    const std::vector<double>& x = *object.x;
    const std::vector<double>& y = *object.y;
    const std::vector<double>& z = *object.z;
    for (const Part& part : object.parts) {
        for (int index = part.first; index + 1 < part.first + part.count; ++index) {
            const auto a = static_cast<std::size_t>(index);
            const auto b = a + 1;
            for (const Leg& leg : m_legs) {
                // The side of the trace on which each end lies; a point on it counts to the left.
                const double sideA = leg.dx * (y[a] - leg.y) - leg.dy * (x[a] - leg.x);
                const double sideB = leg.dx * (y[b] - leg.y) - leg.dy * (x[b] - leg.x);
                if ((sideA < 0) == (sideB < 0) || !std::isfinite(sideA + sideB))
                    continue;
                const double way = sideA / (sideA - sideB);
                const double share =
                    ((x[a] + way * (x[b] - x[a]) - leg.x) * leg.dx + (y[a] + way * (y[b] - y[a]) - leg.y) * leg.dy)
                    / (leg.length * leg.length);
                const double height = z[a] + way * (z[b] - z[a]);
                const bool last = &leg == &m_legs.back();
                if (share < 0 || share > 1 || (share == 1 && !last) || !std::isfinite(height))
                    continue;
                segments.push_back(newSegment(object));
                append(segments.back(), pointOn(leg, share, height));
            }
        }
    }
}

bool SectionCutter::cutTriangle(const ModelObject& object, std::size_t triangle, const Leg& leg, long long number,
                                Piece& piece)
{
    const std::array<int, 3>& corners = object.triangles[triangle];
    double sides[3];
    for (std::size_t corner = 0; corner < 3; ++corner) {
        const auto vertex = static_cast<std::size_t>(corners[corner]);
        sides[corner] = leg.dx * ((*object.y)[vertex] - leg.y) - leg.dy * ((*object.x)[vertex] - leg.x);
        if (!std::isfinite(sides[corner] + (*object.z)[vertex]))
            return false;
    }
    int found = 0;
    double shares[2] = {0, 0};
    for (std::size_t corner = 0; corner < 3; ++corner) {
        std::size_t from = corner;
        std::size_t to = (corner + 1) % 3;
        if ((sides[from] < 0) == (sides[to] < 0))
            continue;
        // Always from the smaller index, so that both triangles of an edge find the same point.
        if (corners[from] > corners[to])
            std::swap(from, to);
        const auto a = static_cast<std::size_t>(corners[from]);
        const auto b = static_cast<std::size_t>(corners[to]);
        const double way = sides[from] / (sides[from] - sides[to]);
        const double x = (*object.x)[a] + way * ((*object.x)[b] - (*object.x)[a]);
        const double y = (*object.y)[a] + way * ((*object.y)[b] - (*object.y)[a]);
        const double z = (*object.z)[a] + way * ((*object.z)[b] - (*object.z)[a]);
        shares[found] = ((x - leg.x) * leg.dx + (y - leg.y) * leg.dy) / (leg.length * leg.length);
        piece.ends[found] = pointOn(leg, shares[found], z);
        piece.keys[found] = {number, corners[from], corners[to]};
        ++found;
    }
    if (found != 2)
        return false;
    if (shares[0] > shares[1]) {
        std::swap(shares[0], shares[1]);
        std::swap(piece.ends[0], piece.ends[1]);
        std::swap(piece.keys[0], piece.keys[1]);
    }
    if (!(shares[0] < 1 && shares[1] > 0))
        return false;
    const double slope = (piece.ends[1].z - piece.ends[0].z) / (shares[1] - shares[0]);
    const Point start = piece.ends[0];
    const double startShare = shares[0];
    const auto clip = [&](std::size_t end, double share, long long tracePoint) {
        piece.ends[end] = pointOn(leg, share, start.z + slope * (share - startShare));
        piece.keys[end] = {tracePoint, static_cast<int>(triangle), -1};
    };
    if (shares[0] < 0)
        clip(0, 0.0, number);
    if (shares[1] > 1)
        clip(1, 1.0, number + 1);
    return true;
}

void SectionCutter::cutMesh(const ModelObject& object, std::vector<SectionSegment>& segments) const
{
    std::vector<Piece> pieces;
    for (std::size_t triangle = 0; triangle < object.triangles.size(); ++triangle) {
        long long number = 0;
        for (const Leg& leg : m_legs) {
            Piece piece;
            if (cutTriangle(object, triangle, leg, number++, piece))
                pieces.push_back(piece);
        }
    }
    // Pieces run along the trace, so each goes on with the one that starts where it ends.
    std::multimap<Piece::Key, std::size_t> starts;
    std::map<Piece::Key, int> endings;
    for (std::size_t index = 0; index < pieces.size(); ++index) {
        starts.emplace(pieces[index].keys[0], index);
        ++endings[pieces[index].keys[1]];
    }
    std::vector<bool> used(pieces.size(), false);
    const auto follow = [&](std::size_t first) {
        SectionSegment segment = newSegment(object);
        append(segment, pieces[first].ends[0]);
        std::size_t next = first;
        for (;;) {
            used[next] = true;
            append(segment, pieces[next].ends[1]);
            const auto range = starts.equal_range(pieces[next].keys[1]);
            const auto free =
                std::find_if(range.first, range.second, [&used](const auto& entry) { return !used[entry.second]; });
            if (free == range.second)
                break;
            next = free->second;
        }
        segments.push_back(std::move(segment));
    };
    for (std::size_t index = 0; index < pieces.size(); ++index) {
        if (!used[index] && endings.find(pieces[index].keys[0]) == endings.end())
            follow(index);
    }
    // What is left starts where several end.
    for (std::size_t index = 0; index < pieces.size(); ++index) {
        if (!used[index])
            follow(index);
    }
}

} // namespace kpFormats
