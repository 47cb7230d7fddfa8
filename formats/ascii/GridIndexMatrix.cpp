// SPDX-License-Identifier: MIT
#include "formats/ascii/GridIndexMatrix.h"

#include <algorithm>
#include <utility>

namespace kpFormats
{

GridIndexMatrix::GridIndexMatrix(QString name, Index index, int columns, int nodes)
    : MatrixData(Int)
    , m_name(std::move(name))
    , m_index(index)
    , m_columns(std::max(columns, 1))
    , m_nodes(nodes)
{
}

QVariant GridIndexMatrix::value(int row, int column) const
{
    if (row < 0 || row >= m_nodes || column != 0)
        return {};
    return (m_index == Column ? row % m_columns : row / m_columns) + 1;
}

} // namespace kpFormats
