// SPDX-License-Identifier: MIT
#include "cli/JobFile.h"

#include "cli/CommandLine.h"
#include "cli/ExportCommand.h"
#include "cli/Terminal.h"

#include <QCommandLineParser>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <stdexcept>

namespace refhost
{

namespace
{

constexpr qint64 largestJobFile = 16 * 1024 * 1024;
constexpr qint64 blockSize = 1 << 16;

[[noreturn]] void fail(const QString& path, const QString& cause, const QString& cure)
{
    throw std::invalid_argument(QStringLiteral("%1: %2 (%3)").arg(path, cause, cure).toStdString());
}

QStringList textList(const QString& path, const QString& key, const QJsonValue& value)
{
    QStringList list;
    if (value.isString())
        return {value.toString()};
    for (const QJsonValue& entry : value.toArray()) {
        if (!entry.isString())
            fail(path, QStringLiteral("\"%1\" holds something other than text").arg(key),
                 QStringLiteral("give a list of texts"));
        list.append(entry.toString());
    }
    if (list.isEmpty())
        fail(path, QStringLiteral("\"%1\" is not a list of texts").arg(key), QStringLiteral("give a list of texts"));
    return list;
}

QString text(const QString& path, const QString& key, const QJsonValue& value)
{
    if (!value.isString())
        fail(path, QStringLiteral("\"%1\" is not text").arg(key), QStringLiteral("put its value in quotes"));
    return value.toString();
}

bool truth(const QString& path, const QString& key, const QJsonValue& value)
{
    if (!value.isBool())
        fail(path, QStringLiteral("\"%1\" is neither true nor false").arg(key), QStringLiteral("give one of them"));
    return value.toBool();
}

QString settingText(const QString& path, const QString& key, const QJsonValue& value)
{
    if (!value.isString() && !value.isBool() && !value.isDouble())
        fail(path, QStringLiteral("the setting \"%1\" is neither text nor a number, true or false").arg(key),
             QStringLiteral("give one of them"));
    return value.toVariant().toString();
}

/// A path as the job's folder sees it. Never the name of anything else: "http://..." is a file in a folder "http:".
QString inFolder(const QDir& folder, const QString& name)
{
    return name.isEmpty() || name.startsWith(QLatin1Char('/')) ? name : folder.path() + QLatin1Char('/') + name;
}

/// Where the report of a job goes, whatever else stands in it.
QString reportOf(const QString& path, const QJsonObject& job)
{
    const QJsonValue report = job.value(QLatin1String("report"));
    return report.isString() ? inFolder(QFileInfo(path).absoluteDir(), report.toString()) : QString();
}

ExportRequest requestOf(const QString& path, const QJsonObject& job)
{
    const QDir folder = QFileInfo(path).absoluteDir();
    ExportRequest request;
    request.jobFile = path;
    request.report = reportOf(path, job);
    for (auto member = job.begin(); member != job.end(); ++member) {
        const QString key = member.key();
        const QJsonValue value = member.value();
        if (key == QLatin1String("models")) {
            for (const QString& model : textList(path, key, value))
                request.models.append(inFolder(folder, model));
        } else if (key == QLatin1String("format")) {
            request.format = text(path, key, value);
        } else if (key == QLatin1String("output")) {
            request.output = inFolder(folder, text(path, key, value));
        } else if (key == QLatin1String("report")) {
            text(path, key, value);
        } else if (key == QLatin1String("layout")) {
            request.layout = inFolder(folder, text(path, key, value));
        } else if (key == QLatin1String("objects")) {
            request.objects = textList(path, key, value);
        } else if (key == QLatin1String("types")) {
            request.types = textList(path, key, value);
        } else if (key == QLatin1String("attributes")) {
            request.attributes = textList(path, key, value);
        } else if (key == QLatin1String("overwrite")) {
            request.overwrite = truth(path, key, value);
        } else if (key == QLatin1String("strict")) {
            request.strict = truth(path, key, value);
        } else if (key == QLatin1String("noAttributes")) {
            request.noAttributes = truth(path, key, value);
        } else if (key == QLatin1String("verify")) {
            request.verify = truth(path, key, value);
        } else if (key == QLatin1String("dryRun")) {
            request.dryRun = truth(path, key, value);
        } else if (key == QLatin1String("quiet")) {
            request.quiet = truth(path, key, value);
        } else if (key == QLatin1String("settings")) {
            if (!value.isObject())
                fail(path, QStringLiteral("\"settings\" is not an object { ... }"),
                     QStringLiteral("give the settings as its members"));
            const QJsonObject settings = value.toObject();
            for (auto setting = settings.begin(); setting != settings.end(); ++setting)
                request.settings.append({setting.key(), settingText(path, setting.key(), setting.value())});
        } else {
            fail(path, QStringLiteral("\"%1\" is not known").arg(key),
                 QStringLiteral("keys: models, format, output, objects, types, attributes, noAttributes, layout, "
                                "settings, overwrite, strict, verify, dryRun, quiet, report"));
        }
    }
    return request;
}

QJsonObject readJob(const QString& path)
{
    QFile file(path);
    if (QFileInfo(path).isDir() || !file.open(QIODevice::ReadOnly))
        fail(path, QStringLiteral("the job file cannot be read"), QStringLiteral("check the path and its permissions"));
    // A device has no size; what it gives is cut off behind the limit.
    QByteArray content;
    for (QByteArray part = file.read(blockSize); !part.isEmpty(); part = file.read(blockSize)) {
        content += part;
        if (content.size() > largestJobFile)
            fail(path, QStringLiteral("the file is larger than a job file can be"), QStringLiteral("check the path"));
    }
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(content, &error);
    if (error.error != QJsonParseError::NoError || !document.isObject())
        fail(path,
             QStringLiteral("line %1: %2").arg(content.left(error.offset).count('\n') + 1).arg(error.errorString()),
             QStringLiteral("correct the JSON there"));
    return document.object();
}

} // namespace

ExportRequest readJobFile(const QString& path)
{
    return requestOf(path, readJob(path));
}

int jobCommand(const QStringList& arguments)
{
    QCommandLineParser parser;
    for (const char* name : {"allow-network", "allow-outside"})
        parser.addOption({QString::fromLatin1(name), QString()});
    if (!parser.parse(QStringList(QStringLiteral("kpexport")) + arguments)
        || parser.positionalArguments().size() != 1) {
        printError(QStringLiteral("run: one job file is wanted (kpexport run JOB.json)"));
        return WrongUse;
    }
    ExportRequest request;
    request.jobFile = parser.positionalArguments().first();
    try {
        const QJsonObject job = readJob(request.jobFile);
        request.report = reportOf(request.jobFile, job);
        request = requestOf(request.jobFile, job);
        // A file cannot allow itself more.
        request.allowNetwork = parser.isSet(QStringLiteral("allow-network"));
        request.allowOutside = parser.isSet(QStringLiteral("allow-outside"));
        return runRequest(request);
    } catch (const std::invalid_argument& error) {
        return refuse(request, WrongUse, QString::fromUtf8(error.what()));
    }
}

} // namespace refhost
