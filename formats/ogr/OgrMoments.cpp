// SPDX-License-Identifier: MIT
#include "formats/ogr/OgrMoments.h"

#include "readers/FeatureDates.h"

#include <QDateTime>

#include <ogr_api.h>

#include <algorithm>

namespace kpFormats
{

bool sameMoment(const QString& iso, const QString& other, TextMeaning meaning)
{
    if (meaning == TextMeaning::Date)
        return iso == other;
    if (meaning == TextMeaning::Time) {
        const QTime time = QTime::fromString(iso, Qt::ISODateWithMs);
        return time.isValid() && time == QTime::fromString(other, Qt::ISODateWithMs);
    }
    const QDateTime moment = QDateTime::fromString(iso, Qt::ISODateWithMs);
    const QDateTime found = QDateTime::fromString(other, Qt::ISODateWithMs);
    return moment.isValid() && moment == found && moment.timeSpec() == found.timeSpec()
           && (moment.timeSpec() == Qt::LocalTime || moment.offsetFromUtc() == found.offsetFromUtc());
}

bool holdsMoment(const QString& iso, TextMeaning meaning, const OgrTraits& traits)
{
    constexpr int decimalsOfSeconds = 3;
    const int point = iso.indexOf(QLatin1Char('.'));
    if (point >= 0) {
        int end = point + 1;
        while (end < iso.size() && iso[end].isDigit())
            ++end;
        if (end - point - 1 > decimalsOfSeconds)
            return false;
    }
    OGRField value;
    if (!OGRParseDate(iso.toUtf8().constData(), &value, 0) || !sameMoment(iso, isoOf(value, meaning), meaning))
        return false;
    constexpr int utc = 100;
    return value.Date.TZFlag == 0 || (traits.utc && value.Date.TZFlag == utc);
}

} // namespace kpFormats
