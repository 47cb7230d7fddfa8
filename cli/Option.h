// SPDX-License-Identifier: MIT
#pragma once

#include "cli/ExportRequest.h"

#include <variant>

namespace refhost
{

/// One thing that a command can be given, and everything that is known of it: parser, job files, help, manual, completion
/// and documentation read this. One without a name stands for the words that are no options.
struct Option
{
    /// What its value is, which says what completes it and how it is read.
    enum Kind { Flag, Text, File, Output, FormatKey, TypeKey, SettingText, CommandName, ShellName };
    /// Where an export has it.
    using Member = std::variant<std::monostate, bool ExportRequest::*, QString ExportRequest::*,
                                QStringList ExportRequest::*, SettingPairs ExportRequest::*>;

    const char* name;   ///< "dry-run"
    const char* value;  ///< "KEY", in the help; empty for a flag
    const char* jobKey; ///< "dryRun", in job files; empty where a job file cannot have it
    Kind kind;
    Member member;
    const char* summary; ///< half a sentence
    const char* details; ///< sentences behind it in the manual and the documentation, with `code`; may be empty

    bool isPath() const { return kind == File || kind == Output; }
    /// Whether it can be given more than once.
    bool repeats() const
    {
        return std::holds_alternative<QStringList ExportRequest::*>(member)
               || std::holds_alternative<SettingPairs ExportRequest::*>(member);
    }
    /// "--format KEY", "FILE"
    QString usage() const
    {
        const QString dashed = *name ? QStringLiteral("--") + QLatin1String(name) : QString();
        const QString shown = QString::fromLatin1(value);
        return dashed.isEmpty() || shown.isEmpty() ? dashed + shown : dashed + QLatin1Char(' ') + shown;
    }
};

} // namespace refhost
