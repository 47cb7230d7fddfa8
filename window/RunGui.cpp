// SPDX-License-Identifier: MIT
#include "window/RunGui.h"

#include "cli/CommandArguments.h"
#include "cli/CommandLine.h"
#include "cli/CommandTable.h"
#include "cli/HelpCommand.h"
#include "cli/Terminal.h"
#include "window/MainWindow.h"

#include <QApplication>
#include <QFileInfo>

namespace refhost
{

int runGui(int& argc, char** argv)
{
    const QApplication application(argc, argv);
    const CommandArguments arguments(commandTable().front(), QApplication::arguments().mid(1));
    if (arguments.has("help")) {
        printText(programHelp());
        return finishOutput() ? AllWritten : NotAllWritten;
    }
    if (!arguments.error().isEmpty()) {
        printError(arguments.error());
        return WrongUse;
    }
    HostContext context;
    MainWindow window(context);
    window.show();
    if (QFileInfo::exists(QStringLiteral(KP_SAMPLE_MODEL)))
        window.offerSample(QStringLiteral(KP_SAMPLE_MODEL));
    if (!arguments.request().models.isEmpty())
        window.openModels(arguments.request().models);
    return QApplication::exec();
}

} // namespace refhost
