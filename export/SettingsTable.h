// SPDX-License-Identifier: MIT
#pragma once

#include "export/Setting.h"
#include "model/kpFormatsExport.h"

#include <QLocale>

#include <initializer_list>
#include <type_traits>

namespace kpFormats
{

/// The members of one settings struct by name, in the order in which users meet them. One line binds a member; with it
/// the setting is on the command line, in job files, on the page, in the help and the docs.
class KPFORMATS_EXPORT SettingsTable
{
public:
    /// \a choices name the enumerators in order, from 0.
    template <typename Struct, typename Enum>
    Setting& addChoice(const char* key, Enum Struct::*member, const QString& label,
                       std::initializer_list<SettingChoice> choices, const QString& description)
    {
        return addChoice(key, member, label, std::vector<SettingChoice>(choices), description);
    }
    template <typename Struct, typename Enum>
    Setting& addChoice(const char* key, Enum Struct::*member, const QString& label,
                       const std::vector<SettingChoice>& choices, const QString& description)
    {
        Setting& setting = add<Struct>(key, label, description, Setting::Choice);
        setting.choices = choices;
        const QStringList keys = setting.choiceKeys();
        bind(
            setting, member, [keys](Enum value) { return keys.value(static_cast<int>(value)); },
            [keys](const QString& text) { return static_cast<Enum>(keys.indexOf(text)); });
        return setting;
    }
    template <typename Struct>
    Setting& addText(const char* key, QString Struct::*member, const QString& label, const QString& description)
    {
        Setting& setting = add<Struct>(key, label, description, Setting::Text);
        bind(
            setting, member, [](const QString& value) { return value; }, [](const QString& text) { return text; });
        return setting;
    }
    template <typename Struct>
    Setting& addBoolean(const char* key, bool Struct::*member, const QString& label, const QString& description)
    {
        Setting& setting = add<Struct>(key, label, description, Setting::Boolean);
        bind(
            setting, member, [](bool value) { return value ? QStringLiteral("true") : QStringLiteral("false"); },
            [](const QString& text) { return text == QLatin1String("true"); });
        return setting;
    }
    template <typename Struct>
    Setting& addInteger(const char* key, int Struct::*member, int least, int most, const QString& label,
                        const QString& description)
    {
        Setting& setting = add<Struct>(key, label, description, Setting::Integer);
        setting.least = least;
        setting.most = most;
        bind(
            setting, member, [](int value) { return QString::number(value); },
            [](const QString& text) { return text.toInt(); });
        return setting;
    }
    template <typename Struct>
    Setting& addReal(const char* key, double Struct::*member, double least, double most, const QString& label,
                     const QString& description)
    {
        Setting& setting = add<Struct>(key, label, description, Setting::Real);
        setting.least = least;
        setting.most = most;
        bind(
            setting, member, [](double value) { return QString::number(value, 'g', QLocale::FloatingPointShortest); },
            [](const QString& text) { return text.toDouble(); });
        return setting;
    }

    /// A member of another type: what reads and writes it is up to the caller.
    template <typename Struct>
    Setting& add(const char* key, const QString& label, const QString& description, Setting::Kind kind)
    {
        if (!m_defaults.has_value())
            m_defaults = Struct();
        m_settings.emplace_back();
        Setting& setting = m_settings.back();
        setting.key = QString::fromLatin1(key);
        setting.label = label;
        setting.description = description;
        setting.kind = kind;
        return setting;
    }

    const std::vector<Setting>& all() const { return m_settings; }
    /// The setting with that name, or with that one before; null when there is none.
    const Setting* find(const QString& key) const;
    /// The struct with its defaults; empty when no member is bound.
    const std::any& defaults() const { return m_defaults; }

private:
    template <typename Struct, typename Member, typename ToText, typename FromText>
    static void bind(Setting& setting, Member Struct::*member, ToText toText, FromText fromText)
    {
        setting.read = [member, toText](const std::any& value) {
            return toText(std::any_cast<const Struct&>(value).*member);
        };
        setting.write = [member, fromText](std::any& value, const QString& text) {
            std::any_cast<Struct&>(value).*member = fromText(text);
        };
    }

    std::vector<Setting> m_settings;
    std::any m_defaults;
};

} // namespace kpFormats
