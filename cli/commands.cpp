// SPDX-License-Identifier: MIT
#include "cli/CommandLine.h"
#include "cli/StartUp.h"
#include "cli/Terminal.h"

#include <QCoreApplication>

#include <csignal>

/// The commands of the program, found by name: main() loads this module only when there is something to do.
extern "C" Q_DECL_EXPORT int kpexportCommands(int argc, char** argv)
{
    refhost::nameApplication();
    // Whatever the command line asks for is done without a window system.
    const QCoreApplication application(argc, argv);
    // A reader that has seen enough is no reason to stop half-way.
    std::signal(SIGPIPE, SIG_IGN);
    if (const int number = refhost::foreignArgument(argc, argv)) {
        refhost::printError(QStringLiteral("argument %1 is not UTF-8 (give the file another name)").arg(number));
        return refhost::WrongUse;
    }
    return refhost::runCommand(QCoreApplication::arguments().mid(1));
}
