// SPDX-License-Identifier: MIT
#pragma once

#include "cli/refhost.h"

#include <QStringList>

namespace refhost
{

/// kpexport inspect. \returns the exit code
int inspectCommand(const QStringList& arguments);
/// kpexport formats. \returns the exit code
int formatsCommand(const QStringList& arguments);

} // namespace refhost
