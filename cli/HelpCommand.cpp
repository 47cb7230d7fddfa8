// SPDX-License-Identifier: MIT
#include "cli/HelpCommand.h"

#include "cli/CommandLine.h"
#include "cli/CommandTable.h"
#include "cli/Refusal.h"
#include "cli/Terminal.h"
#include "export/Suggestion.h"

#include <QFileInfo>

namespace refhost
{

namespace
{

constexpr int lineWidth = 79;
constexpr int textColumn = 24;

/// \a text in lines that begin at \a indent, the first one behind \a before.
QString paragraph(const QString& before, int indent, const QString& text)
{
    const bool fits = before.size() < indent || before.isEmpty();
    QString all = fits ? QString() : before + QLatin1Char('\n');
    QString line = fits ? before.leftJustified(indent) : QString(indent, QLatin1Char(' '));
    bool empty = true;
    for (const QString& word : QString(text).remove(QLatin1Char('`')).split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
        if (!empty && line.size() + 1 + word.size() > lineWidth) {
            all += line + QLatin1Char('\n');
            line = QString(indent, QLatin1Char(' '));
            empty = true;
        }
        line += (empty ? QString() : QStringLiteral(" ")) + word;
        empty = false;
    }
    return all + line + QLatin1Char('\n');
}

QString optionLine(const QString& usage, const QString& text)
{
    return paragraph(QStringLiteral("  ") + usage, textColumn, text);
}

QString exitCodes()
{
    QString text = QStringLiteral("\nExit codes:\n");
    for (const ExitMeaning& meaning : exitMeanings())
        text += optionLine(QString::number(meaning.code), QString::fromLatin1(meaning.text));
    return text;
}

} // namespace

QString programHelp()
{
    QString text = QStringLiteral("kpexport writes geological objects to files.\n\nUsage:\n");
    for (const Command& command : commandTable()) {
        if (!*command.summary)
            continue;
        text += optionLine(usageOf(command), QString::fromLatin1(command.summary));
    }
    text += optionLine(QStringLiteral("kpexport --version"), QStringLiteral("prints the version"));
    text += QStringLiteral("\nkpexport COMMAND --help lists the options of a command.\n");
    return text + exitCodes();
}

QString commandHelp(const Command& command)
{
    if (!*command.name)
        return programHelp();
    QString text = QStringLiteral("%1 [OPTION]...\n\n").arg(usageOf(command));
    QString what = QStringLiteral("kpexport %1 %2.").arg(QLatin1String(command.name), QLatin1String(command.summary));
    if (*command.details)
        what += QLatin1Char(' ') + QLatin1String(command.details) + QLatin1Char('.');
    text += paragraph(QString(), 0, what);
    text += QStringLiteral("\nOptions:\n");
    for (const Option& option : command.options) {
        const QString repeats = option.repeats() ? QStringLiteral("; may be repeated") : QString();
        if (*option.name)
            text += optionLine(option.usage(), QLatin1String(option.summary) + repeats);
    }
    return text + optionLine(QStringLiteral("-h, --help"), QStringLiteral("prints this"));
}

const Command& requireCommand(const QString& name)
{
    if (const Command* command = name.isEmpty() ? nullptr : findCommand(name))
        return *command;
    if (QFileInfo(name).isFile())
        throw Refusal(WrongUse,
                      QStringLiteral("%1: this is a file, no command (kpexport --model FILE opens it, kpexport convert "
                                     "FILE OUT writes it in another format)")
                          .arg(name));
    throw Refusal(WrongUse, QStringLiteral("%1: there is no such command (%2)")
                                .arg(name, suggestionFor(name, commandNames(), QStringLiteral("see kpexport --help"))));
}

int helpCommand(const CommandArguments& arguments)
{
    const QStringList names = arguments.words();
    if (names.isEmpty())
        printText(programHelp());
    for (const QString& name : names)
        printText(commandHelp(requireCommand(name)));
    return AllWritten;
}

} // namespace refhost
