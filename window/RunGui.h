// SPDX-License-Identifier: MIT
#pragma once

#include "cli/refhost.h"

namespace refhost
{

/// Opens the program: "--model PATH" opens that file, more of them several, none the sample model.
/// \returns the exit code
int runGui(int& argc, char** argv);

} // namespace refhost
