// SPDX-License-Identifier: MIT
#include "cli/JobFile.h"

#include "cli/CommandLine.h"
#include "cli/CommandTable.h"
#include "cli/ExportCommand.h"
#include "cli/Refusal.h"
#include "export/Suggestion.h"

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

SettingPairs settingPairs(const QString& path, const QString& key, const QJsonValue& value)
{
    if (!value.isObject())
        fail(path, QStringLiteral("\"%1\" is not an object { ... }").arg(key),
             QStringLiteral("give the settings as its members"));
    SettingPairs pairs;
    const QJsonObject settings = value.toObject();
    for (auto setting = settings.begin(); setting != settings.end(); ++setting)
        pairs.append({setting.key(), settingText(path, setting.key(), setting.value())});
    return pairs;
}

/// \throws std::invalid_argument when there is no such key
const Option& optionOf(const QString& path, const QString& key)
{
    QStringList keys;
    for (const Option& option : exportOptions()) {
        const QString jobKey = QString::fromLatin1(option.jobKey);
        if (!jobKey.isEmpty() && jobKey == key)
            return option;
        if (!jobKey.isEmpty())
            keys.append(jobKey);
    }
    fail(path, QStringLiteral("\"%1\" is not known").arg(key),
         suggestionFor(key, keys, QStringLiteral("keys: ") + keys.join(QStringLiteral(", "))));
}

ExportRequest requestOf(const QString& path, const QJsonObject& job)
{
    const QDir folder = QFileInfo(path).absoluteDir();
    ExportRequest request;
    request.jobFile = path;
    request.report = reportOf(path, job);
    for (auto entry = job.begin(); entry != job.end(); ++entry) {
        const QString key = entry.key();
        const QJsonValue value = entry.value();
        if (key == QLatin1String("schema")) {
            if (value != QLatin1String("kpexport-job-1"))
                fail(path, QStringLiteral("\"schema\" names another kind of file"),
                     QStringLiteral("write \"kpexport-job-1\", or leave it out"));
            continue;
        }
        const Option& option = optionOf(path, key);
        const auto placed = [&](const QString& name) { return option.isPath() ? inFolder(folder, name) : name; };
        if (const auto flag = std::get_if<bool ExportRequest::*>(&option.member)) {
            request.*(*flag) = truth(path, key, value);
        } else if (const auto word = std::get_if<QString ExportRequest::*>(&option.member)) {
            request.*(*word) = placed(text(path, key, value));
        } else if (const auto list = std::get_if<QStringList ExportRequest::*>(&option.member)) {
            for (const QString& each : textList(path, key, value))
                (request.*(*list)).append(placed(each));
        } else if (const auto pairs = std::get_if<SettingPairs ExportRequest::*>(&option.member)) {
            request.*(*pairs) = settingPairs(path, key, value);
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

int jobCommand(const CommandArguments& arguments)
{
    const QStringList files = arguments.words();
    if (files.size() != 1)
        throw Refusal(WrongUse, QStringLiteral("run: one job file is wanted (kpexport run JOB.json)"));
    ExportRequest request;
    request.jobFile = files.first();
    try {
        const QJsonObject job = readJob(request.jobFile);
        request.report = reportOf(request.jobFile, job);
        request = requestOf(request.jobFile, job);
        // A file cannot allow itself more.
        request.allowNetwork = arguments.request().allowNetwork;
        request.allowOutside = arguments.request().allowOutside;
        return runRequest(request);
    } catch (const std::invalid_argument& error) {
        return refuse(request, WrongUse, QString::fromUtf8(error.what()));
    }
}

} // namespace refhost
