// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <cstring>
#include <string>

namespace kpBaseExport::DecimalDigits
{

__extension__ using Wide = unsigned __int128; // of GCC and Clang

constexpr int largestPrecision = 18;

constexpr std::uint64_t powersOfTen[largestPrecision + 1] = {
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

/// What becomes of a value that lies exactly between two decimals.
enum class Tie { AwayFromZero, ToEven };

/// Writes the digits of \a number so that they end at \a end, at least \a least of them. Returns where they begin.
inline char* digitsBefore(char* end, std::uint64_t number, int least)
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

/// mantissa * 2^exponent times 10^precision, rounded once. The product of a 53-bit mantissa and a power below 2^60
/// fits in 128 bits, so nothing is lost before that. False when the result has more than 64 bits.
template <Tie tie> bool scaled(std::uint64_t mantissa, int exponent, int precision, std::uint64_t& result)
{
    const Wide product = static_cast<Wide>(mantissa) * powersOfTen[precision];
    Wide rounded = 0;
    if (exponent >= 0) {
        if (exponent > 10)
            return false;
        rounded = product << exponent;
    } else if (exponent > -128) {
        rounded = product >> -exponent;
        const Wide half = static_cast<Wide>(1) << (-exponent - 1);
        const Wide rest = product & (half + (half - 1));
        const bool up = tie == Tie::AwayFromZero ? rest >= half : rest > half || (rest == half && (rounded & 1U));
        rounded += up ? 1U : 0U;
    } // else: below half of the last decimal
    if (rounded >> 64)
        return false;
    result = static_cast<std::uint64_t>(rounded);
    return true;
}

/// The magnitude of \a value times 10^precision, from its exact binary value. False for what this way cannot do: very
/// large values, infinities, NaN, a precision outside 0 to largestPrecision.
template <Tie tie> bool scaledMagnitude(double value, int precision, std::uint64_t& result)
{
    std::uint64_t bits = 0;
    std::memcpy(&bits, &value, sizeof bits);
    const auto biased = static_cast<int>((bits >> 52) & 0x7ffU);
    if (biased == 0x7ff || precision < 0 || precision > largestPrecision)
        return false;
    std::uint64_t mantissa = bits & 0xfffffffffffffULL;
    // Subnormal numbers have no hidden bit and the exponent of the smallest normal ones.
    if (biased != 0)
        mantissa |= 0x10000000000000ULL;
    return scaled<tie>(mantissa, (biased == 0 ? 1 : biased) - 1075, precision, result);
}

inline void appendScaled(std::string& text, bool negative, std::uint64_t number, int precision)
{
    char buffer[32];
    char* const end = buffer + sizeof buffer - 1;
    char* first = digitsBefore(end, number, precision + 1);
    char* last = end;
    if (precision > 0) {
        std::memmove(end - precision + 1, end - precision, static_cast<std::size_t>(precision));
        end[-precision] = '.';
        ++last;
    }
    if (negative)
        *--first = '-';
    text.append(first, static_cast<std::size_t>(last - first));
}

} // namespace kpBaseExport::DecimalDigits
