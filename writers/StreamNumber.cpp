// SPDX-License-Identifier: MIT
#include "writers/StreamNumber.h"

#include "writers/DecimalDigits.h"

#include <charconv>
#include <cmath>

namespace kpBaseExport
{

void appendStreamFixed(std::string& text, double value, int precision)
{
    if (precision < 0)
        precision = 6;
    std::uint64_t number = 0;
    if (DecimalDigits::scaledMagnitude<DecimalDigits::Tie::ToEven>(value, precision, number)) {
        DecimalDigits::appendScaled(text, std::signbit(value), number, precision);
        return;
    }
    // The largest double has 309 digits before the point.
    constexpr std::size_t longestWhole = 312;
    const std::size_t size = text.size();
    text.resize(size + longestWhole + static_cast<std::size_t>(precision));
    char* first = text.data() + size;
    const auto result =
        std::to_chars(first, text.data() + text.size(), value, std::chars_format::fixed, precision);
    text.resize(static_cast<std::size_t>(result.ptr - text.data()));
}

} // namespace kpBaseExport
