// SPDX-License-Identifier: MIT
#pragma once

#include "export/Findings.h"
#include "export/LengthFactors.h"
#include "export/MapOffset.h"
#include "export/Verification.h"
#include "model/SurfaceMesh.h"
#include "model/kpFormatsExport.h"

namespace kpFormats
{

/// A surface as the formats of meshes have it: vertices in the file's unit, from the file's origin, and triangles.
class KPFORMATS_EXPORT WrittenSurface
{
public:
    using Place = std::array<double, 3>;

    /// \a object outlives the surface.
    WrittenSurface(const ModelObject& object, OutputUnit unit, bool zIsElevation, const MapOffset& offset = {});

    const SurfaceMesh& mesh() const { return m_mesh; }
    qint64 steps() const { return m_object.vertexCount() + m_mesh.triangleCount(); }
    /// The position of a vertex of the object in the file.
    Place place(int vertex) const
    {
        const auto at = static_cast<std::size_t>(vertex);
        const Place& from = m_offset.place();
        return {(*m_object.x)[at] * m_by.flat - from[0], (*m_object.y)[at] * m_by.flat - from[1],
                (*m_object.z)[at] * m_by.height - from[2]};
    }
    /// Calls visit(vertex of the object, position) for each vertex of the mesh until it returns false.
    template <typename Visit>
    void eachVertex(Visit visit) const
    {
        for (int vertex = 0; vertex < m_object.vertexCount(); ++vertex) {
            if (m_mesh.number(vertex) >= 0 && !visit(vertex, place(vertex)))
                return;
        }
    }
    /// Calls visit(position) for the three corners of each triangle in turn until it returns false.
    template <typename Visit>
    void eachTriangle(Visit visit) const
    {
        m_mesh.eachTriangle([&](int a, int b, int c) {
            return visit(std::array<Place, 3>{place(vertexOf(a)), place(vertexOf(b)), place(vertexOf(c))});
        });
    }
    /// Notes vertices and triangles that are left out, and an object without heights.
    void noteLosses(Findings& findings) const;

    /// Compares vertices and triangles with those that were read: positions as they stand in the file.
    void compare(const ModelObject& read, Verification& result) const;

private:
    /// The vertex of the object by its number in the mesh.
    int vertexOf(int number) const
    {
        return m_vertices.empty() ? number : m_vertices[static_cast<std::size_t>(number)];
    }

    const ModelObject& m_object;
    SurfaceMesh m_mesh;
    LengthFactors m_by;
    MapOffset m_offset;
    std::vector<int> m_vertices; ///< empty when every vertex is used
};

/// \throws ExportError naming \a file when the surface has no triangle
KPFORMATS_EXPORT void requireTriangles(const ModelObject& object, const QString& file);

} // namespace kpFormats
