// SPDX-License-Identifier: MIT
#include "cli/CommandLine.h"

#include "cli/ExportCommand.h"
#include "cli/InspectCommand.h"
#include "cli/JobFile.h"
#include "cli/Terminal.h"

#include <cstdio>

namespace refhost
{

namespace
{

constexpr char usage[] =
    "kpexport writes geological objects to files.\n"
    "\n"
    "  kpexport [--model PATH]...          open the program (with the sample model)\n"
    "  kpexport formats [--json]           the formats and their settings\n"
    "  kpexport inspect PATH... [--json]   what the files hold\n"
    "  kpexport export PATH... --format KEY --output PATH\n"
    "           [--object NAME|GLOB]... [--type TYPE]... [--attribute NAME]... | --no-attributes\n"
    "           [--layout FILE.klf] [--set KEY=VALUE]... [--overwrite | --no-overwrite] [--strict]\n"
    "           [--verify] [--dry-run] [--report FILE.json] [--quiet]\n"
    "  with --allow-network files may name places in the network, with --allow-outside models\n"
    "  may name files outside their own folder; both also with inspect and run\n"
    "  kpexport run JOB.json               an export described in a file\n"
    "  kpexport --version | --help\n"
    "\n"
    "PATH is a model file (*.kpmodel) or any file that GDAL reads.\n"
    "Exit code: 0 all written, 1 something could not be written, 2 wrong use, 3 nothing matched,\n"
    "4 cancelled, 5 --strict and something was lost.\n";

int runNamed(const QString& command, const QStringList& rest)
{
    try {
        if (command == QLatin1String("--help") || command == QLatin1String("-h")) {
            std::fputs(usage, stdout);
            return AllWritten;
        }
        if (command == QLatin1String("formats"))
            return formatsCommand(rest);
        if (command == QLatin1String("inspect"))
            return inspectCommand(rest);
        if (command == QLatin1String("export"))
            return exportCommand(rest);
        if (command == QLatin1String("run"))
            return jobCommand(rest);
        printError(QStringLiteral("%1: there is no such command (see kpexport --help)").arg(command));
        return WrongUse;
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
