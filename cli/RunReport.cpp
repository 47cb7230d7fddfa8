// SPDX-License-Identifier: MIT
#include "cli/RunReport.h"

#include "export/PreparedExport.h"
#include "geo/CoordinateSystems.h"

#include <QCoreApplication>
#include <QHash>
#include <QJsonArray>

namespace refhost
{

namespace
{

void addOrigin(QJsonObject& report, const ExportRequest& request, int exitCode)
{
    report.insert(QStringLiteral("schema"), QStringLiteral("kpexport-report-1"));
    report.insert(QStringLiteral("version"), QCoreApplication::applicationVersion());
    report.insert(QStringLiteral("inputs"), QJsonArray::fromStringList(request.models));
    report.insert(QStringLiteral("output"), request.output);
    report.insert(QStringLiteral("exitCode"), exitCode);
}

} // namespace

QJsonObject runReport(QJsonObject outcome, const PreparedExport& prepared, const ExportRequest& request, int exitCode)
{
    addOrigin(outcome, request, exitCode);
    QJsonArray objects;
    // Finding a system's name takes longer than all the rest.
    QHash<QString, QString> systems;
    for (const ModelObject* object : prepared.selection().objects) {
        auto system = systems.find(object->crs);
        if (system == systems.end())
            system = systems.insert(object->crs, crsName(object->crs));
        objects.append(QJsonObject{{QStringLiteral("id"), object->id},
                                   {QStringLiteral("name"), object->name},
                                   {QStringLiteral("source"), object->source},
                                   {QStringLiteral("system"), system.value()},
                                   {QStringLiteral("unit"), object->lengthUnit}});
    }
    outcome.insert(QStringLiteral("objects"), objects);
    QJsonObject settings;
    for (const Setting& setting : prepared.settings().settings())
        settings.insert(setting.key, prepared.settings().get(setting));
    outcome.insert(QStringLiteral("settings"), settings);
    return outcome;
}

QJsonObject refusedReport(const ExportRequest& request, int exitCode, const QString& error)
{
    QJsonObject report{{QStringLiteral("format"), request.format},
                       {QStringLiteral("cancelled"), false},
                       {QStringLiteral("files"), QJsonArray()},
                       {QStringLiteral("findings"), QJsonArray()},
                       {QStringLiteral("error"), error}};
    addOrigin(report, request, exitCode);
    return report;
}

} // namespace refhost
