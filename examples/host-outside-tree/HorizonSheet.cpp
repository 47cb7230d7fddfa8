// SPDX-License-Identifier: MIT
#include "HorizonSheet.h"

QString HorizonSheet::optionSummary() const
{
    return QString::fromLatin1(units().abbreviation()) + (usesHorizonNames() ? QStringLiteral(", named") : QString());
}
