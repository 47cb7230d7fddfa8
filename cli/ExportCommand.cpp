// SPDX-License-Identifier: MIT
#include "cli/ExportCommand.h"

#include "cli/CommandLine.h"
#include "cli/FormatChoice.h"
#include "cli/LoadingStop.h"
#include "cli/Refusal.h"
#include "cli/ReportFile.h"
#include "cli/RunReport.h"
#include "cli/StartUp.h"
#include "cli/Terminal.h"
#include "cli/TerminalProgress.h"
#include "export/CommonFindings.h"
#include "export/ExportPlan.h"
#include "export/ExportRun.h"
#include "export/SizeTrial.h"
#include "export/Suggestion.h"
#include "export/TargetPath.h"
#include "readers/LoadError.h"
#include "readers/ModelLoader.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>
#include <memory>

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

/// \throws Refusal when something is missing or contradicts the rest
void checkRequest(const ExportRequest& request)
{
    const auto require = [](bool holds, const char* otherwise) {
        if (!holds)
            throw Refusal(WrongUse, QString::fromLatin1(otherwise));
    };
    require(!request.models.isEmpty(), "export: no file to export is named (give one or more)");
    require(!request.output.isEmpty(), "export: no output is given (add --output PATH)");
    require(!request.noAttributes || request.attributes.isEmpty(),
            "export: --attribute and --no-attributes exclude each other (give one)");
    require(!request.overwrite || !request.keepBoth,
            "export: --overwrite and --keep-both exclude each other (give one)");
    require(request.layout.isEmpty() || (!request.noAttributes && request.attributes.isEmpty()),
            "export: a layout names its attributes itself (leave out --layout or --attribute)");
    for (const QString& type : request.types) {
        if (!typeFromKey(type.toStdString()))
            throw Refusal(WrongUse, QStringLiteral("%1: there is no such type (%2)")
                                        .arg(type, suggestionFor(type, allTypeKeys(),
                                                                 QStringLiteral("kpexport formats lists them"))));
    }
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

/// What stands in the way of the run: a file that exists and may not be replaced; empty when there is none.
QString protectedFile(const PreparedExport& prepared, const ExportRequest& request)
{
    const auto found =
        std::find_if(prepared.outputs().begin(), prepared.outputs().end(), [](const PreparedExport::Output& output) {
            return QFileInfo(output.planned.path).isFile() && !TargetPath(output.planned.path).isStream();
        });
    return request.overwrite || found == prepared.outputs().end()
               ? QString()
               : QStringLiteral("%1: the file exists already (add --overwrite to replace it, or --keep-both)")
                     .arg(found->planned.path);
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

QString cancelledText(const ExportRequest& request)
{
    return QStringLiteral("%1: the export was cancelled; earlier files are as they were (start it again)")
        .arg(request.output);
}

int exitCode(const ExportReport& report, const ExportRequest& request)
{
    if (report.cancelled) {
        printError(cancelledText(request));
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

/// \throws SettingsError
SettingsValue settingsOf(const ExportRequest& request, const Format& format)
{
    SettingsValue settings = format.defaults();
    if (!request.layout.isEmpty())
        format.loadLayout(request.layout, settings);
    for (const auto& setting : request.settings)
        format.overrule(settings, setting.first, setting.second);
    format.requireUsable(settings);
    return settings;
}

/// The format of the request, which its output's extension names when it does not. \throws Refusal
std::unique_ptr<const Format> formatOf(const ExportRequest& request)
{
    std::unique_ptr<const Format> format =
        findFormat(request.format.isEmpty() ? formatOfOutput(request.output) : request.format);
    const QString foreign = request.force ? QString() : foreignExtension(format->info(), request.output);
    if (!foreign.isEmpty())
        throw Refusal(WrongUse,
                      QStringLiteral("%1, and %2 would be written (choose another name or format, or add --force)")
                          .arg(foreign, format->info().key));
    return format;
}

/// Where the output goes: a directory gets a file named after the first model, unless each file has an object's name.
/// \throws Refusal when the directory is not there
QString outputPath(const ExportRequest& request, const Format& format, const ExportSelection& selection,
                   const SettingsValue& settings)
{
    const QFileInfo directory(request.output);
    if (!directory.isDir()) {
        if (request.output.endsWith(QLatin1Char('/')))
            throw Refusal(
                NotAllWritten,
                QStringLiteral("%1: there is no such directory (create it or choose another)").arg(request.output));
        return request.output;
    }
    const std::vector<PlannedFile> files = format.files(selection, settings);
    const bool named = std::none_of(files.begin(), files.end(), [&](const PlannedFile& file) {
        return QFileInfo(file.path).absoluteFilePath() == directory.absoluteFilePath() || QFileInfo(file.path).isDir();
    });
    if (named)
        return request.output;
    const QString name = QFileInfo(request.models.first()).completeBaseName();
    const QString path = QDir(request.output).path() + QLatin1Char('/') + name;
    // What follows a dot in the name is no extension.
    return name.contains(QLatin1Char('.')) ? path + QLatin1Char('.') + format.info().defaultExtension : path;
}

/// Takes what says how to reach a database, its password too, out of the request. \returns what is wrong with such a
/// request, or nothing
QString withoutDatabases(ExportRequest& request)
{
    const auto isDatabase = [](const QString& name) { return TargetPath::isDatabase(name); };
    const bool written = isDatabase(request.output) || isDatabase(request.report);
    const bool read =
        std::any_of(request.models.begin(), request.models.end(), isDatabase) || isDatabase(request.layout);
    const QString database = QStringLiteral("(a database)");
    for (QString* name : {&request.output, &request.report, &request.layout}) {
        if (isDatabase(*name))
            *name = name == &request.report ? QString() : database;
    }
    std::replace_if(request.models.begin(), request.models.end(), isDatabase, database);
    if (written)
        return QStringLiteral("the output names a database, and none is written to (write --format pgdump, and load "
                              "that with psql)");
    return read ? QStringLiteral("a file to load names a database, and none is read (save its tables as a GeoPackage, "
                                 "and name that)")
                : QString();
}

/// Carries the request out. \throws Refusal and other exceptions before anything is written
int run(const ExportRequest& request)
{
    checkRequest(request);
    limitLoading(request.allowNetwork, request.allowOutside);
    const std::unique_ptr<const Format> format = formatOf(request);
    SettingsValue settings = settingsOf(request, *format);

    TerminalProgress progress(request.quiet);
    auto stop =
        std::make_unique<LoadingStop>(progress, [&request] { refuse(request, Cancelled, cancelledText(request)); });
    Model model;
    LoadNotes notes;
    for (const QString& path : request.models)
        notes += loadInto(model, path);
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
    if (selection.objects.empty())
        throw Refusal(NothingMatched, QStringLiteral("no object matches (kpexport inspect lists the names and types)"));

    selection.path = outputPath(request, *format, selection, settings);
    selection.verify = request.verify;
    selection.overwrite = request.overwrite;
    selection.keepEarlier = request.keepBoth;
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
    if (!request.dryRun && !existing.isEmpty())
        throw Refusal(NotAllWritten, existing);
    stop.reset();
    int code = AllWritten;
    QJsonObject outcome;
    // It names each object, which takes its time where these are many.
    const bool reported = !request.report.isEmpty();
    if (request.dryRun) {
        const ExportPlan plan = planOf(prepared);
        code = showPlan(plan, request);
        if (!existing.isEmpty()) {
            printError(existing);
            code = NotAllWritten;
        }
        if (reported)
            outcome = plan.toJson(format->info().key);
    } else {
        const ExportReport report = runExport(prepared, &progress);
        progress.progressFinished();
        code = exitCode(report, request);
        if (reported)
            outcome = report.toJson(format->info().key);
    }
    const bool lost = reported && !reportFile.write(runReport(outcome, prepared, request, code));
    return code == AllWritten && lost ? NotAllWritten : code;
}

int runChecked(const ExportRequest& request, const CommandArguments& arguments)
{
    if ((request.overwrite || request.keepBoth) && arguments.has("no-overwrite"))
        return refuse(request, WrongUse,
                      QStringLiteral("--no-overwrite and %1 exclude each other (give one)")
                          .arg(request.overwrite ? QStringLiteral("--overwrite") : QStringLiteral("--keep-both")));
    return runRequest(request);
}

} // namespace

int refuse(const ExportRequest& given, int code, const QString& error)
{
    ExportRequest request = given;
    withoutDatabases(request);
    printError(error);
    const ReportFile file(request);
    const QString noReport = file.refusalWithoutRun();
    if (noReport.isEmpty())
        file.write(refusedReport(request, code, error));
    else
        printError(noReport);
    return code;
}

int runRequest(const ExportRequest& given)
{
    ExportRequest request = given;
    const QString database = withoutDatabases(request);
    if (!database.isEmpty())
        return refuse(request, WrongUse, database);
    try {
        return run(request);
    } catch (const Refusal& refusal) {
        return refuse(request, refusal.code(), QString::fromUtf8(refusal.what()));
    } catch (const SettingsError& error) {
        return refuse(request, WrongUse, QString::fromUtf8(error.what()));
    } catch (const std::exception& error) {
        return refuse(request, NotAllWritten, QString::fromUtf8(error.what()));
    }
}

ExportRequest exportRequest(const CommandArguments& arguments)
{
    ExportRequest request = arguments.request();
    for (const QString& model : arguments.words())
        request.models.append(pathOf(model));
    return request;
}

int exportCommand(const CommandArguments& arguments)
{
    return runChecked(exportRequest(arguments), arguments);
}

int convertCommand(const CommandArguments& arguments)
{
    ExportRequest request = arguments.request();
    const QStringList files = arguments.words();
    if (files.size() != 2)
        return refuse(request, WrongUse,
                      QStringLiteral("convert: a file to read and one to write are wanted (kpexport convert IN OUT)"));
    request.models = QStringList{pathOf(files[0])};
    request.output = pathOf(files[1]);
    return runChecked(request, arguments);
}

} // namespace refhost
