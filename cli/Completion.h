// SPDX-License-Identifier: MIT
#pragma once

#include "cli/CommandArguments.h"

namespace refhost
{

/// What a word of the command line can be completed to.
struct Completion
{
    QString word;
    QString description;
};

/// The completions of the last of the \a words behind the program's name, which may be empty. One without a word stands for
/// the names of files.
std::vector<Completion> completionsOf(const QStringList& words);

/// kpexport completion: prints what makes a shell complete the program's words. \returns the exit code
int completionCommand(const CommandArguments& arguments);
/// kpexport complete: what those scripts ask. \returns the exit code
int completeCommand(const CommandArguments& arguments);

} // namespace refhost
