// SPDX-License-Identifier: MIT
#pragma once

#include "cli/CommandArguments.h"

namespace refhost
{

/// kpexport inspect. \returns the exit code
int inspectCommand(const CommandArguments& arguments);

} // namespace refhost
