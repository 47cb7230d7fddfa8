// SPDX-License-Identifier: MIT
#include "cli/CommandLine.h"

#include "cli/ExportCommand.h"
#include "cli/HelpCommand.h"
#include "cli/Refusal.h"
#include "cli/Terminal.h"

namespace refhost
{

namespace
{

int runNamed(const QString& name, const QStringList& rest)
{
    try {
        if (name == QLatin1String("--help") || name == QLatin1String("-h")) {
            printText(programHelp());
            return AllWritten;
        }
        const Command& command = requireCommand(name);
        const CommandArguments arguments(command, rest);
        if (arguments.has("help")) {
            printText(commandHelp(command));
            return AllWritten;
        }
        if (!arguments.error().isEmpty())
            return refuse(exportRequest(arguments), WrongUse, arguments.error());
        return command.run(arguments);
    } catch (const Refusal& refusal) {
        printError(QString::fromUtf8(refusal.what()));
        return refusal.code();
    } catch (const std::exception& error) {
        printError(QString::fromUtf8(error.what()));
        return NotAllWritten;
    }
}

} // namespace

int runCommand(const QStringList& arguments)
{
    const int code = runNamed(arguments.value(0), arguments.mid(1));
    return finishOutput() || code != AllWritten ? code : NotAllWritten;
}

} // namespace refhost
