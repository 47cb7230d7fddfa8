// SPDX-License-Identifier: MIT
#pragma once

#include "cli/CommandArguments.h"

namespace refhost
{

/// kpexport help. \returns the exit code
int helpCommand(const CommandArguments& arguments);
/// What the program is called with and what its commands do.
QString programHelp();
/// How the command is called, and its options.
QString commandHelp(const Command& command);
/// \throws Refusal when there is no command of that name
const Command& requireCommand(const QString& name);

} // namespace refhost
