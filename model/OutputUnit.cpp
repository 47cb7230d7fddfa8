// SPDX-License-Identifier: MIT
#include "model/OutputUnit.h"

namespace kpFormats
{

namespace
{

/// Metres per unit, in the order of outputUnitKeys(). The U.S. survey foot is 1200/3937 m.
constexpr double metres[] = {1.0, 1.0, 0.3048, 1200.0 / 3937.0, 1000.0};

} // namespace

QStringList outputUnitKeys()
{
    return {QStringLiteral("model"), QStringLiteral("m"), QStringLiteral("ft"), QStringLiteral("ftUS"),
            QStringLiteral("km")};
}

double unitFactor(const QString& modelUnit, OutputUnit unit)
{
    const int from = outputUnitKeys().indexOf(modelUnit);
    const int to = static_cast<int>(unit);
    return from <= 0 || unit == OutputUnit::Model || from == to ? 1.0 : metres[from] / metres[to];
}

QString writtenUnit(const QString& modelUnit, OutputUnit unit)
{
    return unit == OutputUnit::Model ? modelUnit : outputUnitKeys()[static_cast<int>(unit)];
}

} // namespace kpFormats
