// SPDX-License-Identifier: MIT
#pragma once

#include "export/SettingsError.h"
#include "export/SettingsTable.h"
#include "model/kpFormatsExport.h"

#include <memory>

namespace kpFormats
{

/// The settings of one export: a settings struct, whichever it is, with the table that names its members. A copy is
/// independent. Code that knows the struct uses it; commands, files and pages set and read members as text.
class KPFORMATS_EXPORT SettingsValue
{
public:
    /// The defaults of the table's struct.
    explicit SettingsValue(SettingsTable table = {});

    const std::vector<Setting>& settings() const { return m_table->all(); }
    /// The setting with that name, or with that one before; null when there is none.
    const Setting* find(const QString& key) const { return m_table->find(key); }

    /// The value as text. \throws SettingsError when there is no such setting
    QString get(const QString& key) const;
    QString get(const Setting& setting) const { return setting.read(m_value); }
    QString defaultOf(const Setting& setting) const { return setting.read(m_table->defaults()); }
    /// The one way by which a value comes in as text. \throws SettingsError when there is no such setting, or the value
    /// is not one that it can have
    void set(const QString& key, const QString& value);

    /// The struct itself. \throws std::bad_any_cast when it is of another type
    template <typename Struct>
    const Struct& as() const
    {
        return std::any_cast<const Struct&>(m_value);
    }
    template <typename Struct>
    Struct& as()
    {
        return std::any_cast<Struct&>(m_value);
    }

private:
    std::shared_ptr<const SettingsTable> m_table;
    std::any m_value;
};

} // namespace kpFormats
