// SPDX-License-Identifier: MIT
#pragma once

#include "app/model/ModelObject.h"

#include <vector>

namespace refhost
{

/// A mesh or grid surface as vertices and triangles, for formats that know nothing else. Vertices without a position
/// are left out, with the triangles that need them. A grid's cell becomes two triangles, one where one of its four
/// nodes has no value, none where more have none.
class SurfaceMesh
{
public:
    /// \a object outlives the mesh.
    explicit SurfaceMesh(const ModelObject& object);

    /// Number of a vertex of the object in the mesh, from 0, or -1 when it is left out.
    int number(int vertex) const { return m_numbers.empty() ? vertex : m_numbers[static_cast<std::size_t>(vertex)]; }
    int vertexCount() const { return m_vertexCount; }
    int leftOutVertices() const { return m_object.vertexCount() - m_vertexCount; }
    qint64 triangleCount() const { return m_triangleCount; }
    /// Triangles of a mesh surface that needed a vertex that is left out.
    qint64 leftOutTriangles() const { return m_leftOutTriangles; }

    /// Calls visit(a, b, c) with the numbers of each triangle's vertices until it returns false.
    template <typename Visit>
    void eachTriangle(Visit visit) const
    {
        if (m_object.grid)
            eachGridTriangle(visit);
        else
            eachMeshTriangle(visit);
    }

private:
    template <typename Visit>
    void eachMeshTriangle(Visit& visit) const
    {
        for (const auto& corners : m_object.triangles) {
            const int a = number(corners[0]);
            const int b = number(corners[1]);
            const int c = number(corners[2]);
            if (a >= 0 && b >= 0 && c >= 0 && !visit(a, b, c))
                return;
        }
    }
    template <typename Visit>
    void eachGridTriangle(Visit& visit) const
    {
        const int columns = m_object.grid->columns;
        for (int row = 0; row + 1 < m_object.grid->rows; ++row) {
            for (int column = 0; column + 1 < columns; ++column) {
                const int node = row * columns + column;
                // Counter-clockwise.
                const int ring[4] = {number(node), number(node + 1), number(node + columns + 1), number(node + columns)};
                if (!visitCell(ring, visit))
                    return;
            }
        }
    }
    template <typename Visit>
    static bool visitCell(const int (&ring)[4], Visit& visit)
    {
        int known[4];
        int count = 0;
        for (const int corner : ring) {
            if (corner >= 0)
                known[count++] = corner;
        }
        if (count < 3)
            return true;
        return visit(known[0], known[1], known[2]) && (count < 4 || visit(known[0], known[2], known[3]));
    }

    const ModelObject& m_object;
    std::vector<int> m_numbers; ///< empty when every vertex is used
    int m_vertexCount = 0;
    qint64 m_triangleCount = 0;
    qint64 m_leftOutTriangles = 0;
};

/// True when all three coordinates of the vertex are finite.
bool hasPosition(const ModelObject& object, int vertex);
bool hasAnyPosition(const ModelObject& object);

} // namespace refhost
