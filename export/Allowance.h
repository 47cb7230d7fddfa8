// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <cmath>
#include <utility>

namespace kpFormats
{

/// How far a number in a file may be from that of the model, and the unit in which both count.
struct Allowance
{
    Allowance(double greatest, QString of)
        : most(greatest)
        , unit(std::move(of))
    {
    }
    /// Half of the last of that many decimals.
    static Allowance ofDecimals(int decimals, const QString& unit) { return {0.5 * std::pow(10.0, -decimals), unit}; }

    double most;
    QString unit;
};

} // namespace kpFormats
