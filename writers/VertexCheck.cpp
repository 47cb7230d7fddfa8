// SPDX-License-Identifier: MIT
#include "writers/VertexCheck.h"

#include "core/GeoObject.h"

#include <stdexcept>

namespace kpBaseExport
{

void requireVertexData(const GeoObject& record)
{
    if (record.vertexData().empty())
        throw std::logic_error("No Vertex Data to be exported");
    if (!record.checkVectorSizes())
        throw std::logic_error("Vertex data cannot be exported, wrong number of rows");
}

} // namespace kpBaseExport
