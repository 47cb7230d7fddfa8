// SPDX-License-Identifier: MIT
#include "cli/RequestText.h"

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
    const auto option = [&words](const char* name, const QString& value) {
        if (!value.isEmpty())
            words << QLatin1String(name) << quoted(value);
    };
    const auto options = [&option](const char* name, const QStringList& values) {
        for (const QString& value : values)
            option(name, value);
    };
    const auto flag = [&words](const char* name, bool on) {
        if (on)
            words << QLatin1String(name);
    };
    option("--format", request.format);
    option("--output", request.output);
    options("--object", request.objects);
    options("--type", request.types);
    options("--attribute", request.attributes);
    flag("--no-attributes", request.noAttributes);
    option("--layout", request.layout);
    for (const auto& setting : request.settings)
        option("--set", setting.first + QLatin1Char('=') + setting.second);
    flag("--overwrite", request.overwrite);
    flag("--strict", request.strict);
    flag("--verify", request.verify);
    flag("--dry-run", request.dryRun);
    flag("--allow-network", request.allowNetwork);
    flag("--allow-outside", request.allowOutside);
    option("--report", request.report);
    flag("--quiet", request.quiet);
    return words.join(QLatin1Char(' '));
}

QJsonObject jobOf(const ExportRequest& request)
{
    QJsonObject job{{QStringLiteral("models"), QJsonArray::fromStringList(request.models)},
                    {QStringLiteral("format"), request.format},
                    {QStringLiteral("output"), request.output}};
    const auto list = [&job](const char* key, const QStringList& values) {
        if (!values.isEmpty())
            job.insert(QLatin1String(key), QJsonArray::fromStringList(values));
    };
    const auto text = [&job](const char* key, const QString& value) {
        if (!value.isEmpty())
            job.insert(QLatin1String(key), value);
    };
    const auto flag = [&job](const char* key, bool on) {
        if (on)
            job.insert(QLatin1String(key), true);
    };
    list("objects", request.objects);
    list("types", request.types);
    list("attributes", request.attributes);
    flag("noAttributes", request.noAttributes);
    text("layout", request.layout);
    if (!request.settings.isEmpty()) {
        QJsonObject settings;
        for (const auto& setting : request.settings)
            settings.insert(setting.first, setting.second);
        job.insert(QStringLiteral("settings"), settings);
    }
    flag("overwrite", request.overwrite);
    flag("strict", request.strict);
    flag("verify", request.verify);
    flag("dryRun", request.dryRun);
    flag("quiet", request.quiet);
    text("report", request.report);
    return job;
}

} // namespace refhost
