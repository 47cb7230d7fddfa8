// SPDX-License-Identifier: MIT
#pragma once

#include "cli/CommandArguments.h"

namespace refhost
{

/// kpexport man: prints the manual page, for man and groff. \returns the exit code
int manualCommand(const CommandArguments& arguments);

} // namespace refhost
