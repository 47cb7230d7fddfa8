// SPDX-License-Identifier: MIT
#include "pages/SettingsMemory.h"

#include <QSettings>

namespace kpFormats
{

QString settingsGroup(const QString& formatKey)
{
    return QStringLiteral("format_") + formatKey;
}

void restoreSettings(SettingsValue& settings, const QString& formatKey)
{
    QSettings stored;
    stored.beginGroup(settingsGroup(formatKey));
    for (const Setting& setting : settings.settings()) {
        if (!stored.contains(setting.key))
            continue;
        try {
            settings.set(setting.key, stored.value(setting.key).toString());
        } catch (const SettingsError&) {
            // Stored by another version of the program: the default stays.
            stored.remove(setting.key);
        }
    }
}

void storeSettings(const SettingsValue& settings, const QString& formatKey, const QStringList& except)
{
    QSettings stored;
    stored.beginGroup(settingsGroup(formatKey));
    for (const Setting& setting : settings.settings()) {
        if (!except.contains(setting.key))
            stored.setValue(setting.key, settings.get(setting));
    }
}

void storeSetting(const QString& formatKey, const QString& key, const QString& value)
{
    QSettings stored;
    stored.beginGroup(settingsGroup(formatKey));
    stored.setValue(key, value);
}

QString summaryOf(const SettingsValue& settings)
{
    QStringList parts;
    for (const Setting& setting : settings.settings())
        parts.append(QStringLiteral("%1=%2").arg(setting.key, settings.get(setting)));
    return parts.join(QStringLiteral(", "));
}

} // namespace kpFormats
