// SPDX-License-Identifier: MIT
#include "writers/FixedNumber.h"

#include "writers/DecimalDigits.h"

#include <QByteArray>

#include <iterator>

namespace kpBaseExport
{

namespace
{

inline char* write(char* out, double value, int precision)
{
    std::uint64_t bits = 0;
    std::memcpy(&bits, &value, sizeof bits);
    // Without a branch: signs come in no order. -0 has none.
    *out = '-';
    out += (bits >> 63) & static_cast<std::uint64_t>((bits << 1) != 0);
    return DecimalDigits::writeMagnitude<DecimalDigits::Tie::AwayFromZero>(out, bits, precision);
}

/// With the precision known when it is compiled.
template <int precision>
char* writeKnown(char* out, double value, int)
{
    return write(out, value, precision);
}

} // namespace

char* writeFixed(char* out, double value, int precision)
{
    return write(out, value, precision);
}

FixedWriter fixedWriter(int precision)
{
    constexpr FixedWriter known[] = {writeKnown<0>, writeKnown<1>, writeKnown<2>, writeKnown<3>};
    return precision >= 0 && precision < static_cast<int>(std::size(known)) ? known[precision] : writeFixed;
}

void appendFixed(std::string& text, double value, int precision)
{
    char buffer[longestFastNumber];
    if (const char* const end = writeFixed(buffer, value, precision)) {
        text.append(buffer, static_cast<std::size_t>(end - buffer));
        return;
    }
    const QByteArray slow = QByteArray::number(value, 'f', precision);
    text.append(slow.constData(), static_cast<std::size_t>(slow.size()));
}

} // namespace kpBaseExport
