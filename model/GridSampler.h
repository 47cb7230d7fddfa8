// SPDX-License-Identifier: MIT
#pragma once

#include "model/ModelObject.h"
#include "model/kpFormatsExport.h"

namespace kpFormats
{

/// Values of a grid surface between its nodes: bilinear within a cell, NaN outside and where a node that counts has no
/// value. The object outlives the sampler.
class KPFORMATS_EXPORT GridSampler
{
public:
    /// \a surface has a grid geometry.
    explicit GridSampler(const ModelObject& surface);

    double operator()(double x, double y) const;
    /// The shorter side of a cell.
    double step() const;

private:
    double node(int column, int row) const;

    const ModelObject& m_surface;
    GridGeometry m_grid;
    double m_cosine;
    double m_sine;
};

} // namespace kpFormats
