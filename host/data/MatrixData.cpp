// SPDX-License-Identifier: MIT
#include "host/data/MatrixData.h"

namespace kpBase
{

MatrixData::MatrixData(int type)
    : valueType(type)
{
}

MatrixData::~MatrixData() = default;

DoubleColumn MatrixData::doubleColumn(int) const
{
    return {};
}

} // namespace kpBase
