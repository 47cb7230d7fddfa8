// SPDX-License-Identifier: MIT
#pragma once

#include "model/kpFormatsExport.h"

#include <QHash>
#include <QString>
#include <QStringList>

#include <any>
#include <functional>
#include <vector>

namespace kpFormats
{

/// One value that a choice can have: its name in commands and files, and its text for a person.
struct SettingChoice
{
    QString key;
    QString text;
};

/// A name that a setting had before: still accepted, with the values of that time.
struct FormerSetting
{
    QString key;
    QHash<QString, QString> values; ///< what each former value is called now; others are the same
};

/// One member of a settings struct: what the command line, job files, pages and docs know of it.
struct KPFORMATS_EXPORT Setting
{
    enum Kind { Choice, Text, Boolean, Integer, Real };

    QString key;         ///< "writeNullValue", on the command line and in files
    QString label;       ///< "Write null value", on a page
    QString description; ///< what it does, in a few words
    Kind kind = Text;
    std::vector<SettingChoice> choices; ///< of a Choice
    bool isOutputSystem = false;        ///< a Text that names the system into which positions are brought
    double least = 0;                   ///< of an Integer or Real
    double most = 0;
    std::vector<FormerSetting> former;
    std::function<QString(const std::any&)> read;         ///< from the struct
    std::function<void(std::any&, const QString&)> write; ///< into the struct; takes values that are valid only

    QStringList choiceKeys() const;
    /// Whether it can be \a value.
    bool allows(const QString& value) const;
    /// What it can be, in words: "one of blank, tab", "a whole number from 0 to 17".
    QString allowedText() const;
};

} // namespace kpFormats
