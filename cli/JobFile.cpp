// SPDX-License-Identifier: MIT
#include "cli/JobFile.h"

#include "cli/CommandLine.h"
#include "cli/CommandTable.h"
#include "cli/ExportCommand.h"
#include "cli/Refusal.h"
#include "cli/Terminal.h"
#include "export/Suggestion.h"
#include "export/TargetPath.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <array>
#include <cstdio>
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

/// A path as the job's folder sees it. Never the name of anything else: "http://..." is a file in a folder "http:". A
/// database stays what it is, and is refused.
QString inFolder(const QDir& folder, const QString& name)
{
    return name.isEmpty() || TargetPath::isDatabase(name) || name.startsWith(QLatin1Char('/'))
               ? name
               : folder.path() + QLatin1Char('/') + name;
}

/// Where the report of a job goes, whatever else stands in it.
QString reportOf(const QDir& folder, const QJsonObject& job)
{
    const QJsonValue report = job.value(QLatin1String("report"));
    return report.isString() ? inFolder(folder, report.toString()) : QString();
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

/// \a path is what messages call the job.
ExportRequest requestOf(const QString& path, const QDir& folder, const QJsonObject& job)
{
    ExportRequest request;
    request.report = reportOf(folder, job);
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

QByteArray contentOf(const QString& path)
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
    return content;
}

QJsonObject jobIn(const QString& path, const QByteArray& content)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(content, &error);
    if (error.error != QJsonParseError::NoError || !document.isObject())
        fail(path,
             QStringLiteral("line %1: %2").arg(content.left(error.offset).count('\n') + 1).arg(error.errorString()),
             QStringLiteral("correct the JSON there"));
    return document.object();
}

/// Runs the jobs of a command one after the other.
class JobRun
{
public:
    /// \a given is what the command allows beyond the jobs.
    JobRun(const ExportRequest& given, bool several)
        : m_given(given)
        , m_several(several)
    {
    }

    void runFile(const QString& path)
    {
        ExportRequest request;
        request.jobFile = path;
        run(path, QFileInfo(path).absoluteDir(), request, [&path] { return contentOf(path); });
    }

    /// A job a line; its paths are relative to the current directory.
    void runLines()
    {
        QFile input;
        if (!input.open(stdin, QIODevice::ReadOnly))
            throw Refusal(NotAllWritten,
                          QStringLiteral("standard input: it cannot be read (give it a file or a pipe)"));
        int number = 0;
        for (QByteArray line = input.readLine(largestJobFile); !line.isEmpty() && !cancelled();
             line = input.readLine(largestJobFile)) {
            ++number;
            if (!line.trimmed().isEmpty())
                run(QStringLiteral("line %1").arg(number), QDir::current(), {}, [&line] { return line; });
        }
    }

    bool cancelled() const { return m_worst == Cancelled; }
    int worst() const { return m_worst; }

private:
    template <typename Content>
    void run(const QString& name, const QDir& folder, ExportRequest request, const Content& content)
    {
        int code = AllWritten;
        const QString file = request.jobFile;
        try {
            const QJsonObject job = jobIn(name, content());
            request.report = reportOf(folder, job);
            request = requestOf(name, folder, job);
            request.jobFile = file;
            // A file cannot allow itself more.
            request.allowNetwork = m_given.allowNetwork;
            request.allowOutside = m_given.allowOutside;
            code = runRequest(request);
        } catch (const std::invalid_argument& error) {
            code = refuse(request, WrongUse, QString::fromUtf8(error.what()));
        }
        if (m_several)
            printFields({name, QStringLiteral("exit code %1").arg(code), meaningOf(code)});
        m_worst = worse(m_worst, code);
    }

    static QString meaningOf(int code)
    {
        for (const ExitMeaning& exit : exitMeanings()) {
            if (exit.code == code)
                return QString::fromLatin1(exit.text);
        }
        return {};
    }

    static int worse(int one, int other)
    {
        const auto rank = [](int code) {
            static const std::array<int, 6> order{AllWritten, SomethingLost, NothingMatched,
                                                  WrongUse,   NotAllWritten, Cancelled};
            return std::find(order.begin(), order.end(), code) - order.begin();
        };
        return rank(one) >= rank(other) ? one : other;
    }

    const ExportRequest& m_given;
    bool m_several;
    int m_worst = AllWritten;
};

} // namespace

ExportRequest readJobFile(const QString& path)
{
    ExportRequest request = requestOf(path, QFileInfo(path).absoluteDir(), jobIn(path, contentOf(path)));
    request.jobFile = path;
    return request;
}

int jobCommand(const CommandArguments& arguments)
{
    const QStringList words = arguments.words();
    if (words.isEmpty())
        throw Refusal(WrongUse, QStringLiteral("run: a job file is wanted (kpexport run JOB.json...)"));
    const QString lines = QStringLiteral("-");
    JobRun run(arguments.request(), words.size() > 1 || words.first() == lines);
    for (const QString& word : words) {
        if (word == lines)
            run.runLines();
        else
            run.runFile(pathOf(word));
        if (run.cancelled())
            break;
    }
    return run.worst();
}

} // namespace refhost
