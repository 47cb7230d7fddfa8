// SPDX-License-Identifier: MIT
#pragma once

#include "cli/Command.h"

namespace refhost
{

/// What an export can be given on the command line and in a job file, in the order of the help.
const std::vector<Option>& exportOptions();

/// Every command; the first is the program without one.
const std::vector<Command>& commandTable();
/// The command of that name; null when there is none.
const Command* findCommand(const QString& name);
/// The names of the commands that users are told of.
QStringList commandNames();

/// How it is called: "kpexport export FILE..."
QString usageOf(const Command& command);

/// One way how the program ends.
struct ExitMeaning
{
    int code;
    const char* text;
};
const std::vector<ExitMeaning>& exitMeanings();

} // namespace refhost
