// SPDX-License-Identifier: MIT
#include "cli/ExportCommand.h"

#include "cli/CommandLine.h"
#include "cli/ReportFile.h"
#include "cli/StartUp.h"
#include "cli/Terminal.h"
#include "cli/TerminalProgress.h"
#include "export/CommonFindings.h"
#include "export/EstimatedSize.h"
#include "export/ExportPlan.h"
#include "export/ExportRun.h"
#include "export/TargetPath.h"
#include "geo/CoordinateSystems.h"
#include "readers/LoadError.h"
#include "readers/ModelLoader.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonObject>
#include <QRegularExpression>

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
        // A glob spans "/" in a name, which is not a path.
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

/// A path of the command line. One that begins with a colon would be taken for something inside the program.
QString pathOf(const QString& argument)
{
    return argument.startsWith(QLatin1Char(':')) ? QStringLiteral("./") + argument : argument;
}

/// The files of a run, and those that can belong to them.
QStringList outputsOf(const PreparedExport& prepared)
{
    QStringList outputs;
    for (const PreparedExport::Output& output : prepared.outputs()) {
        const QFileInfo info(output.planned.path);
        outputs.append(info.filePath());
        for (const QString& extension : output.file ? output.file->sidecars() : QStringList())
            outputs.append(info.absolutePath() + QLatin1Char('/') + info.completeBaseName() + QLatin1Char('.')
                           + extension);
    }
    return outputs;
}

QString verifiedText(const FileOutcome& file)
{
    return QStringLiteral("verified by %1: %2; %3")
        .arg(file.verification->reader(), file.verification->comparedText(), file.verification->worstText());
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
        printNote(QLatin1String(before) + line);
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
        std::find_if(prepared.outputs().begin(), prepared.outputs().end(), [](const PreparedExport::Output& output) {
            return QFileInfo(output.planned.path).isFile() && !TargetPath(output.planned.path).isStream();
        });
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
        QStringList fields{output.path, output.replaces ? QStringLiteral("overwrite") : QStringLiteral("new"),
                           QStringLiteral("%1 vertices").arg(output.vertices),
                           QStringLiteral("about %1").arg(sizeText(output.bytes))};
        if (!output.renamedFrom.isEmpty())
            fields.append(QStringLiteral("renamed from %1").arg(output.renamedFrom));
        if (!output.sidecars.isEmpty())
            fields.append(QStringLiteral("with %1").arg(output.sidecars.join(QStringLiteral(", "))));
        printFields(fields);
    }
    if (!request.quiet) {
        printFindings(plan.foreseen, "the report will say: ");
        printNote(QStringLiteral("nothing was written; planned: %1").arg(plan.summary()));
    }
    return codeOf(plan.foreseen, request);
}

/// A report with what it is of: the program, its inputs, the objects and every setting.
QJsonObject withOrigin(QJsonObject report, const PreparedExport& prepared, const ExportRequest& request)
{
    report.insert(QStringLiteral("schema"), QStringLiteral("kpexport-report-1"));
    report.insert(QStringLiteral("version"), QCoreApplication::applicationVersion());
    report.insert(QStringLiteral("inputs"), QJsonArray::fromStringList(request.models));
    QJsonArray objects;
    for (const ModelObject* object : prepared.selection().objects) {
        objects.append(QJsonObject{{QStringLiteral("id"), object->id},
                                   {QStringLiteral("name"), object->name},
                                   {QStringLiteral("source"), object->source},
                                   {QStringLiteral("system"), crsName(object->crs)},
                                   {QStringLiteral("unit"), object->lengthUnit}});
    }
    report.insert(QStringLiteral("objects"), objects);
    QJsonObject settings;
    for (const Setting& setting : prepared.settings().settings())
        settings.insert(setting.key, prepared.settings().get(setting));
    report.insert(QStringLiteral("settings"), settings);
    return report;
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
        if (!file.written() || request.quiet)
            continue;
        QStringList fields{file.path, QStringLiteral("%1 rows").arg(file.rows),
                           QStringLiteral("%1 bytes").arg(file.bytes)};
        if (file.verification)
            fields.append(verifiedText(file));
        printFields(fields);
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
    limitLoading(request.allowNetwork, request.allowOutside);
    const std::unique_ptr<const Format> format = findFormat(request.format);
    if (!format)
        return WrongUse;
    SettingsValue settings = format->defaults();
    try {
        if (!request.layout.isEmpty())
            format->loadLayout(request.layout, settings);
        for (const auto& setting : request.settings)
            format->overrule(settings, setting.first, setting.second);
        format->requireUsable(settings);
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
    selection.sources = model.sources();
    if (!request.attributes.isEmpty())
        selection.attributes = request.attributes;
    if (request.noAttributes)
        selection.attributes = QStringList();
    if (selection.objects.empty()) {
        printError(QStringLiteral("no object matches (kpexport inspect lists the names and types)"));
        return NothingMatched;
    }

    selection.verify = request.verify;
    selection.overwrite = request.overwrite;
    QString told;
    selection.waiting = [&told, &request](const QString& holder) {
        if (!request.quiet && told != holder)
            printNote(QStringLiteral("waiting for %1, which moves files into the same directory").arg(holder));
        told = holder;
    };
    PreparedExport prepared(*format, std::move(selection), std::move(settings));
    prepared.findings = before;
    const ReportFile reportFile(request);
    const QString noReport = reportFile.refusal(model.sources(), outputsOf(prepared));
    if (!noReport.isEmpty()) {
        printError(noReport);
        return NotAllWritten;
    }
    const QString existing = protectedFile(prepared, request);
    if (request.dryRun) {
        const ExportPlan plan = planOf(prepared);
        int code = showPlan(plan, request);
        if (!existing.isEmpty()) {
            printProtected(existing);
            code = NotAllWritten;
        }
        return reportFile.write(withOrigin(plan.toJson(request.format), prepared, request)) ? code : NotAllWritten;
    }
    if (!existing.isEmpty()) {
        printProtected(existing);
        return NotAllWritten;
    }
    const ExportReport report = runExport(prepared, &progress);
    progress.progressFinished();
    const bool reported = reportFile.write(withOrigin(report.toJson(request.format), prepared, request));
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
    for (const char* name : {"overwrite", "no-overwrite", "strict", "quiet", "verify", "dry-run", "no-attributes",
                             "allow-network", "allow-outside"})
        parser.addOption({QString::fromLatin1(name), QString()});
    if (!parser.parse(QStringList(QStringLiteral("kpexport")) + arguments)) {
        printError(parser.errorText() + QStringLiteral(" (see kpexport --help)"));
        return WrongUse;
    }
    ExportRequest request;
    for (const QString& model : parser.positionalArguments())
        request.models.append(pathOf(model));
    request.format = parser.value(QStringLiteral("format"));
    request.output = pathOf(parser.value(QStringLiteral("output")));
    request.objects = parser.values(QStringLiteral("object"));
    request.types = parser.values(QStringLiteral("type"));
    request.attributes = parser.values(QStringLiteral("attribute"));
    request.layout = pathOf(parser.value(QStringLiteral("layout")));
    request.report = pathOf(parser.value(QStringLiteral("report")));
    request.strict = parser.isSet(QStringLiteral("strict"));
    request.quiet = parser.isSet(QStringLiteral("quiet"));
    request.noAttributes = parser.isSet(QStringLiteral("no-attributes"));
    request.verify = parser.isSet(QStringLiteral("verify"));
    request.dryRun = parser.isSet(QStringLiteral("dry-run"));
    request.allowNetwork = parser.isSet(QStringLiteral("allow-network"));
    request.allowOutside = parser.isSet(QStringLiteral("allow-outside"));
    request.overwrite = parser.isSet(QStringLiteral("overwrite"));
    if (request.overwrite && parser.isSet(QStringLiteral("no-overwrite"))) {
        printError(QStringLiteral("--overwrite and --no-overwrite exclude each other (give one)"));
        return WrongUse;
    }
    for (const QString& setting : parser.values(QStringLiteral("set"))) {
        const int equals = setting.indexOf(QLatin1Char('='));
        if (equals < 1) {
            printError(QStringLiteral("--set %1: this is not a setting (write KEY=VALUE)").arg(setting));
            return WrongUse;
        }
        request.settings.append({setting.left(equals), setting.mid(equals + 1)});
    }
    return runRequest(request);
}

} // namespace refhost
