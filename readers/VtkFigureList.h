// SPDX-License-Identifier: MIT
#pragma once

#include "readers/VtkDataSet.h"

namespace kpFormats
{

/// A cell of a data set as what the model knows: a point, a line or a face.
struct VtkFigure
{
    enum class Kind { Point, Line, Face };

    Kind kind;
    std::vector<std::int64_t> points;
    std::size_t cell; ///< its number in the data set, for the arrays of cells
};

/// The figures of a data set's cells, in their order; \a volumes counts the cells that are none.
std::vector<VtkFigure> figuresOf(const VtkDataSet& dataSet, std::size_t& volumes);

} // namespace kpFormats
