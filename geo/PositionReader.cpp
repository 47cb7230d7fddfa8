// SPDX-License-Identifier: MIT
#include "geo/PositionReader.h"

#include "geo/CoordinateTransform.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace kpFormats
{

namespace
{

constexpr std::size_t blockSize = 2048;

} // namespace

PositionReader::PositionReader(const PositionSource& source, const PositionRules& rules)
    : m_source(source)
    , m_rules(rules)
{
    if (m_rules.transform && m_rules.transform->isIdentity())
        m_rules.transform = nullptr;
}

void PositionReader::convert(PositionBlock& block) const
{
    constexpr double nowhere = std::numeric_limits<double>::quiet_NaN();
    const std::size_t count = block.size();
    for (std::size_t index = 0; index < count; ++index) {
        if (std::isfinite(block.z[index]))
            continue;
        if (m_rules.needsHeight)
            block.x[index] = nowhere;
        block.z[index] = 0.0;
    }
    if (m_rules.transform)
        m_rules.transform->transform(block.x, block.y, block.z);
    for (std::size_t index = 0; index < count; ++index) {
        double& x = block.x[index];
        double& y = block.y[index];
        x *= m_rules.factor;
        y *= m_rules.factor;
        block.z[index] *= m_rules.heightFactor;
        const bool offGlobe = m_rules.geographic && (std::abs(x) > 180.0 || std::abs(y) > 90.0);
        const bool outside = offGlobe || std::max({std::abs(x), std::abs(y), std::abs(block.z[index])}) > m_rules.most;
        if (!std::isfinite(x) || !std::isfinite(y) || outside)
            x = y = nowhere;
    }
}

bool PositionReader::read(int& next, int end, PositionBlock& block, std::size_t least)
{
    block.resize(0);
    while (next < end && block.size() < std::max<std::size_t>(least, 1)) {
        const auto count = std::min(blockSize, static_cast<std::size_t>(end - next));
        m_scratch.x.assign(m_source.x + next, m_source.x + next + count);
        m_scratch.y.assign(m_source.y + next, m_source.y + next + count);
        if (m_source.z)
            m_scratch.z.assign(m_source.z + next, m_source.z + next + count);
        else
            m_scratch.z.assign(count, 0.0);
        convert(m_scratch);
        for (std::size_t index = 0; index < count; ++index) {
            if (std::isnan(m_scratch.x[index])) {
                if (m_leftOut++ == 0)
                    m_firstLeftOut = next + static_cast<int>(index) + 1;
                continue;
            }
            block.x.push_back(m_scratch.x[index]);
            block.y.push_back(m_scratch.y[index]);
            block.z.push_back(m_scratch.z[index]);
        }
        next += static_cast<int>(count);
    }
    return block.size() > 0;
}

void PositionReader::gather(const int* vertices, std::size_t count, PositionBlock& block) const
{
    block.resize(count);
    for (std::size_t index = 0; index < count; ++index) {
        const int vertex = vertices[index];
        block.x[index] = m_source.x[vertex];
        block.y[index] = m_source.y[vertex];
        block.z[index] = m_source.z ? m_source.z[vertex] : 0.0;
    }
    convert(block);
}

int openEnd(const ModelObject& object, const Part& part)
{
    const int end = part.first + part.count;
    if (!part.closed || part.count < 2)
        return end;
    const auto first = static_cast<std::size_t>(part.first);
    const auto last = static_cast<std::size_t>(end - 1);
    const bool repeated = (*object.x)[first] == (*object.x)[last] && (*object.y)[first] == (*object.y)[last]
                          && (!object.hasZ || (*object.z)[first] == (*object.z)[last]);
    return repeated ? end - 1 : end;
}

} // namespace kpFormats
