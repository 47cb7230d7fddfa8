// SPDX-License-Identifier: MIT
#include "model/SurfaceMesh.h"

namespace kpFormats
{

SurfaceMesh::SurfaceMesh(const ModelObject& object)
    : m_object(object)
{
    const int count = object.vertexCount();
    std::vector<int> numbers(static_cast<std::size_t>(count));
    for (int vertex = 0; vertex < count; ++vertex)
        numbers[static_cast<std::size_t>(vertex)] = hasPosition(object, vertex) ? m_vertexCount++ : -1;
    if (m_vertexCount < count)
        m_numbers = std::move(numbers);
    eachTriangle([this](int, int, int) {
        ++m_triangleCount;
        return true;
    });
    if (!object.grid)
        m_leftOutTriangles = static_cast<qint64>(object.triangles.size()) - m_triangleCount;
}

} // namespace kpFormats
