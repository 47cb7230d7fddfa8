// SPDX-License-Identifier: MIT
#pragma once

#include "app/jobs/SettingsMap.h"

namespace refhost
{

/// Sets what was stored for the format when it was last used. A stored value that is no longer valid is forgotten.
void restoreSettings(SettingsMap& settings, const QString& formatKey);
/// Stores the settings for the next time, those of the keys \a except left out.
void storeSettings(const SettingsMap& settings, const QString& formatKey, const QStringList& except = {});
/// Stores one value for the next time.
void storeSetting(const QString& formatKey, const QString& key, const QString& value);
/// The settings as "key=value, key=value".
QString summaryOf(const SettingsMap& settings);

} // namespace refhost
