// SPDX-License-Identifier: MIT
#include "cli/CommandLine.h"
#include "cli/StartUp.h"

#include <QCoreApplication>

/// The commands of the program, found by name: main() loads this module only when there is something to do.
extern "C" Q_DECL_EXPORT int kpexportCommands(int argc, char** argv)
{
    refhost::nameApplication();
    // Whatever the command line asks for is done without a window system.
    const QCoreApplication application(argc, argv);
    return refhost::runCommand(QCoreApplication::arguments().mid(1));
}
