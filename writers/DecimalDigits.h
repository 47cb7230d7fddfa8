// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstdint>
#include <cstring>

// The fast way needs numbers of 128 bits, the bit operations of GCC and Clang, and a machine that stores the lowest byte
// first. Elsewhere, and with KP_PLAIN_DIGITS, every number goes the long way, which gives the same text.
#if !defined(KP_PLAIN_DIGITS)                                                                                          \
    && !(defined(__SIZEOF_INT128__) && defined(__BYTE_ORDER__) && __BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__)
#define KP_PLAIN_DIGITS
#endif

/// Digits of a number in fixed notation, for writers that differ in how they round and in the sign of zero.
namespace kpBaseExport::DecimalDigits
{

/// What becomes of a value that lies exactly between two decimals.
enum class Tie { AwayFromZero, ToEven };

#ifdef KP_PLAIN_DIGITS

/// Takes no number.
template <Tie tie>
char* writeMagnitude(char*, std::uint64_t, int)
{
    return nullptr;
}

#else

__extension__ using Wide = unsigned __int128;

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

constexpr std::uint64_t eightZeros = 0x3030303030303030ULL;
constexpr std::uint64_t tenToTheEighth = 100000000ULL;
constexpr std::uint64_t tenToTheSixteenth = tenToTheEighth * tenToTheEighth;

/// The digits of "000" to "999" as numbers, one a byte, the first one lowest.
struct ThreeDigits
{
    std::uint32_t of[1000];
};

constexpr ThreeDigits makeThreeDigits()
{
    ThreeDigits table = {};
    for (std::uint32_t number = 0; number < 1000; ++number)
        table.of[number] = number / 100 | (number / 10 % 10) << 8 | (number % 10) << 16;
    return table;
}

constexpr ThreeDigits threeDigits = makeThreeDigits();

/// The eight decimal digits of a number below 10^8, one a byte, the first one lowest. Such words go to memory as they
/// are, for machines that store the lowest byte first.
inline std::uint64_t eightDigits(std::uint32_t number)
{
    const std::uint32_t thousands = number / 1000;
    const std::uint32_t millions = thousands / 1000;
    return threeDigits.of[millions] >> 8 | static_cast<std::uint64_t>(threeDigits.of[thousands - millions * 1000]) << 16
           | static_cast<std::uint64_t>(threeDigits.of[number - thousands * 1000]) << 40;
}

/// The sixteen digits of a number below 10^16 as characters.
inline Wide sixteenDigits(std::uint64_t number)
{
    const std::uint64_t upper = eightDigits(static_cast<std::uint32_t>(number / tenToTheEighth));
    const std::uint64_t lower = eightDigits(static_cast<std::uint32_t>(number % tenToTheEighth));
    return static_cast<Wide>(lower | eightZeros) << 64 | upper | eightZeros;
}

/// How many decimal digits a number has; 1 for 0.
inline int digitCount(std::uint64_t number)
{
    const int bits = 64 - __builtin_clzll(number | 1);
    const int estimate = bits * 1233 >> 12; // bits * log10(2), right or one too small
    return estimate + (number >= powersOfTen[estimate] ? 1 : 0) + (number == 0 ? 1 : 0);
}

/// product / 2^places, rounded. For places from 1 on and products that leave the topmost bit free.
template <Tie tie, typename Word>
Word halved(Word product, int places)
{
    if constexpr (tie == Tie::AwayFromZero)
        return ((product >> (places - 1)) + 1) >> 1;
    const Word belowHalf = (static_cast<Word>(1) << (places - 1)) - 1;
    return (product + belowHalf + (product >> places & 1U)) >> places;
}

/// The magnitude of a finite value, mantissa * 2^exponent, times 10^precision, rounded once. The product of a 53-bit
/// mantissa and a power below 2^60 fits in 128 bits, so nothing is lost before that.
/// False when the result has more than 64 bits.
template <Tie tie>
bool scaled(std::uint64_t mantissa, int exponent, int precision, std::uint64_t& result)
{
    const Wide product = static_cast<Wide>(mantissa) * powersOfTen[precision];
    Wide rounded = 0;
    if (exponent >= 0) {
        if (exponent > 10)
            return false;
        rounded = product << exponent;
    } else if (exponent > -128) {
        rounded = halved<tie>(product, -exponent);
    } // else: below half of the last decimal
    if (rounded >> 64)
        return false;
    result = static_cast<std::uint64_t>(rounded);
    return true;
}

/// Precisions for which the product of a mantissa and the power of ten, below 2^53 * 10^3, fits in 63 bits.
constexpr int largestShortPrecision = 3;
constexpr std::uint32_t pointAndZeros = 0x3030302eU;
/// Precisions of writeUsual(), for which one multiplication divides by the power of ten.
constexpr int largestUsualPrecision = 5;
/// 2^64 / 10^precision, rounded up. The quotient is exact for numbers below 10^(8 + precision).
constexpr std::uint64_t reciprocals[largestUsualPrecision + 1] = {
    0, 1844674407370955162ULL, 184467440737095517ULL, 18446744073709552ULL, 1844674407370956ULL, 184467440737096ULL};

/// A scaled number below 10^(8 + precision): nearly every coordinate. Whole part and fraction have eight digits each
/// at most, so that a word holds each.
inline char* writeUsual(char* out, std::uint64_t number, int precision)
{
    const auto whole = static_cast<std::uint64_t>(static_cast<Wide>(number) * reciprocals[precision] >> 64);
    const std::uint64_t fraction = number - whole * powersOfTen[precision];
    const std::uint64_t digits = eightDigits(static_cast<std::uint32_t>(whole));
    // The last digit counts also when it is 0.
    const unsigned leadingZeros = static_cast<unsigned>(__builtin_ctzll(digits | 1ULL << 63)) / 8U;
    const std::uint64_t wholeText = (digits | eightZeros) >> (8U * leadingZeros);
    std::memcpy(out, &wholeText, sizeof wholeText);
    out += 8U - leadingZeros;
    if (precision <= largestShortPrecision) {
        const std::uint32_t text =
            threeDigits.of[fraction * powersOfTen[largestShortPrecision - precision]] << 8 | pointAndZeros;
        std::memcpy(out, &text, sizeof text);
        return out + 1 + precision;
    }
    *out++ = '.';
    const std::uint64_t fractionText =
        (eightDigits(static_cast<std::uint32_t>(fraction)) | eightZeros) >> 8 * (8 - precision);
    std::memcpy(out, &fractionText, sizeof fractionText);
    return out + precision;
}

/// What writeMagnitude() does, for every number.
template <Tie tie>
[[gnu::noinline]] char* writeAnyMagnitude(char* out, std::uint64_t bits, int precision)
{
    const auto biased = static_cast<int>((bits >> 52) & 0x7ffU);
    if (biased == 0x7ff || precision < 0 || precision > largestPrecision)
        return nullptr;
    // Subnormal numbers have no hidden bit and the exponent of the smallest normal ones.
    const std::uint64_t mantissa = (bits & 0xfffffffffffffULL) | (biased != 0 ? 0x10000000000000ULL : 0);
    std::uint64_t number = 0;
    if (!scaled<tie>(mantissa, (biased == 0 ? 1 : biased) - 1075, precision, number) || number >= tenToTheSixteenth)
        return nullptr;
    if (precision > 0 && precision <= largestUsualPrecision && number < tenToTheEighth * powersOfTen[precision])
        return writeUsual(out, number, precision);

    const int count = std::max(digitCount(number), precision + 1);
    if (count > 16)
        return nullptr;
    // Sixteen digits in a register, the first one lowest; shifting drops the zeros in front.
    Wide digits = sixteenDigits(number) >> 8 * (16 - count);
    std::memcpy(out, &digits, sizeof digits);
    out += count - precision;
    if (precision == 0)
        return out;
    *out++ = '.';
    digits >>= 8 * (count - precision);
    std::memcpy(out, &digits, sizeof digits);
    return out + precision;
}

/// The magnitude of the double with these bits at \a out, for which 63 characters have room; those behind the text
/// may change. Takes numbers of up to 16 digits, decimals included.
/// \returns the end of the text, or null when the number is none of these
template <Tie tie>
inline char* writeMagnitude(char* out, std::uint64_t bits, int precision)
{
    // Values below 2^26, thus of eight digits, that one shift of 63 bits at most scales.
    const int shift = 1075 - static_cast<int>((bits >> 52) & 0x7ffU);
    if (shift < 27 || shift > 63 || precision <= 0 || precision > largestShortPrecision)
        return writeAnyMagnitude<tie>(out, bits, precision);
    const std::uint64_t mantissa = (bits & 0xfffffffffffffULL) | 0x10000000000000ULL;
    return writeUsual(out, halved<tie>(mantissa * powersOfTen[precision], shift), precision);
}

#endif

} // namespace kpBaseExport::DecimalDigits
