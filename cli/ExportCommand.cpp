// SPDX-License-Identifier: MIT
#include "cli/ExportCommand.h"
#include "export/CommonFindings.h"

#include "cli/CommandLine.h"
#include "cli/TerminalProgress.h"
#include "export/EstimatedSize.h"
#include "export/ExportPlan.h"
#include "export/ExportRun.h"
#include "readers/LoadError.h"
#include "readers/ModelLoader.h"

#include <QCommandLineParser>
#include <QFileInfo>
#include <QJsonDocument>
#include <QRegularExpression>
#include <QSaveFile>

#include <algorithm>

namespace refhost
{

namespace
{

bool matchesAny(const ModelObject& object, const QStringList& patterns)
{
    return std::any_of(patterns.begin(), patterns.end(), [&object](const QString& pattern) {
        if (object.name == pattern || pattern == QStringLiteral("id:%1").arg(object.id))
            return true;
        // A glob spans "/" in a name, which is no path.
        QString text = QRegularExpression::escape(pattern);
        text.replace(QLatin1String("\\*"), QLatin1String(".*")).replace(QLatin1String("\\?"), QLatin1String("."));
        return QRegularExpression(QRegularExpression::anchoredPattern(text),
                                  QRegularExpression::DotMatchesEverythingOption)
            .match(object.name)
            .hasMatch();
    });
}

std::unique_ptr<const Format> findFormat(const QString& key)
{
    QStringList keys;
    for (auto& format : makeFormats()) {
        if (format->info().key == key)
            return std::move(format);
        keys.append(format->info().key);
    }
    printError(QStringLiteral("%1: there is no such format (formats: %2)").arg(key, keys.join(QStringLiteral(", "))));
    return nullptr;
}

/// The objects that the request names and the format takes; notes those that it does not take.
std::vector<const ModelObject*> choose(const Model& model, const ExportRequest& request, const FormatInfo& info,
                                       Findings& findings)
{
    std::vector<const ModelObject*> chosen;
    qint64 refused = 0;
    QString example;
    for (const ModelObject& object : model.objects()) {
        if (!request.objects.isEmpty() && !matchesAny(object, request.objects))
            continue;
        if (!request.types.isEmpty() && !request.types.contains(QString::fromStdString(typeKey(object.type))))
            continue;
        if (std::find(info.types.begin(), info.types.end(), object.type) == info.types.end()) {
            if (refused++ == 0)
                example = object.name;
            continue;
        }
        chosen.push_back(&object);
    }
    findings.note(finding::typeNotTaken, QString(), refused, QStringLiteral("first %1").arg(example));
    return chosen;
}

bool checkRequest(const ExportRequest& request)
{
    if (request.models.isEmpty())
        printError(QStringLiteral("export: no file to export is named (give one or more)"));
    else if (request.format.isEmpty())
        printError(QStringLiteral("export: no format is given (add --format KEY)"));
    else if (request.output.isEmpty())
        printError(QStringLiteral("export: no output is given (add --output PATH)"));
    else if (request.noAttributes && !request.attributes.isEmpty())
        printError(QStringLiteral("export: --attribute and --no-attributes exclude each other (give one)"));
    else if (!request.layout.isEmpty() && (request.noAttributes || !request.attributes.isEmpty()))
        printError(QStringLiteral("export: a layout names its attributes itself (leave out --layout or --attribute)"));
    else {
        for (const QString& type : request.types) {
            if (!typeFromKey(type.toStdString())) {
                printError(QStringLiteral("%1: there is no such type (see kpexport formats)").arg(type));
                return false;
            }
        }
        return true;
    }
    return false;
}

bool writeReport(const QJsonObject& report, const ExportRequest& request)
{
    if (request.report.isEmpty())
        return true;
    QSaveFile file(request.report);
    const QByteArray text = QJsonDocument(report).toJson();
    if (file.open(QIODevice::WriteOnly) && file.write(text) == text.size() && file.commit())
        return true;
    printError(QStringLiteral("%1: the report could not be written: %2 (check the directory)")
                   .arg(request.report, file.errorString()));
    return false;
}

QString verifiedText(const FileOutcome& file)
{
    if (file.verification.reader.isEmpty())
        return {};
    return QStringLiteral("\tverified by %1, worst coordinate error %2")
        .arg(file.verification.reader)
        .arg(file.verification.worstError, 0, 'g', 3);
}

void printOutcomeErrors(const FileOutcome& file)
{
    for (const FailedObject& object : file.failedObjects)
        printError(QStringLiteral("%1: %2: left out: %3").arg(file.path, object.name, object.reason));
    if (!file.written())
        printError(QStringLiteral("%1: %2").arg(file.path, file.error));
}

void printFindings(const ExportReport& report, const char* before = "")
{
    for (const QString& line : report.findings.lines())
        std::fprintf(stderr, "kpexport: note: %s%s\n", before, line.toUtf8().constData());
}

int codeOf(const ExportReport& report, const ExportRequest& request)
{
    if (report.anyFailed())
        return NotAllWritten;
    return request.strict && !report.findings.isEmpty() ? SomethingLost : AllWritten;
}

/// The first file that exists and may not be replaced; empty when there is none.
QString protectedFile(const PreparedExport& prepared, const ExportRequest& request)
{
    const auto found =
        std::find_if(prepared.outputs().begin(), prepared.outputs().end(),
                     [](const PreparedExport::Output& output) { return QFileInfo(output.planned.path).isFile(); });
    return request.overwrite || found == prepared.outputs().end() ? QString() : found->planned.path;
}

void printProtected(const QString& path)
{
    printError(QStringLiteral("%1: the file exists already (add --overwrite to replace it)").arg(path));
}

/// What would be written. \returns the exit code that the run would have, as far as it can be told
int showPlan(const ExportPlan& plan, const ExportRequest& request)
{
    for (std::size_t index = 0; index < plan.outputs.size(); ++index) {
        const ExportPlan::Output& output = plan.outputs[index];
        const FileOutcome& outcome = plan.foreseen.files()[index];
        printOutcomeErrors(outcome);
        if (!outcome.written())
            continue;
        QString line = QStringLiteral("%1\t%2\t%3 vertices\tabout %4")
                           .arg(output.path, output.replaces ? QStringLiteral("overwrite") : QStringLiteral("new"))
                           .arg(output.vertices)
                           .arg(sizeText(output.bytes));
        if (!output.renamedFrom.isEmpty())
            line += QStringLiteral("\trenamed from %1").arg(output.renamedFrom);
        if (!output.sidecars.isEmpty())
            line += QStringLiteral("\twith %1").arg(output.sidecars.join(QStringLiteral(", ")));
        printLine(line);
    }
    if (!request.quiet) {
        printFindings(plan.foreseen, "the report will say: ");
        std::fprintf(stderr, "kpexport: note: nothing was written; planned: %s\n", plan.summary().toUtf8().constData());
    }
    return codeOf(plan.foreseen, request);
}

int exitCode(const ExportReport& report, const ExportRequest& request)
{
    if (report.cancelled) {
        printError(QStringLiteral("%1: the export was cancelled; earlier files are as they were (start it again)")
                       .arg(request.output));
        return Cancelled;
    }
    for (const FileOutcome& file : report.files()) {
        printOutcomeErrors(file);
        if (file.written() && !request.quiet)
            printLine(QStringLiteral("%1\t%2 rows\t%3 bytes").arg(file.path).arg(file.rows).arg(file.bytes)
                      + verifiedText(file));
    }
    if (!request.quiet)
        printFindings(report);
    return codeOf(report, request);
}

} // namespace

int runRequest(const ExportRequest& request)
{
    if (!checkRequest(request))
        return WrongUse;
    const std::unique_ptr<const Format> format = findFormat(request.format);
    if (!format)
        return WrongUse;
    SettingsValue settings = format->defaults();
    try {
        if (!request.layout.isEmpty())
            format->loadLayout(request.layout, settings);
        for (const auto& setting : request.settings)
            format->overrule(settings, setting.first, setting.second);
    } catch (const SettingsError& error) {
        printError(QString::fromUtf8(error.what()));
        return WrongUse;
    }

    TerminalProgress progress(request.quiet);
    Model model;
    LoadNotes notes;
    try {
        for (const QString& path : request.models)
            notes += loadInto(model, path);
    } catch (const LoadError& error) {
        printError(QString::fromUtf8(error.what()));
        return NotAllWritten;
    }
    Findings before;
    for (const QString& note : qAsConst(notes))
        before.note(finding::lostOnLoading, QString(), 1, note);
    ExportSelection selection;
    selection.objects = choose(model, request, format->info(), before);
    selection.path = request.output;
    if (!request.attributes.isEmpty())
        selection.attributes = request.attributes;
    if (request.noAttributes)
        selection.attributes = QStringList();
    if (selection.objects.empty()) {
        printError(QStringLiteral("no object matches (kpexport inspect lists the names and types)"));
        return NothingMatched;
    }

    selection.verify = request.verify;
    PreparedExport prepared(*format, std::move(selection), std::move(settings));
    prepared.findings = before;
    const QString existing = protectedFile(prepared, request);
    if (request.dryRun) {
        const ExportPlan plan = planOf(prepared);
        int code = showPlan(plan, request);
        if (!existing.isEmpty()) {
            printProtected(existing);
            code = NotAllWritten;
        }
        return writeReport(plan.toJson(request.format), request) ? code : NotAllWritten;
    }
    if (!existing.isEmpty()) {
        printProtected(existing);
        return NotAllWritten;
    }
    const ExportReport report = runExport(prepared, &progress);
    progress.progressFinished();
    const bool reported = writeReport(report.toJson(request.format), request);
    const int code = exitCode(report, request);
    return code == AllWritten && !reported ? NotAllWritten : code;
}

int exportCommand(const QStringList& arguments)
{
    QCommandLineParser parser;
    const auto value = [&parser](const char* name) {
        parser.addOption({QString::fromLatin1(name), QString(), QStringLiteral("value")});
    };
    for (const char* name : {"format", "output", "object", "type", "attribute", "layout", "set", "report"})
        value(name);
    for (const char* name : {"overwrite", "no-overwrite", "strict", "quiet", "verify", "dry-run", "no-attributes"})
        parser.addOption({QString::fromLatin1(name), QString()});
    if (!parser.parse(QStringList(QStringLiteral("kpexport")) + arguments)) {
        printError(parser.errorText() + QStringLiteral(" (see kpexport --help)"));
        return WrongUse;
    }
    ExportRequest request;
    request.models = parser.positionalArguments();
    request.format = parser.value(QStringLiteral("format"));
    request.output = parser.value(QStringLiteral("output"));
    request.objects = parser.values(QStringLiteral("object"));
    request.types = parser.values(QStringLiteral("type"));
    request.attributes = parser.values(QStringLiteral("attribute"));
    request.layout = parser.value(QStringLiteral("layout"));
    request.report = parser.value(QStringLiteral("report"));
    request.strict = parser.isSet(QStringLiteral("strict"));
    request.quiet = parser.isSet(QStringLiteral("quiet"));
    request.noAttributes = parser.isSet(QStringLiteral("no-attributes"));
    request.verify = parser.isSet(QStringLiteral("verify"));
    request.dryRun = parser.isSet(QStringLiteral("dry-run"));
    request.overwrite = parser.isSet(QStringLiteral("overwrite"));
    if (request.overwrite && parser.isSet(QStringLiteral("no-overwrite"))) {
        printError(QStringLiteral("--overwrite and --no-overwrite exclude each other (give one)"));
        return WrongUse;
    }
    for (const QString& setting : parser.values(QStringLiteral("set"))) {
        const int equals = setting.indexOf(QLatin1Char('='));
        if (equals < 1) {
            printError(QStringLiteral("--set %1: this is no setting (write KEY=VALUE)").arg(setting));
            return WrongUse;
        }
        request.settings.append({setting.left(equals), setting.mid(equals + 1)});
    }
    return runRequest(request);
}

} // namespace refhost
