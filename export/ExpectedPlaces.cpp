// SPDX-License-Identifier: MIT
#include "export/ExpectedPlaces.h"

#include "geo/CoordinateTransform.h"

#include <algorithm>
#include <cmath>

namespace kpFormats
{

ExpectedPlaces::ExpectedPlaces(const PositionSource& source, std::size_t count, const PositionRules& rules,
                               std::size_t atOnce)
    : m_places(count)
{
    const double nowhere = std::nan("");
    std::vector<double> x;
    std::vector<double> y;
    std::vector<double> z;
    for (std::size_t first = 0; first < count; first += atOnce) {
        const std::size_t end = std::min(first + atOnce, count);
        x.assign(source.x + first, source.x + end);
        y.assign(source.y + first, source.y + end);
        z.assign(end - first, 0.0);
        for (std::size_t index = 0; source.z && index < z.size(); ++index)
            z[index] = std::isfinite(source.z[first + index]) ? source.z[first + index] : 0.0;
        if (rules.transform)
            rules.transform->transform(x, y, z);
        for (std::size_t index = 0; index < x.size(); ++index) {
            const bool high = !source.z || std::isfinite(source.z[first + index]);
            const bool beyond = rules.geographic && (std::abs(x[index]) > 180.0 || std::abs(y[index]) > 90.0);
            const bool large = std::abs(x[index] * rules.factor) > rules.most
                               || std::abs(y[index] * rules.factor) > rules.most
                               || std::abs(z[index] * rules.heightFactor) > rules.most;
            const bool there =
                std::isfinite(x[index]) && std::isfinite(y[index]) && !beyond && !large && (high || !rules.needsHeight);
            m_places[first + index] = {there ? x[index] * rules.factor : nowhere,
                                       there ? y[index] * rules.factor : nowhere,
                                       high ? z[index] * rules.heightFactor : nowhere};
        }
    }
}

} // namespace kpFormats
