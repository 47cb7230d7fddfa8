// SPDX-License-Identifier: MIT
#pragma once

#include "model/kpFormatsExport.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <initializer_list>
#include <stdexcept>
#include <vector>

namespace kpFormats
{

/// A setting that is unknown or has a value that it cannot take; what() names both and the cure.
class SettingsError : public std::runtime_error
{
public:
    explicit SettingsError(const QString& message)
        : std::runtime_error(message.toStdString())
    {
    }
};

/// One member of a settings struct as text: what the command line, job files and option pages share.
struct KPFORMATS_EXPORT Setting
{
    enum Kind { Choice, Text, Boolean, Integer, Real };

    QString key;
    QString description;
    Kind kind = Text;
    QStringList choices; ///< of a Choice
    double least = 0;    ///< of an Integer or Real
    double most = 0;
    std::function<QString()> get;
    std::function<void(const QString&)> set; ///< takes values that are valid only
};

/// The members of one settings struct by key. Bound to the struct that it was made for, which must outlive it.
class KPFORMATS_EXPORT SettingsMap
{
public:
    /// \a choices name the enumerators in order, from 0.
    template <typename Enum>
    void addChoice(const char* key, Enum& value, const QStringList& choices, const char* description)
    {
        Setting& setting = add(key, description, Setting::Choice);
        setting.choices = choices;
        setting.get = [&value, choices] { return choices.value(static_cast<int>(value)); };
        setting.set = [&value, choices](const QString& text) { value = static_cast<Enum>(choices.indexOf(text)); };
    }
    template <typename Enum>
    void addChoice(const char* key, Enum& value, std::initializer_list<const char*> choices, const char* description)
    {
        addChoice(key, value, texts(choices), description);
    }
    void addText(const char* key, QString& value, const char* description);
    void addBoolean(const char* key, bool& value, const char* description);
    void addInteger(const char* key, int& value, int least, int most, const char* description);
    void addReal(const char* key, double& value, double least, double most, const char* description);

    const std::vector<Setting>& settings() const { return m_settings; }
    /// The setting with that key, or null.
    const Setting* find(const QString& key) const;
    /// \throws SettingsError
    void set(const QString& key, const QString& value);

private:
    static QStringList texts(std::initializer_list<const char*> latin);
    Setting& add(const char* key, const char* description, Setting::Kind kind);

    std::vector<Setting> m_settings;
};

/// A setting's key as words for a person: "writeNullValue" is "Write null value".
KPFORMATS_EXPORT QString labelOf(const QString& key);

} // namespace kpFormats
