// SPDX-License-Identifier: MIT
#include "formats/raster/RasterNumbers.h"

#include "export/CommonFindings.h"
#include "formats/raster/RasterFindings.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace kpFormats
{

namespace
{

using Kind = RasterTraits::NumberKind;
using Precision = RasterExportSettings::Precision;

constexpr int usualDecimals = 4;

double inSingle(double value)
{
    return static_cast<double>(static_cast<float>(value));
}

template <typename Look>
void eachValue(const RasterGrid& grid, std::size_t band, Look look)
{
    for (int line = 0; line < grid.rows(); ++line) {
        for (int column = 0; column < grid.columns(); ++column) {
            const double value = grid.value(band, column, line);
            if (!std::isnan(value))
                look(value);
        }
    }
}

/// What single precision changes of the values of a band.
struct Rounded
{
    qint64 count = 0;
    double first = 0;
    double largest = 0;

    void add(double value)
    {
        const double change = std::abs(inSingle(value) - value);
        if (change == 0.0)
            return;
        if (count++ == 0)
            first = value;
        largest = std::max(largest, change);
    }
};

} // namespace

RasterNumbers::RasterNumbers(const RasterGrid& grid, const RasterTraits& traits, const RasterExportSettings& settings,
                             Findings& findings)
    : digits(traits.numbers == Kind::Digits)
    , null(traits.null.value_or(settings.nullValue))
    , most(traits.most)
{
    const QString& object = grid.object().name;
    const double mostSingle = std::min(traits.most, static_cast<double>(std::numeric_limits<float>::max()));
    std::vector<Rounded> rounded(grid.bands().size());
    DecimalsNeed need;
    bool fitsSingle = true;
    for (std::size_t band = 0; band < grid.bands().size(); ++band) {
        largest.push_back(0.0);
        eachValue(grid, band, [&](double value) {
            fitsSingle = fitsSingle && std::abs(value) <= mostSingle && inSingle(value) == value;
            if (std::abs(value) > mostSingle)
                return;
            rounded[band].add(value);
            need.add(value);
        });
    }
    single =
        traits.numbers == Kind::Single
        || (traits.numbers == Kind::Chosen
            && (settings.precision == Precision::Single || (settings.precision == Precision::Automatic && fitsSingle)));
    if (single) {
        most = mostSingle;
        null = inSingle(null);
    }
    if (traits.numbers == Kind::Decimals)
        decimals = settings.decimals == automaticDecimals ? need.decimals(usualDecimals) : settings.decimals;
    const double nearNull = decimals < 0 ? 0.0 : 0.5 * std::pow(10.0, -decimals);
    for (std::size_t band = 0; band < grid.bands().size(); ++band) {
        const QString name = grid.bands()[band].name;
        qint64 values = 0;
        qint64 tooLarge = 0;
        qint64 equalToNull = 0;
        RoundedToZero zeros(decimals);
        eachValue(grid, band, [&](double value) {
            if (isMissing(value)) {
                ++tooLarge;
                return;
            }
            ++values;
            largest[band] = std::max(largest[band], std::abs(value));
            equalToNull += std::abs((single ? inSingle(value) : value) - null) <= nearNull ? 1 : 0;
            if (decimals >= 0)
                zeros.add(value);
        });
        if (values == 0)
            findings.note(finding::gridWithoutAnyValue, object, 1,
                          QStringLiteral("every node of %1 is the null value").arg(name));
        findings.note(rasterFinding::numberTooLarge, object, tooLarge,
                      QStringLiteral("in %1: beyond %2").arg(name).arg(most));
        findings.note(finding::valueEqualToTheNullValue, object, equalToNull,
                      QStringLiteral("in %1: readers will take it for missing; choose another nullValue than %2")
                          .arg(name)
                          .arg(null));
        zeros.note(object, name, findings);
        if (single)
            findings.note(rasterFinding::roundedToSingle, object, rounded[band].count,
                          QStringLiteral("in %1: first %2; the largest change is %3")
                              .arg(name)
                              .arg(rounded[band].first, 0, 'g', 17)
                              .arg(rounded[band].largest, 0, 'g', 3));
    }
}

double RasterNumbers::allowed(std::size_t band) const
{
    constexpr double halfDigit = 5e-14;
    if (decimals >= 0)
        return 0.5 * std::pow(10.0, -decimals);
    if (digits)
        return halfDigit * largest[band];
    return single ? std::ldexp(largest[band], -24) : 0.0;
}

} // namespace kpFormats
