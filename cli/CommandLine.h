// SPDX-License-Identifier: MIT
#pragma once

#include "cli/refhost.h"

#include <QStringList>

namespace refhost
{

/// Exit codes of the program.
enum ExitCode { AllWritten = 0, NotAllWritten = 1, WrongUse = 2, NothingMatched = 3, Cancelled = 4, SomethingLost = 5 };

/// Runs a command of the table, or --help. Never throws, never opens a dialog.
int runCommand(const QStringList& arguments);

} // namespace refhost
