// SPDX-License-Identifier: MIT
#include "cli/RequestText.h"

#include "cli/CommandTable.h"

#include <QJsonArray>
#include <QRegularExpression>

namespace refhost
{

namespace
{

/// \a text as one word of a POSIX shell.
QString quoted(const QString& text)
{
    static const QRegularExpression plain(QStringLiteral("\\A[A-Za-z0-9_./:=,+@%-]+\\z"));
    if (plain.match(text).hasMatch())
        return text;
    QString inner = text;
    inner.replace(QLatin1Char('\''), QLatin1String("'\\''"));
    return QLatin1Char('\'') + inner + QLatin1Char('\'');
}

} // namespace

QString commandLineOf(const ExportRequest& request)
{
    QStringList words{QStringLiteral("kpexport"), QStringLiteral("export")};
    // A name that begins like an option is one of a file in this directory.
    for (const QString& model : request.models)
        words.append(quoted(model.startsWith(QLatin1Char('-')) ? QStringLiteral("./") + model : model));
    const auto add = [&words](const Option& option, const QString& value) {
        if (!value.isEmpty())
            words << QStringLiteral("--") + QLatin1String(option.name) << quoted(value);
    };
    for (const Option& option : exportOptions()) {
        if (!*option.name)
            continue;
        if (const auto flag = std::get_if<bool ExportRequest::*>(&option.member)) {
            if (request.*(*flag))
                words << QStringLiteral("--") + QLatin1String(option.name);
        } else if (const auto text = std::get_if<QString ExportRequest::*>(&option.member)) {
            add(option, request.*(*text));
        } else if (const auto list = std::get_if<QStringList ExportRequest::*>(&option.member)) {
            for (const QString& value : request.*(*list))
                add(option, value);
        } else if (const auto pairs = std::get_if<SettingPairs ExportRequest::*>(&option.member)) {
            for (const auto& pair : request.*(*pairs))
                add(option, pair.first + QLatin1Char('=') + pair.second);
        }
    }
    return words.join(QLatin1Char(' '));
}

QJsonObject jobOf(const ExportRequest& request)
{
    QJsonObject job{{QStringLiteral("schema"), QStringLiteral("kpexport-job-1")}};
    for (const Option& option : exportOptions()) {
        const QLatin1String key(option.jobKey);
        if (key.isEmpty())
            continue;
        if (const auto flag = std::get_if<bool ExportRequest::*>(&option.member)) {
            if (request.*(*flag))
                job.insert(key, true);
        } else if (const auto text = std::get_if<QString ExportRequest::*>(&option.member)) {
            if (!(request.*(*text)).isEmpty())
                job.insert(key, request.*(*text));
        } else if (const auto list = std::get_if<QStringList ExportRequest::*>(&option.member)) {
            if (!(request.*(*list)).isEmpty())
                job.insert(key, QJsonArray::fromStringList(request.*(*list)));
        } else if (const auto pairs = std::get_if<SettingPairs ExportRequest::*>(&option.member)) {
            QJsonObject settings;
            for (const auto& pair : request.*(*pairs))
                settings.insert(pair.first, pair.second);
            if (!settings.isEmpty())
                job.insert(key, settings);
        }
    }
    return job;
}

} // namespace refhost
