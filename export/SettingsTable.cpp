// SPDX-License-Identifier: MIT
#include "export/SettingsTable.h"

#include <algorithm>

namespace kpFormats
{

const Setting* SettingsTable::find(const QString& key) const
{
    const auto found = std::find_if(m_settings.begin(), m_settings.end(), [&key](const Setting& setting) {
        return setting.key == key
               || std::any_of(setting.former.begin(), setting.former.end(),
                              [&key](const FormerSetting& former) { return former.key == key; });
    });
    return found == m_settings.end() ? nullptr : &*found;
}

} // namespace kpFormats
