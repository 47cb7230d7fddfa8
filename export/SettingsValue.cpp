// SPDX-License-Identifier: MIT
#include "export/SettingsValue.h"

#include <algorithm>
#include <utility>

namespace kpFormats
{

namespace
{

const Setting& require(const SettingsTable& table, const QString& key)
{
    if (const Setting* setting = table.find(key))
        return *setting;
    QStringList keys;
    for (const Setting& setting : table.all())
        keys.append(setting.key);
    throw SettingsError(QStringLiteral("%1: there is no such setting (settings of this format: %2)")
                            .arg(key, keys.join(QStringLiteral(", "))));
}

/// A value as it is called now, where \a key is a former name of the setting.
QString presentValue(const Setting& setting, const QString& key, const QString& value)
{
    for (const FormerSetting& former : setting.former) {
        if (former.key == key)
            return former.values.value(value, value);
    }
    return value;
}

/// What the setting can be, when it cannot be \a value; else empty.
QString refusal(const Setting& setting, const QString& value)
{
    bool isNumber = false;
    switch (setting.kind) {
    case Setting::Choice: {
        const QStringList keys = setting.choiceKeys();
        return keys.contains(value) ? QString() : QStringLiteral("one of ") + keys.join(QStringLiteral(", "));
    }
    case Setting::Boolean:
        return value == QLatin1String("true") || value == QLatin1String("false") ? QString()
                                                                                 : QStringLiteral("true or false");
    case Setting::Integer: {
        const int number = value.toInt(&isNumber);
        return isNumber && number >= setting.least && number <= setting.most
                   ? QString()
                   : QStringLiteral("a whole number from %1 to %2").arg(setting.least).arg(setting.most);
    }
    case Setting::Real: {
        const double number = value.toDouble(&isNumber);
        return isNumber && number >= setting.least && number <= setting.most
                   ? QString()
                   : QStringLiteral("a number from %1 to %2").arg(setting.least).arg(setting.most);
    }
    case Setting::Text:
        break;
    }
    return {};
}

} // namespace

SettingsValue::SettingsValue(SettingsTable table)
    : m_table(std::make_shared<const SettingsTable>(std::move(table)))
    , m_value(m_table->defaults())
{
}

QString SettingsValue::get(const QString& key) const
{
    return get(require(*m_table, key));
}

void SettingsValue::set(const QString& key, const QString& value)
{
    const Setting& setting = require(*m_table, key);
    const QString present = presentValue(setting, key, value);
    const QString allowed = refusal(setting, present);
    if (!allowed.isEmpty())
        throw SettingsError(
            QStringLiteral("%1: \"%2\" is not a value of this setting (give %3)").arg(key, value, allowed));
    setting.write(m_value, present);
}

} // namespace kpFormats
