// SPDX-License-Identifier: MIT
#include "writers/FixedNumber.h"

#include <QByteArray>

#include <cstdint>
#include <cstring>

namespace kpBaseExport
{

namespace
{

__extension__ using Wide = unsigned __int128; // of GCC and Clang

constexpr int largestFastPrecision = 18;

constexpr std::uint64_t powersOfTen[largestFastPrecision + 1] = {
    1ULL,
    10ULL,
    100ULL,
    1000ULL,
    10000ULL,
    100000ULL,
    1000000ULL,
    10000000ULL,
    100000000ULL,
    1000000000ULL,
    10000000000ULL,
    100000000000ULL,
    1000000000000ULL,
    10000000000000ULL,
    100000000000000ULL,
    1000000000000000ULL,
    10000000000000000ULL,
    100000000000000000ULL,
    1000000000000000000ULL,
};

constexpr char digitPairs[] = "00010203040506070809101112131415161718192021222324"
                              "25262728293031323334353637383940414243444546474849"
                              "50515253545556575859606162636465666768697071727374"
                              "75767778798081828384858687888990919293949596979899";

/// Writes the digits of \a number so that they end at \a end, at least \a least of them. Returns where they begin.
char* digitsBefore(char* end, std::uint64_t number, int least)
{
    char* first = end;
    while (number >= 100) {
        const auto pair = static_cast<unsigned>(number % 100) * 2;
        number /= 100;
        first -= 2;
        std::memcpy(first, digitPairs + pair, 2);
    }
    if (number >= 10) {
        first -= 2;
        std::memcpy(first, digitPairs + number * 2, 2);
    } else {
        *--first = static_cast<char>('0' + number);
    }
    while (end - first < least)
        *--first = '0';
    return first;
}

/// The magnitude of a finite value, mantissa * 2^exponent, times 10^precision, rounded half up. The product of a
/// 53-bit mantissa and a power below 2^60 fits in 128 bits, so nothing is lost before the one rounding.
/// False when the result has more than 64 bits.
bool scaled(std::uint64_t mantissa, int exponent, int precision, std::uint64_t& result)
{
    const Wide product = static_cast<Wide>(mantissa) * powersOfTen[precision];
    Wide rounded = 0;
    if (exponent >= 0) {
        if (exponent > 10)
            return false;
        rounded = product << exponent;
    } else if (exponent > -128) {
        rounded = product >> -exponent;
        rounded += (product >> (-exponent - 1)) & 1U;
    } // else: below half of the last decimal
    if (rounded >> 64)
        return false;
    result = static_cast<std::uint64_t>(rounded);
    return true;
}

} // namespace

void appendFixed(std::string& text, double value, int precision)
{
    std::uint64_t bits = 0;
    std::memcpy(&bits, &value, sizeof bits);
    const auto biased = static_cast<int>((bits >> 52) & 0x7ffU);
    std::uint64_t mantissa = bits & 0xfffffffffffffULL;
    std::uint64_t number = 0;
    if (biased != 0x7ff && precision >= 0 && precision <= largestFastPrecision) {
        // Subnormal numbers have no hidden bit and the exponent of the smallest normal ones.
        if (biased != 0)
            mantissa |= 0x10000000000000ULL;
        const int exponent = (biased == 0 ? 1 : biased) - 1075;
        if (scaled(mantissa, exponent, precision, number)) {
            char buffer[32];
            char* const end = buffer + sizeof buffer;
            char* first = digitsBefore(end, number, precision + 1);
            if (value < 0.0)
                text += '-';
            const auto whole = static_cast<std::size_t>(end - first) - static_cast<std::size_t>(precision);
            text.append(first, whole);
            if (precision > 0) {
                text += '.';
                text.append(first + whole, static_cast<std::size_t>(precision));
            }
            return;
        }
    }
    const QByteArray slow = QByteArray::number(value, 'f', precision);
    text.append(slow.constData(), static_cast<std::size_t>(slow.size()));
}

} // namespace kpBaseExport
