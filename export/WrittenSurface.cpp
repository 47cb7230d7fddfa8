// SPDX-License-Identifier: MIT
#include "export/WrittenSurface.h"

#include "export/CommonFindings.h"
#include "export/ExportError.h"

#include <cmath>

namespace kpFormats
{

WrittenSurface::WrittenSurface(const ModelObject& object, OutputUnit unit, bool zIsElevation, const MapOffset& offset)
    : m_object(object)
    , m_mesh(object)
    , m_by(object, unit, zIsElevation)
    , m_offset(offset)
{
    for (int vertex = 0; m_mesh.leftOutVertices() > 0 && vertex < object.vertexCount(); ++vertex) {
        if (m_mesh.number(vertex) >= 0)
            m_vertices.push_back(vertex);
    }
}

void WrittenSurface::noteLosses(Findings& findings) const
{
    findings.note(finding::vertexWithoutPosition, m_object, m_mesh.leftOutVertices(),
                  QStringLiteral("its height or place is missing"));
    findings.note(finding::triangleWithoutPosition, m_object, m_mesh.leftOutTriangles(),
                  QStringLiteral("a corner's height or place is missing"));
    if (!m_object.hasZ)
        findings.note(finding::objectWithoutHeights, m_object, 1, m_object.name);
}

void WrittenSurface::compare(const ModelObject& read, Verification& result) const
{
    std::size_t next = 0;
    for (int vertex = 0; vertex < m_object.vertexCount(); ++vertex) {
        const Place wanted = place(vertex);
        // One without a place is left out, which the report tells.
        if (!std::isfinite(wanted[0]) || !std::isfinite(wanted[1]) || !std::isfinite(wanted[2]))
            continue;
        if (next >= read.x->size())
            return result.fail(QStringLiteral("%1: vertex %2 is missing").arg(m_object.name).arg(vertex + 1));
        result.comparePosition(wanted, {(*read.x)[next], (*read.y)[next], (*read.z)[next]},
                               [&] { return QStringLiteral("%1, vertex %2").arg(m_object.name).arg(vertex + 1); });
        ++next;
    }
    result.compareCount(m_object.name, QStringLiteral("vertices"), static_cast<qint64>(next), read.vertexCount());
    if (!result.compareCount(m_object.name, QStringLiteral("triangles"), m_mesh.triangleCount(),
                             static_cast<qint64>(read.triangles.size())))
        return;
    next = 0;
    m_mesh.eachTriangle([&](int a, int b, int c) {
        if (read.triangles[next++] != std::array<int, 3>{a, b, c})
            result.fail(QStringLiteral("%1: triangle %2 has other corners").arg(m_object.name).arg(next));
        return result.good();
    });
    if (m_mesh.triangleCount() > 0)
        result.alsoCompared(QStringLiteral("triangles"));
}

void requireTriangles(const ModelObject& object, const QString& file)
{
    if (!hasAnyFace(object))
        throw ExportError(
            file, QStringLiteral("the surface %1 has no triangle: too few of its nodes have a height").arg(object.name),
            QStringLiteral("choose a surface with values, or export its points as ASCII"));
}

} // namespace kpFormats
