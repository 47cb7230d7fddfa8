// SPDX-License-Identifier: MIT
#include "readers/StatedOffset.h"

#include <charconv>
#include <cmath>

namespace kpFormats
{

void StatedOffset::take(std::string_view remark)
{
    constexpr std::string_view words = "offset to add:";
    const std::size_t found = remark.find(words);
    if (found == std::string_view::npos)
        return;
    const char* at = remark.data() + found + words.size();
    const char* const end = remark.data() + remark.size();
    std::array<double, 3> offset{};
    for (double& number : offset) {
        while (at != end && *at == ' ')
            ++at;
        const auto read = std::from_chars(at, end, number);
        if (read.ec != std::errc() || !std::isfinite(number))
            return;
        at = read.ptr;
    }
    m_offset = offset;
}

void StatedOffset::addTo(std::vector<double>& x, std::vector<double>& y, std::vector<double>& z) const
{
    std::size_t axis = 0;
    for (std::vector<double>* numbers : {&x, &y, &z}) {
        const double by = m_offset[axis++];
        if (by == 0.0)
            continue;
        for (double& number : *numbers)
            number += by;
    }
}

} // namespace kpFormats
