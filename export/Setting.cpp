// SPDX-License-Identifier: MIT
#include "export/Setting.h"

namespace kpFormats
{

QStringList Setting::choiceKeys() const
{
    QStringList keys;
    for (const SettingChoice& choice : choices)
        keys.append(choice.key);
    return keys;
}

QString Setting::allowedText() const
{
    switch (kind) {
    case Choice:
        return QStringLiteral("one of ") + choiceKeys().join(QStringLiteral(", "));
    case Boolean:
        return QStringLiteral("true or false");
    case Integer:
        return QStringLiteral("a whole number from %1 to %2").arg(least).arg(most);
    case Real:
        return QStringLiteral("a number from %1 to %2").arg(least).arg(most);
    case Text:
        break;
    }
    return QStringLiteral("text");
}

bool Setting::allows(const QString& value) const
{
    bool isNumber = false;
    switch (kind) {
    case Choice:
        return choiceKeys().contains(value);
    case Boolean:
        return value == QLatin1String("true") || value == QLatin1String("false");
    case Integer: {
        const int number = value.toInt(&isNumber);
        return isNumber && number >= least && number <= most;
    }
    case Real: {
        const double number = value.toDouble(&isNumber);
        return isNumber && number >= least && number <= most;
    }
    case Text:
        break;
    }
    return true;
}

} // namespace kpFormats
