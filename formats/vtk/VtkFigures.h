// SPDX-License-Identifier: MIT
#pragma once

#include "model/SurfaceFaces.h"

#include <vector>

namespace kpFormats
{

/// What a line of a file is: the values of its array "ring".
enum class VtkRing { Line = 0, Ring = 1, Hole = 2 };

/// An object as points, lines and faces. Vertices without a position are left out: they interrupt lines, and a face that
/// needs one is not there. Points count within the object, from 0.
class VtkFigures
{
public:
    /// \a object outlives the figures.
    explicit VtkFigures(const ModelObject& object);

    const ModelObject& object() const { return *m_object; }
    qint64 pointCount() const { return m_points; }
    qint64 leftOutPoints() const { return m_object->vertexCount() - m_points; }
    qint64 leftOutFaces() const { return m_leftOutFaces; }
    qint64 vertCount() const { return m_verts; }
    qint64 lineCount() const { return m_lines; }
    qint64 lineCorners() const { return m_lineCorners; }
    qint64 faceCount() const { return m_faces; }
    qint64 faceCorners() const { return m_faceCorners; }

    /// Calls visit(vertex) for the vertex of each point until it returns false.
    template <typename Visit>
    void eachPoint(Visit visit) const
    {
        for (int vertex = 0; vertex < m_object->vertexCount(); ++vertex) {
            if (number(vertex) >= 0 && !visit(vertex))
                return;
        }
    }
    /// Calls visit(point) for each point that stands for itself.
    template <typename Visit>
    void eachVert(Visit visit) const
    {
        if (isPoints()) {
            for (qint64 point = 0; point < m_points; ++point) {
                if (!visit(point))
                    return;
            }
        }
        eachRun([&](const Run& run) { return run.count > 1 || visit(run.first); });
    }
    /// Calls visit(first point, how many follow each other, whether it leads back to the first, what it is).
    template <typename Visit>
    void eachLine(Visit visit) const
    {
        eachRun([&](const Run& run) { return run.count < 2 || visit(run.first, run.count, run.leadsBack, run.ring); });
    }
    /// Calls visit(corners, how many) with the points of each face.
    template <typename Visit>
    void eachFace(Visit visit) const
    {
        if (!m_object->grid && m_object->triangles.empty())
            return;
        Face face;
        const qint64 count = kpFormats::faceCount(*m_object);
        for (qint64 index = 0; index < count; ++index) {
            if (!faceAt(*m_object, index, face))
                continue;
            const int corners = face[2] == face[3] ? 3 : 4;
            for (int& corner : face)
                corner = static_cast<int>(number(corner));
            if (!visit(face, corners))
                return;
        }
    }

private:
    /// Points that follow each other on a part.
    struct Run
    {
        qint64 first;
        qint64 count;
        bool leadsBack; ///< a ring whose last vertex is not its first again
        VtkRing ring;
    };

    qint64 number(int vertex) const { return m_numbers.empty() ? vertex : m_numbers[static_cast<std::size_t>(vertex)]; }
    bool isPoints() const { return m_object->parts.empty() && m_object->triangles.empty() && !m_object->grid; }
    bool leadsBack(const Part& part) const;

    template <typename Visit>
    void eachRun(Visit visit) const
    {
        if (m_object->grid || !m_object->triangles.empty())
            return;
        for (const Part& part : m_object->parts) {
            Run run{0, 0, false, part.hole ? VtkRing::Hole : part.closed ? VtkRing::Ring : VtkRing::Line};
            const int end = part.first + part.count;
            for (int vertex = part.first; vertex < end; ++vertex) {
                const qint64 point = number(vertex);
                if (point >= 0 && run.count++ == 0)
                    run.first = point;
                if (run.count == 0 || (point >= 0 && vertex + 1 < end))
                    continue;
                run.leadsBack = run.count == part.count && leadsBack(part);
                if (!visit(run))
                    return;
                run.count = 0;
            }
        }
    }

    const ModelObject* m_object;
    std::vector<int> m_numbers; ///< of vertices as points, -1 where left out; empty when all are there
    qint64 m_points = 0;
    qint64 m_leftOutFaces = 0;
    qint64 m_verts = 0;
    qint64 m_lines = 0;
    qint64 m_lineCorners = 0;
    qint64 m_faces = 0;
    qint64 m_faceCorners = 0;
};

} // namespace kpFormats
