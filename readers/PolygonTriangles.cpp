// SPDX-License-Identifier: MIT
#include "readers/PolygonTriangles.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace kpFormats
{

namespace
{

constexpr std::size_t mostCorners = 1000;

struct Point
{
    double u;
    double v;
};

/// Twice the area of the triangle, positive when it turns left.
double turn(const Point& a, const Point& b, const Point& c)
{
    return (b.u - a.u) * (c.v - a.v) - (b.v - a.v) * (c.u - a.u);
}

/// The corners on the plane in which the polygon is largest, turning left.
std::vector<Point> flattened(const std::vector<int>& corners, const std::vector<double>& x,
                             const std::vector<double>& y, const std::vector<double>& z)
{
    const auto at = [&corners](const std::vector<double>& axis, std::size_t corner) {
        // From the first corner: coordinates on a map are large, faces small.
        return axis[static_cast<std::size_t>(corners[corner % corners.size()])]
               - axis[static_cast<std::size_t>(corners[0])];
    };
    std::array<double, 3> normal{0, 0, 0};
    for (std::size_t corner = 0; corner < corners.size(); ++corner) {
        normal[0] += at(y, corner) * at(z, corner + 1) - at(z, corner) * at(y, corner + 1);
        normal[1] += at(z, corner) * at(x, corner + 1) - at(x, corner) * at(z, corner + 1);
        normal[2] += at(x, corner) * at(y, corner + 1) - at(y, corner) * at(x, corner + 1);
    }
    const auto larger = [](double a, double b) { return std::abs(a) < std::abs(b); };
    const auto axis = static_cast<std::size_t>(std::max_element(normal.begin(), normal.end(), larger) - normal.begin());
    const std::array<const std::vector<double>*, 3> axes{&x, &y, &z};
    const std::vector<double>& first = *axes[(axis + 1) % 3];
    const std::vector<double>& second = *axes[(axis + 2) % 3];
    std::vector<Point> points;
    points.reserve(corners.size());
    for (std::size_t corner = 0; corner < corners.size(); ++corner) {
        const Point point{at(first, corner), at(second, corner)};
        points.push_back(normal[axis] < 0 ? Point{point.v, point.u} : point);
    }
    return points;
}

/// Turns one way only, and once about.
bool isConvex(const std::vector<Point>& points)
{
    const std::size_t count = points.size();
    double turned = 0.0;
    for (std::size_t index = 0; index < count; ++index) {
        const Point& a = points[index];
        const Point& b = points[(index + 1) % count];
        const Point& c = points[(index + 2) % count];
        const double area = turn(a, b, c);
        if (area < 0)
            return false;
        turned += std::atan2(area, (b.u - a.u) * (c.u - b.u) + (b.v - a.v) * (c.v - b.v));
    }
    return turned < 3 * M_PI;
}

bool isEar(const std::vector<Point>& points, const std::vector<std::size_t>& ring, std::size_t tip)
{
    const std::size_t count = ring.size();
    const Point& a = points[ring[(tip + count - 1) % count]];
    const Point& b = points[ring[tip]];
    const Point& c = points[ring[(tip + 1) % count]];
    if (turn(a, b, c) <= 0)
        return false;
    const auto same = [](const Point& p, const Point& q) { return p.u == q.u && p.v == q.v; };
    return std::none_of(ring.begin(), ring.end(), [&](std::size_t corner) {
        const Point& p = points[corner];
        return !same(p, a) && !same(p, b) && !same(p, c) && turn(a, b, p) >= 0 && turn(b, c, p) >= 0
               && turn(c, a, p) >= 0;
    });
}

} // namespace

bool appendTriangles(const std::vector<int>& corners, const std::vector<double>& x, const std::vector<double>& y,
                     const std::vector<double>& z, std::vector<std::array<int, 3>>& triangles)
{
    const std::size_t before = triangles.size();
    const auto fan = [&] {
        triangles.resize(before);
        for (std::size_t corner = 2; corner < corners.size(); ++corner)
            triangles.push_back({corners[0], corners[corner - 1], corners[corner]});
        return true;
    };
    if (corners.size() < 4)
        return fan();
    const std::vector<Point> points = flattened(corners, x, y, z);
    if (isConvex(points))
        return fan();
    if (corners.size() > mostCorners)
        return false;
    std::vector<std::size_t> ring(corners.size());
    std::iota(ring.begin(), ring.end(), std::size_t(0));
    while (ring.size() > 3) {
        std::size_t tip = 0;
        while (tip < ring.size() && !isEar(points, ring, tip))
            ++tip;
        if (tip == ring.size()) {
            // Corners on a straight line have no area to cut off.
            const auto isStraight = [&](std::size_t index) {
                const std::size_t count = ring.size();
                return turn(points[ring[(index + count - 1) % count]], points[ring[index]],
                            points[ring[(index + 1) % count]])
                       == 0.0;
            };
            for (tip = 0; tip < ring.size() && !isStraight(tip);)
                ++tip;
            if (tip == ring.size())
                return fan();
        }
        const std::size_t count = ring.size();
        triangles.push_back(
            {corners[ring[(tip + count - 1) % count]], corners[ring[tip]], corners[ring[(tip + 1) % count]]});
        ring.erase(ring.begin() + static_cast<std::ptrdiff_t>(tip));
    }
    triangles.push_back({corners[ring[0]], corners[ring[1]], corners[ring[2]]});
    return true;
}

} // namespace kpFormats
