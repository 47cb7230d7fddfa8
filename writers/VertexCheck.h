// SPDX-License-Identifier: MIT
#pragma once

namespace kpBaseExport
{

class GeoObject;

/// Makes sure that a record has vertices to write.
/// \throws std::logic_error "No Vertex Data to be exported" when its vertex list is empty,
/// "Vertex data cannot be exported, wrong number of rows" when its matrices differ in length.
void requireVertexData(const GeoObject& record);

} // namespace kpBaseExport
