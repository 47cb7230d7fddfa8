// SPDX-License-Identifier: MIT
#include "pages/SettingsMemory.h"

#include <QSettings>

namespace kpFormats
{

namespace
{

QString groupOf(const QString& formatKey)
{
    return QStringLiteral("format_") + formatKey;
}

} // namespace

void restoreSettings(SettingsMap& settings, const QString& formatKey)
{
    QSettings stored;
    stored.beginGroup(groupOf(formatKey));
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

void storeSettings(const SettingsMap& settings, const QString& formatKey, const QStringList& except)
{
    QSettings stored;
    stored.beginGroup(groupOf(formatKey));
    for (const Setting& setting : settings.settings()) {
        if (!except.contains(setting.key))
            stored.setValue(setting.key, setting.get());
    }
}

void storeSetting(const QString& formatKey, const QString& key, const QString& value)
{
    QSettings stored;
    stored.beginGroup(groupOf(formatKey));
    stored.setValue(key, value);
}

QString summaryOf(const SettingsMap& settings)
{
    QStringList parts;
    for (const Setting& setting : settings.settings())
        parts.append(QStringLiteral("%1=%2").arg(setting.key, setting.get()));
    return parts.join(QStringLiteral(", "));
}

} // namespace kpFormats
