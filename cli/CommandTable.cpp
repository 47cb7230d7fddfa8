// SPDX-License-Identifier: MIT
#include "cli/CommandTable.h"

#include "cli/CommandLine.h"
#include "cli/Completion.h"
#include "cli/ExportCommand.h"
#include "cli/FormatsCommand.h"
#include "cli/HelpCommand.h"
#include "cli/InspectCommand.h"
#include "cli/JobFile.h"
#include "cli/ManualPage.h"

#include <algorithm>

namespace refhost
{

namespace
{

using Request = ExportRequest;

const Option allowNetwork{
    "allow-network",
    "",
    "",
    Option::Flag,
    &Request::allowNetwork,
    "files may name places in the network",
    "`\"crs\": \"http://...\"`, `/vsicurl/` in a `.vrt`, grids of PROJ. Off, nothing is called. A job file "
    "cannot allow it"};
const Option allowOutside{"allow-outside",
                          "",
                          "",
                          Option::Flag,
                          &Request::allowOutside,
                          "a model may name files outside its own folder",
                          "A job file cannot allow it"};
const Option json{"json", "", "", Option::Flag, {}, "prints JSON, for programs", ""};

/// What an export has apart from its words and output, which are the words here.
std::vector<Option> convertOptions()
{
    std::vector<Option> options;
    for (const Option& option : exportOptions()) {
        if (*option.name && option.kind != Option::Output)
            options.push_back(option);
    }
    return options;
}

std::vector<Command> makeCommands()
{
    return {
        {"",
         "",
         Option::Flag,
         "opens the program, with the sample model when none is named",
         "",
         {{"model", "FILE", "", Option::File, &Request::models, "a file to open",
           "A model file or any file that one can name"}},
         nullptr},
        {"formats",
         "[KEY]...",
         Option::FormatKey,
         "lists the formats and their settings",
         "All, or those of the keys: name, extensions, types of objects, each setting with its default and what "
         "it can be",
         {json},
         formatsCommand},
        {"inspect",
         "FILE...",
         Option::File,
         "lists what files hold",
         "Of each object its number, name, type, vertices, extent, coordinate system and attributes",
         {json, allowNetwork, allowOutside},
         inspectCommand},
        {"export", "FILE...", Option::File, "writes objects of files in a format",
         "A file to load is a model file (`*.kpmodel`) or anything that one can name", exportOptions(), exportCommand},
        {"convert", "IN OUT", Option::File, "writes a file again in another format",
         "The format is that of the extension of OUT; `kpexport export` does the same for several files",
         convertOptions(), convertCommand},
        {"run",
         "JOB.json...",
         Option::File,
         "carries out exports described in files",
         "`-` stands for standard input with a job a line, whose paths are relative to the current directory. With "
         "several jobs each leaves a line with its exit code, one that fails does not stop the others, and the exit "
         "code is the worst: 4, 1, 2, 3, 5, 0",
         {allowNetwork, allowOutside},
         jobCommand},
        {"completion",
         "SHELL",
         Option::ShellName,
         "prints what makes bash, zsh or fish complete its words",
         "`source <(kpexport completion bash)`, also in a start-up file of the shell",
         {},
         completionCommand},
        {"man", "", Option::Flag, "prints the manual page", "`kpexport man | man -l -`", {}, manualCommand},
        {"complete", "WORD...", Option::Flag, "", "", {}, completeCommand},
        {"help", "[COMMAND]", Option::CommandName, "explains the program or a command", "", {}, helpCommand},
    };
}

} // namespace

const std::vector<Option>& exportOptions()
{
    static const std::vector<Option> options{
        {"", "FILE", "models", Option::File, &Request::models, "files to load", ""},
        {"format", "KEY", "format", Option::FormatKey, &Request::format, "the format",
         "`kpexport formats` lists the keys. When left out, that of the output's extension, `ascii` for `.csv`; one "
         "that several "
         "formats have, such as `.tif`, is an error that lists them"},
        {"output", "PATH", "output", Option::Output, &Request::output, "the file or directory to write to; needed",
         "In a directory, files are named after their object or set where the format or its `grouping` makes "
         "several, else after the first model"},
        {"object", "NAME", "objects", Option::Text, &Request::objects, "only objects of that name",
         "`*` and `?` stand for any letters and any letter; `id:N` is the object with that number in `inspect`"},
        {"type", "TYPE", "types", Option::TypeKey, &Request::types, "only objects of that type",
         "`kpexport formats` lists the types"},
        {"attribute", "NAME", "attributes", Option::Text, &Request::attributes, "only that attribute",
         "Not together with `--layout`"},
        {"no-attributes", "", "noAttributes", Option::Flag, &Request::noAttributes, "coordinates only",
         "Not together with `--attribute` or `--layout`"},
        {"layout", "FILE", "layout", Option::File, &Request::layout, "a saved layout of an ASCII export",
         "`.klf` or `.fmt`; see [layouts](ascii-layout.md)"},
        {"set", "KEY=VALUE", "settings", Option::SettingText, &Request::settings, "a setting of the format",
         "`kpexport formats KEY` lists them. Wins over the layout"},
        {"overwrite", "", "overwrite", Option::Flag, &Request::overwrite, "replaces files that exist",
         "Else one that exists is an error, also one that has come during the run, and a sidecar"},
        {"keep-both", "", "keepBoth", Option::Flag, &Request::keepBoth, "keeps files that exist beside the new ones",
         "The new ones take names that are free: `name_2.csv`. The lines of the run and of `--dry-run` tell them"},
        {"no-overwrite", "", "", Option::Flag, {}, "says in words that files that exist are an error", ""},
        {"force", "", "force", Option::Flag, &Request::force, "writes a format under the extension of another",
         "Without it `--format off --output keep.gpkg` is an error"},
        {"verify", "", "verify", Option::Flag, &Request::verify,
         "compares each file with the model before it is put into place",
         "Reads it again by another route. The line of the file says what was compared, and the worst difference "
         "beside the one allowed. A device is noted as \"not verified\""},
        {"dry-run", "", "dryRun", Option::Flag, &Request::dryRun, "writes nothing and lists what would be written",
         "New or overwrite, vertices, a rough size, sidecars that go with the file; what the run will refuse, and "
         "what it will report as lost. The exit code is the run's, as far as that can be told [without "
         "writing](#what-a-dry-run-knows)"},
        {"strict", "", "strict", Option::Flag, &Request::strict, "exit code 5 when something was lost or changed",
         "Any finding, \"not verified\" among them"},
        {"report", "FILE.json", "report", Option::File, &Request::report, "writes what was done as JSON",
         "With `--dry-run` the plan. Never over a file that the run reads or writes, nor over anything that is "
         "not a plain file; over a file that is not a report only with `--overwrite`"},
        {"quiet", "", "quiet", Option::Flag, &Request::quiet, "prints errors only", ""},
        allowNetwork,
        allowOutside,
    };
    return options;
}

const std::vector<Command>& commandTable()
{
    static const std::vector<Command> commands = makeCommands();
    return commands;
}

const Command* findCommand(const QString& name)
{
    const std::vector<Command>& all = commandTable();
    const auto found = std::find_if(all.begin(), all.end(),
                                    [&name](const Command& command) { return QLatin1String(command.name) == name; });
    return found == all.end() ? nullptr : &*found;
}

QStringList commandNames()
{
    QStringList names;
    for (const Command& command : commandTable()) {
        if (*command.name && *command.summary)
            names.append(QString::fromLatin1(command.name));
    }
    return names;
}

QString usageOf(const Command& command)
{
    if (!*command.name)
        return QStringLiteral("kpexport [--model FILE]...");
    const QString usage = QStringLiteral("kpexport ") + QLatin1String(command.name);
    return *command.words ? usage + QLatin1Char(' ') + QLatin1String(command.words) : usage;
}

const std::vector<ExitMeaning>& exitMeanings()
{
    static const std::vector<ExitMeaning> meanings{
        {AllWritten, "all written (also with notes)"},
        {NotAllWritten, "something could not be read or written; the other files and objects are"},
        {WrongUse, "wrong use: an option, format, setting or job file that is not right"},
        {NothingMatched, "no object matched"},
        {Cancelled, "cancelled (Ctrl-C); earlier files are as they were"},
        {SomethingLost, "`--strict`, and something was lost"},
    };
    return meanings;
}

} // namespace refhost
