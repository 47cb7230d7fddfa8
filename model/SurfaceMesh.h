// SPDX-License-Identifier: MIT
#pragma once

#include "model/SurfaceFaces.h"
#include "model/kpFormatsExport.h"

namespace kpFormats
{

/// A mesh or grid surface as vertices and triangles, for formats that know nothing else. Vertices without a position
/// are left out, with the triangles that need them. A grid's cell becomes two triangles, one where one of its four
/// nodes has no value, none where more have none.
class KPFORMATS_EXPORT SurfaceMesh
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
        const qint64 cells = faceCount(m_object);
        Face face;
        for (qint64 cell = 0; cell < cells; ++cell) {
            if (!faceAt(m_object, cell, face))
                continue;
            const int a = number(face[0]);
            const int c = number(face[2]);
            if (!visit(a, number(face[1]), c) || (face[3] != face[2] && !visit(a, c, number(face[3]))))
                return;
        }
    }

    const ModelObject& m_object;
    std::vector<int> m_numbers; ///< empty when every vertex is used
    int m_vertexCount = 0;
    qint64 m_triangleCount = 0;
    qint64 m_leftOutTriangles = 0;
};

} // namespace kpFormats
