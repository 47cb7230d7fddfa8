// SPDX-License-Identifier: MIT
#include "model/SurfaceFaces.h"

#include <algorithm>
#include <cmath>

namespace kpFormats
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

/// A loop within a larger piece of work: tells of it and asks for a cancel now and then.
class LoopShare
{
public:
    LoopShare(ProgressTicker& ticker, double weight, std::size_t count)
        : m_ticker(ticker)
        , m_weight(count > 0 ? weight / static_cast<double>(count) : 0.0)
    {
    }

    /// False once the user has cancelled.
    bool next()
    {
        constexpr int between = 2048;
        if (++m_items % between == 0) {
            m_ticker.step(m_weight * between);
            m_ticker.poll();
        }
        return !m_ticker.cancelled();
    }

private:
    ProgressTicker& m_ticker;
    double m_weight;
    std::size_t m_items = 0;
};

/// Something for each vertex, any number of them, in one block: filled by going twice over what is to be filed, which
/// is linear and can be left at any time, as a sort cannot.
template <typename Item>
class VertexLists
{
public:
    explicit VertexLists(int vertices)
        : m_starts(static_cast<std::size_t>(vertices) + 1, 0)
    {
    }

    void count(int vertex) { ++m_starts[static_cast<std::size_t>(vertex)]; }
    /// Between the last count() and the first add().
    void makeRoom()
    {
        std::size_t sum = 0;
        for (std::size_t& start : m_starts) {
            sum += start;
            start = sum;
        }
        m_items.resize(sum);
    }
    void add(int vertex, const Item& item) { m_items[--m_starts[static_cast<std::size_t>(vertex)]] = item; }
    Item* begin(int vertex) { return m_items.data() + m_starts[static_cast<std::size_t>(vertex)]; }
    Item* end(int vertex) { return m_items.data() + m_starts[static_cast<std::size_t>(vertex) + 1]; }

private:
    std::vector<std::size_t> m_starts;
    std::vector<Item> m_items;
};

/// An edge of a face is shared when the cell on its other side has a face: that one then has both nodes of the edge.
std::vector<Edge> gridBorder(const ModelObject& surface, ProgressTicker& ticker, double weight)
{
    const GridGeometry& grid = *surface.grid;
    std::vector<Edge> border;
    Face face;
    LoopShare share(ticker, weight, static_cast<std::size_t>(faceCount(surface)));
    for (qint64 number = 0; number < faceCount(surface) && share.next(); ++number) {
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

/// Calls visit(smaller vertex, larger vertex) for each edge of each triangle. False when the user cancels.
template <typename Visit>
bool eachEdge(const ModelObject& surface, ProgressTicker& ticker, double weight, Visit visit)
{
    LoopShare share(ticker, weight, surface.triangles.size());
    for (const std::array<int, 3>& triangle : surface.triangles) {
        for (std::size_t corner = 0; corner < 3; ++corner)
            visit(std::min(triangle[corner], triangle[(corner + 1) % 3]),
                  std::max(triangle[corner], triangle[(corner + 1) % 3]));
        if (!share.next())
            return false;
    }
    return true;
}

std::vector<Edge> meshBorder(const ModelObject& surface, ProgressTicker& ticker, double weight)
{
    VertexLists<int> others(surface.vertexCount());
    if (!eachEdge(surface, ticker, weight / 3, [&others](int a, int) { others.count(a); }))
        return {};
    others.makeRoom();
    if (!eachEdge(surface, ticker, weight / 3, [&others](int a, int b) { others.add(a, b); }))
        return {};
    std::vector<Edge> border;
    LoopShare share(ticker, weight / 3, static_cast<std::size_t>(surface.vertexCount()));
    for (int vertex = 0; vertex < surface.vertexCount() && share.next(); ++vertex) {
        int* const end = others.end(vertex);
        std::sort(others.begin(vertex), end);
        for (int* other = others.begin(vertex); other != end;) {
            int* const next = std::find_if(other, end, [other](int one) { return one != *other; });
            if (next == other + 1)
                border.emplace_back(vertex, *other);
            other = next;
        }
    }
    return border;
}

/// One end of an edge, filed under the other.
struct End
{
    int vertex;
    std::size_t edge;
};

/// Takes edges out of a border, one that begins where the last ended.
class EdgeChain
{
public:
    EdgeChain(const ModelObject& surface, const std::vector<Edge>& border, ProgressTicker& ticker, double weight)
        : m_ends(surface.vertexCount())
        , m_used(border.size(), false)
    {
        LoopShare share(ticker, weight, border.size() * 2);
        for (std::size_t edge = 0; edge < border.size() && share.next(); ++edge) {
            m_ends.count(border[edge].first);
            m_ends.count(border[edge].second);
        }
        m_ends.makeRoom();
        for (std::size_t edge = 0; edge < border.size() && share.next(); ++edge) {
            m_ends.add(border[edge].first, {border[edge].second, edge});
            m_ends.add(border[edge].second, {border[edge].first, edge});
        }
    }

    bool isUsed(std::size_t edge) const { return m_used[edge]; }
    /// The vertex to which an edge leads from \a vertex: the smallest there is; -1 when there is none left.
    int takeFrom(int vertex)
    {
        const End* best = nullptr;
        for (const End* end = m_ends.begin(vertex); end != m_ends.end(vertex); ++end) {
            if (!m_used[end->edge] && (!best || end->vertex < best->vertex))
                best = end;
        }
        if (!best)
            return -1;
        m_used[best->edge] = true;
        return best->vertex;
    }

private:
    VertexLists<End> m_ends;
    std::vector<bool> m_used;
};

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
        return hasPosition(surface, triangle[0]) && hasPosition(surface, triangle[1])
               && hasPosition(surface, triangle[2]);
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

std::vector<std::vector<int>> boundaryLines(const ModelObject& surface, ProgressTicker& ticker, double weight)
{
    const std::vector<Edge> border =
        surface.grid ? gridBorder(surface, ticker, weight / 2) : meshBorder(surface, ticker, weight / 2);
    if (ticker.cancelled())
        return {};
    EdgeChain chain(surface, border, ticker, weight / 4);
    LoopShare share(ticker, weight / 4, border.size());
    std::vector<std::vector<int>> lines;
    for (std::size_t edge = 0; edge < border.size() && !ticker.cancelled(); ++edge) {
        if (chain.isUsed(edge))
            continue;
        std::vector<int> line{border[edge].first};
        for (int next = chain.takeFrom(line.front()); next >= 0 && share.next(); next = chain.takeFrom(next)) {
            line.push_back(next);
            if (next == line.front())
                break;
        }
        lines.push_back(std::move(line));
    }
    return ticker.cancelled() ? std::vector<std::vector<int>>() : lines;
}

} // namespace kpFormats
