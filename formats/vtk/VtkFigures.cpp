// SPDX-License-Identifier: MIT
#include "formats/vtk/VtkFigures.h"

#include "geo/PositionReader.h"

namespace kpFormats
{

VtkFigures::VtkFigures(const ModelObject& object)
    : m_object(&object)
{
    const int count = object.vertexCount();
    std::vector<int> numbers(static_cast<std::size_t>(count));
    for (int vertex = 0; vertex < count; ++vertex)
        numbers[static_cast<std::size_t>(vertex)] = hasPosition(object, vertex) ? static_cast<int>(m_points++) : -1;
    if (m_points < count)
        m_numbers = std::move(numbers);
    eachVert([this](qint64) { return ++m_verts > 0; });
    eachLine([this](qint64, qint64 points, bool leadsBack, VtkRing) {
        m_lineCorners += points + (leadsBack ? 1 : 0);
        return ++m_lines > 0;
    });
    eachFace([this](const Face&, int corners) {
        m_faceCorners += corners;
        return ++m_faces > 0;
    });
    if (!object.grid)
        m_leftOutFaces = static_cast<qint64>(object.triangles.size()) - m_faces;
}

bool VtkFigures::leadsBack(const Part& part) const
{
    return part.closed && part.count > 2 && openEnd(*m_object, part) == part.first + part.count;
}

} // namespace kpFormats
