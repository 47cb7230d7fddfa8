// SPDX-License-Identifier: MIT
#include "model/GridSampler.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace kpFormats
{

namespace
{

// A node is met although the way to it was rounded.
constexpr double slack = 1e-9;

/// The cell of a position in units of cells, and the share of its second node; false outside.
bool locate(double position, int nodes, int& cell, double& share)
{
    if (!(position >= -slack && position <= nodes - 1 + slack))
        return false;
    cell = std::clamp(static_cast<int>(position), 0, std::max(nodes - 2, 0));
    share = std::clamp(position - cell, 0.0, 1.0);
    if (share < slack)
        share = 0.0;
    else if (share > 1.0 - slack)
        share = 1.0;
    return true;
}

} // namespace

GridSampler::GridSampler(const ModelObject& surface)
    : m_surface(surface)
    , m_grid(*surface.grid)
    , m_cosine(std::cos(m_grid.rotation * M_PI / 180.0))
    , m_sine(std::sin(m_grid.rotation * M_PI / 180.0))
{
}

double GridSampler::node(int column, int row) const
{
    return (*m_surface.z)[static_cast<std::size_t>(row) * static_cast<std::size_t>(m_grid.columns)
                          + static_cast<std::size_t>(column)];
}

double GridSampler::operator()(double x, double y) const
{
    const double dx = x - m_grid.originX;
    const double dy = y - m_grid.originY;
    int column = 0;
    int row = 0;
    double right = 0;
    double up = 0;
    if (!locate((dx * m_cosine + dy * m_sine) / m_grid.stepX, m_grid.columns, column, right)
        || !locate((dy * m_cosine - dx * m_sine) / m_grid.stepY, m_grid.rows, row, up))
        return std::numeric_limits<double>::quiet_NaN();
    // A node without weight does not spoil the value.
    const auto weighted = [this](double weight, int c, int r) { return weight == 0.0 ? 0.0 : weight * node(c, r); };
    return weighted((1 - right) * (1 - up), column, row) + weighted(right * (1 - up), column + 1, row)
           + weighted((1 - right) * up, column, row + 1) + weighted(right * up, column + 1, row + 1);
}

double GridSampler::step() const
{
    return std::min(std::abs(m_grid.stepX), std::abs(m_grid.stepY));
}

} // namespace kpFormats
