// SPDX-License-Identifier: MIT
#pragma once

#include "cli/CommandArguments.h"

namespace refhost
{

/// kpexport formats. \returns the exit code
int formatsCommand(const CommandArguments& arguments);

} // namespace refhost
