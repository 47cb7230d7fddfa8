// SPDX-License-Identifier: MIT
#include "cli/ManualPage.h"

#include "cli/CommandLine.h"
#include "cli/CommandTable.h"
#include "cli/ExportCommand.h"
#include "cli/FormatChoice.h"
#include "cli/Terminal.h"

#include <QCoreApplication>
#include <QRegularExpression>

namespace refhost
{

namespace
{

/// \a text of the tables as troff reads it: `code` in bold, links as their words.
QString troff(const char* text)
{
    static const QRegularExpression link(
        QStringLiteral("\\[([^\\]]+)\\]\\([^)]+\\.md[^)]*\\)|\\[([^\\]]+)\\]\\(#[^)]*\\)"));
    static const QRegularExpression code(QStringLiteral("`([^`]*)`"));
    QString made = QString::fromUtf8(text);
    made.replace(link, QStringLiteral("\\1\\2"));
    made.replace(QLatin1Char('\\'), QLatin1String("\\e")).replace(QLatin1Char('-'), QLatin1String("\\-"));
    made.replace(code, QStringLiteral("\\fB\\1\\fR"));
    return made.startsWith(QLatin1Char('.')) || made.startsWith(QLatin1Char('\'')) ? QStringLiteral("\\&") + made
                                                                                   : made;
}

QString troff(const QString& text)
{
    return troff(text.toUtf8().constData());
}

/// A paragraph under a term in bold.
QString term(const QString& head, const QString& text)
{
    return QStringLiteral(".TP\n.B %1\n%2\n").arg(troff(head), text);
}

QString sentences(const char* summary, const char* details, bool repeats = false)
{
    QString text = troff(summary) + QLatin1Char('.');
    text[0] = text[0].toUpper();
    if (*details)
        text += QLatin1Char(' ') + troff(details);
    if (!text.endsWith(QLatin1Char('.')))
        text += QLatin1Char('.');
    return repeats ? text + QStringLiteral(" May be repeated.") : text;
}

QString manualPage()
{
    QString page = QStringLiteral(".TH KPEXPORT 1 \"\" \"kpexport %1\" \"User Commands\"\n"
                                  ".SH NAME\nkpexport \\- write geological objects to files\n.SH SYNOPSIS\n.nf\n")
                       .arg(QCoreApplication::applicationVersion());
    for (const QString& name : commandNames()) {
        const Command& command = *findCommand(name);
        page += troff(usageOf(command)) + QLatin1String(command.options.empty() ? "\n" : " [OPTION]...\n");
    }
    page += troff(usageOf(commandTable().front())) + QStringLiteral("\n.fi\n.SH COMMANDS\n");
    for (const Command& command : commandTable()) {
        if (!*command.summary)
            continue;
        page += term(usageOf(command), sentences(command.summary, command.details));
        if (command.options.empty() || command.run == exportCommand || command.run == convertCommand)
            continue;
        QStringList usages;
        for (const Option& option : command.options)
            usages.append(QStringLiteral("\\fB%1\\fR").arg(troff(option.usage())));
        page += QStringLiteral(".IP\nOptions: %1.\n").arg(usages.join(QStringLiteral(", ")));
    }
    page += QStringLiteral(".SH OPTIONS\nOf \\fBexport\\fR, and but for \\fB\\-\\-output\\fR of \\fBconvert\\fR:\n");
    for (const Option& option : exportOptions()) {
        if (*option.name)
            page += term(option.usage(), sentences(option.summary, option.details, option.repeats()));
    }
    page += term(QStringLiteral("--json"),
                 QStringLiteral("Of \\fBformats\\fR and \\fBinspect\\fR: prints JSON, for programs."));
    page += QStringLiteral(".SH FORMATS\nThe settings of one are listed by \\fBkpexport formats\\fR \\fIKEY\\fR.\n");
    for (const auto& format : makeFormats())
        page += term(format->info().key,
                     troff(QStringLiteral("%1: %2").arg(format->info().displayName, format->info().patterns)));
    page += QStringLiteral(".SH EXIT STATUS\n");
    for (const ExitMeaning& meaning : exitMeanings())
        page += term(QString::number(meaning.code), troff(meaning.text));
    return page;
}

} // namespace

int manualCommand(const CommandArguments&)
{
    printText(manualPage());
    return AllWritten;
}

} // namespace refhost
