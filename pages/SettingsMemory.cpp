// SPDX-License-Identifier: MIT
#include "pages/SettingsMemory.h"

#include "pages/CrsField.h"

#include <QSettings>

namespace kpFormats
{

namespace
{

const QString lastFormatKey = QStringLiteral("lastFormat");

/// Under which of its names a setting is stored; an earlier version knew the former ones. Empty when it is not.
QString storedKey(const QSettings& stored, const Setting& setting)
{
    if (stored.contains(setting.key))
        return setting.key;
    for (const FormerSetting& former : setting.former) {
        if (stored.contains(former.key))
            return former.key;
    }
    return {};
}

} // namespace

QString settingsGroup(const QString& formatKey)
{
    return QStringLiteral("format_") + formatKey;
}

void restoreSettings(SettingsValue& settings, const QString& formatKey)
{
    // Nor does a name that means no system outlive the page on which it was written.
    if (!areSystemsKnown(settings))
        settings.set(crsKey, QString());
    QSettings stored;
    stored.beginGroup(settingsGroup(formatKey));
    for (const Setting& setting : settings.settings()) {
        const QString key = storedKey(stored, setting);
        if (key.isEmpty())
            continue;
        try {
            settings.set(key, stored.value(key).toString());
        } catch (const SettingsError&) {
            // Stored by another version of the program: the default stays.
            stored.remove(key);
        }
    }
}

void storeSettings(const SettingsValue& settings, const QString& formatKey, const QStringList& except)
{
    QSettings stored;
    stored.beginGroup(settingsGroup(formatKey));
    for (const Setting& setting : settings.settings()) {
        // A name that means no system would only be wrong the next time too.
        const bool faulty = setting.key == crsKey && !areSystemsKnown(settings);
        if (!except.contains(setting.key) && !faulty)
            stored.setValue(setting.key, settings.get(setting));
    }
}

void storeSetting(const QString& formatKey, const QString& key, const QString& value)
{
    QSettings stored;
    stored.beginGroup(settingsGroup(formatKey));
    stored.setValue(key, value);
}

QString lastFormat()
{
    return QSettings().value(lastFormatKey).toString();
}

void storeLastFormat(const QString& formatKey)
{
    QSettings().setValue(lastFormatKey, formatKey);
}

QString summaryOf(const SettingsValue& settings)
{
    QStringList parts;
    for (const Setting& setting : settings.settings())
        parts.append(QStringLiteral("%1=%2").arg(setting.key, settings.get(setting)));
    return parts.join(QStringLiteral(", "));
}

} // namespace kpFormats
