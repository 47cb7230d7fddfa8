// SPDX-License-Identifier: MIT
#include "readers/FeatureDates.h"

#include <cstdlib>

namespace kpFormats
{

namespace
{

QString padded(int number, int digits)
{
    return QStringLiteral("%1").arg(number, digits, 10, QLatin1Char('0'));
}

} // namespace

QString isoOf(const OGRField& value, TextMeaning meaning)
{
    const auto& read = value.Date;
    const QString date =
        QStringLiteral("%1-%2-%3").arg(padded(read.Year, 4), padded(read.Month, 2), padded(read.Day, 2));
    if (meaning == TextMeaning::Date)
        return date;
    const int thousandths = qRound(read.Second * 1000.0F);
    QString time =
        QStringLiteral("%1:%2:%3").arg(padded(read.Hour, 2), padded(read.Minute, 2), padded(thousandths / 1000, 2));
    if (thousandths % 1000 != 0)
        time += QLatin1Char('.') + padded(thousandths % 1000, 3);
    if (meaning == TextMeaning::Time)
        return time;
    // 0: unknown, 1: local, 100: UTC, a quarter of an hour more or less for each step.
    constexpr int utc = 100;
    const int zone = read.TZFlag;
    if (zone == utc) {
        time += QLatin1Char('Z');
    } else if (zone > 1) {
        const int minutes = std::abs(zone - utc) * 15;
        time += zone < utc ? QLatin1Char('-') : QLatin1Char('+');
        time += padded(minutes / 60, 2) + QLatin1Char(':') + padded(minutes % 60, 2);
    }
    return date + QLatin1Char('T') + time;
}

} // namespace kpFormats
