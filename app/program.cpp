// SPDX-License-Identifier: MIT
#include "app/commands/CommandLine.h"
#include "app/ui/RunGui.h"

#include <QCoreApplication>
#include <QTextCodec>

/// The program itself, found by name: main() loads this module only when there is something to do.
extern "C" Q_DECL_EXPORT int kpexportProgram(int argc, char** argv)
{
    // Paths and names are UTF-8 whatever locale the program is started in.
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
    // Whatever the command line asks for is done without a window system.
    QStringList arguments;
    for (int index = 1; index < argc; ++index)
        arguments.append(QString::fromLocal8Bit(argv[index]));
    QCoreApplication::setOrganizationName(QStringLiteral("kpexport"));
    QCoreApplication::setApplicationName(QStringLiteral("kpexport"));
    QCoreApplication::setApplicationVersion(QStringLiteral(KP_VERSION));
    if (!refhost::isCommand(arguments))
        return refhost::runGui(argc, argv);
    const QCoreApplication application(argc, argv);
    return refhost::runCommand(QCoreApplication::arguments().mid(1));
}
