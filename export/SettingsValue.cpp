// SPDX-License-Identifier: MIT
#include "export/SettingsValue.h"

#include "export/Suggestion.h"

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
    throw SettingsError(
        QStringLiteral("%1: there is no such setting (%2)")
            .arg(key, suggestionFor(key, keys,
                                    QStringLiteral("settings of this format: ") + keys.join(QStringLiteral(", ")))));
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
    if (!setting.allows(present))
        throw SettingsError(
            QStringLiteral("%1: \"%2\" is not a value of this setting (%3)")
                .arg(key, value,
                     suggestionFor(value, setting.choiceKeys(), QStringLiteral("give ") + setting.allowedText())));
    setting.write(m_value, present);
}

} // namespace kpFormats
