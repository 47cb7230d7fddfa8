// SPDX-License-Identifier: MIT
#include "writers/StreamNumber.h"

#include "writers/DecimalDigits.h"
#include "writers/FixedNumber.h"

#include <charconv>

namespace kpBaseExport
{

void appendStreamFixed(std::string& text, double value, int precision)
{
    if (precision < 0)
        precision = 6;
    std::uint64_t bits = 0;
    std::memcpy(&bits, &value, sizeof bits);
    char buffer[longestFastNumber];
    buffer[0] = '-';
    char* const digits = buffer + (bits >> 63);
    if (const char* const end = DecimalDigits::writeMagnitude<DecimalDigits::Tie::ToEven>(digits, bits, precision)) {
        text.append(buffer, static_cast<std::size_t>(end - buffer));
        return;
    }
    // The largest double has 309 digits before the point.
    constexpr std::size_t longestWhole = 312;
    const std::size_t size = text.size();
    text.resize(size + longestWhole + static_cast<std::size_t>(precision));
    char* first = text.data() + size;
    const auto result = std::to_chars(first, text.data() + text.size(), value, std::chars_format::fixed, precision);
    text.resize(static_cast<std::size_t>(result.ptr - text.data()));
}

} // namespace kpBaseExport
