// SPDX-License-Identifier: MIT
#pragma once

#include "cli/Command.h"

#include <QCommandLineParser>

namespace refhost
{

/// What stands behind the name of a command, by the options that it has.
class CommandArguments
{
public:
    CommandArguments(const Command& command, const QStringList& arguments);

    /// Why they were not understood; empty when they were. What was understood is there even so.
    const QString& error() const { return m_error; }
    bool has(const char* option) const { return m_parser.isSet(QString::fromLatin1(option)); }
    /// The words that are no options.
    QStringList words() const { return m_parser.positionalArguments(); }
    /// The export that the options describe, without the words.
    const ExportRequest& request() const { return m_request; }

private:
    void take(const Option& option);

    QCommandLineParser m_parser;
    QString m_error;
    ExportRequest m_request;
};

/// A path of the command line. One that begins with a colon would be taken for something inside the program.
QString pathOf(const QString& argument);

} // namespace refhost
