// SPDX-License-Identifier: MIT
#pragma once

#include "export/SettingsValue.h"
#include "pages/kpFormatsUiExport.h"

namespace kpFormats
{

/// The group of a format in the program's QSettings.
QString settingsGroup(const QString& formatKey);
/// Sets what was stored for the format when it was last used. A stored value that is no longer valid is forgotten.
KPFORMATSUI_EXPORT void restoreSettings(SettingsValue& settings, const QString& formatKey);
/// Stores the settings for the next time, those of the keys \a except left out.
void storeSettings(const SettingsValue& settings, const QString& formatKey, const QStringList& except = {});
/// Stores one value for the next time.
KPFORMATSUI_EXPORT void storeSetting(const QString& formatKey, const QString& key, const QString& value);
/// The key of the format that was written last; empty at first.
QString lastFormat();
void storeLastFormat(const QString& formatKey);
/// The settings as "key=value, key=value".
KPFORMATSUI_EXPORT QString summaryOf(const SettingsValue& settings);

} // namespace kpFormats
