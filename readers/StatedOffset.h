// SPDX-License-Identifier: MIT
#pragma once

#include "model/kpFormatsExport.h"

#include <array>
#include <string_view>
#include <vector>

namespace kpFormats
{

/// An offset that a remark of a file asks to add to its coordinates: "offset to add: 540000 7490000 0".
class KPFORMATS_EXPORT StatedOffset
{
public:
    /// Looks for it in a remark.
    void take(std::string_view remark);
    void addTo(std::vector<double>& x, std::vector<double>& y, std::vector<double>& z) const;
    const std::array<double, 3>& place() const { return m_offset; }

private:
    std::array<double, 3> m_offset{0, 0, 0};
};

} // namespace kpFormats
