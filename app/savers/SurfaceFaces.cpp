// SPDX-License-Identifier: MIT
#include "app/savers/SurfaceFaces.h"

#include <algorithm>
#include <cmath>

namespace refhost
{

namespace
{

using Edge = std::pair<int, int>; ///< smaller vertex first

int cornersOf(const Face& face)
{
    return face[2] == face[3] ? 3 : 4;
}

/// Whether the grid cell has a face; cells beyond the border have none.
bool isFace(const ModelObject& surface, int column, int row)
{
    const GridGeometry& grid = *surface.grid;
    if (column < 0 || row < 0 || column >= grid.columns - 1 || row >= grid.rows - 1)
        return false;
    Face ignored;
    return faceAt(surface, static_cast<qint64>(row) * (grid.columns - 1) + column, ignored);
}

/// An edge of a face is shared when the cell on its other side has a face: that one then has both nodes of the edge.
std::vector<Edge> gridBorder(const ModelObject& surface, ProgressTicker& ticker)
{
    constexpr qint64 facesBetween = 16384;
    const GridGeometry& grid = *surface.grid;
    std::vector<Edge> border;
    Face face;
    for (qint64 number = 0; number < faceCount(surface); ++number) {
        if (number % facesBetween == 0 && ticker.poll())
            return {};
        if (!faceAt(surface, number, face))
            continue;
        const int column = static_cast<int>(number % (grid.columns - 1));
        const int row = static_cast<int>(number / (grid.columns - 1));
        const int corners = cornersOf(face);
        for (int corner = 0; corner < corners; ++corner) {
            const int a = face[static_cast<std::size_t>(corner)];
            const int b = face[static_cast<std::size_t>((corner + 1) % corners)];
            const int rowA = a / grid.columns;
            const int rowB = b / grid.columns;
            const int columnA = a % grid.columns;
            const int columnB = b % grid.columns;
            bool shared = false; // a diagonal is not
            if (rowA == rowB)
                shared = isFace(surface, column, rowA == row ? row - 1 : row + 1);
            else if (columnA == columnB)
                shared = isFace(surface, columnA == column ? column - 1 : column + 1, row);
            if (!shared)
                border.emplace_back(std::min(a, b), std::max(a, b));
        }
    }
    return border;
}

std::vector<Edge> meshBorder(const ModelObject& surface)
{
    std::vector<Edge> edges;
    edges.reserve(surface.triangles.size() * 3);
    for (const std::array<int, 3>& triangle : surface.triangles) {
        for (std::size_t corner = 0; corner < 3; ++corner) {
            const int a = triangle[corner];
            const int b = triangle[(corner + 1) % 3];
            edges.emplace_back(std::min(a, b), std::max(a, b));
        }
    }
    std::sort(edges.begin(), edges.end());
    std::vector<Edge> border;
    for (std::size_t index = 0; index < edges.size();) {
        std::size_t next = index + 1;
        while (next < edges.size() && edges[next] == edges[index])
            ++next;
        if (next == index + 1)
            border.push_back(edges[index]);
        index = next;
    }
    return border;
}

} // namespace

bool hasPosition(const ModelObject& object, int vertex)
{
    const auto index = static_cast<std::size_t>(vertex);
    return std::isfinite((*object.x)[index]) && std::isfinite((*object.y)[index]) && std::isfinite((*object.z)[index]);
}

bool hasAnyPosition(const ModelObject& object)
{
    for (int vertex = 0; vertex < object.vertexCount(); ++vertex) {
        if (hasPosition(object, vertex))
            return true;
    }
    return false;
}

qint64 faceCount(const ModelObject& surface)
{
    if (!surface.grid)
        return static_cast<qint64>(surface.triangles.size());
    if (surface.grid->columns < 2 || surface.grid->rows < 2)
        return 0;
    return static_cast<qint64>(surface.grid->columns - 1) * (surface.grid->rows - 1);
}

bool faceAt(const ModelObject& surface, qint64 number, Face& face)
{
    if (!surface.grid) {
        const std::array<int, 3>& triangle = surface.triangles[static_cast<std::size_t>(number)];
        face = {triangle[0], triangle[1], triangle[2], triangle[2]};
        return hasPosition(surface, triangle[0]) && hasPosition(surface, triangle[1]) && hasPosition(surface, triangle[2]);
    }
    const int columns = surface.grid->columns;
    const int corner = static_cast<int>(number / (columns - 1)) * columns + static_cast<int>(number % (columns - 1));
    const std::array<int, 4> nodes{corner, corner + 1, corner + 1 + columns, corner + columns};
    std::size_t found = 0;
    for (const int node : nodes) {
        if (hasPosition(surface, node))
            face[found++] = node;
    }
    if (found == 3)
        face[3] = face[2];
    return found >= 3;
}

bool hasAnyFace(const ModelObject& surface)
{
    Face face;
    const qint64 count = faceCount(surface);
    for (qint64 number = 0; number < count; ++number) {
        if (faceAt(surface, number, face))
            return true;
    }
    return false;
}

std::vector<std::vector<int>> boundaryLines(const ModelObject& surface, ProgressTicker& ticker)
{
    const std::vector<Edge> border = surface.grid ? gridBorder(surface, ticker) : meshBorder(surface);
    // Each edge twice, by either end, sorted: the edges of a vertex lie together.
    struct End
    {
        int vertex;
        int other;
        std::size_t edge;
    };
    std::vector<End> ends;
    ends.reserve(border.size() * 2);
    for (std::size_t edge = 0; edge < border.size(); ++edge) {
        ends.push_back({border[edge].first, border[edge].second, edge});
        ends.push_back({border[edge].second, border[edge].first, edge});
    }
    std::sort(ends.begin(), ends.end(), [](const End& a, const End& b) {
        return a.vertex != b.vertex ? a.vertex < b.vertex : a.other < b.other;
    });
    std::vector<bool> used(border.size(), false);
    const auto takeFrom = [&](int vertex) {
        auto end = std::lower_bound(ends.begin(), ends.end(), vertex, [](const End& a, int b) { return a.vertex < b; });
        while (end != ends.end() && end->vertex == vertex && used[end->edge])
            ++end;
        if (end == ends.end() || end->vertex != vertex)
            return -1;
        used[end->edge] = true;
        return end->other;
    };
    std::vector<std::vector<int>> lines;
    for (std::size_t edge = 0; edge < border.size(); ++edge) {
        if (used[edge])
            continue;
        std::vector<int> line{border[edge].first};
        for (int next = takeFrom(line.front()); next >= 0; next = takeFrom(next)) {
            line.push_back(next);
            if (next == line.front())
                break;
        }
        lines.push_back(std::move(line));
    }
    return lines;
}

} // namespace refhost
