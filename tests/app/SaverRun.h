// SPDX-License-Identifier: MIT
#pragma once

#include "app/jobs/ExportRun.h"
#include "app/readers/CoordinateSystems.h"
#include "tests/app/CancelAt.h"
#include "tests/app/FileContent.h"

#include <QFile>
#include <QProcess>
#include <QtTest>

#include <limits>

// What the tests of the savers share: small objects, and a run from settings to files and findings.

constexpr double none = std::numeric_limits<double>::quiet_NaN();

/// The vertices of a very long line. Under the address sanitizer every allocation of the readers takes its time.
#if defined(__SANITIZE_ADDRESS__)
constexpr int manyVertices = 50000;
#else
constexpr int manyVertices = 1000000;
#endif

/// An object from rows of x, y, z, all one part.
inline refhost::ModelObject objectOf(refhost::ObjectType type, const QString& name,
                                     const std::vector<std::array<double, 3>>& rows, const char* crs = "EPSG:4326")
{
    refhost::ModelObject object;
    object.type = type;
    object.name = name;
    object.set = QStringLiteral("S");
    object.crs = refhost::wktOf(QString::fromLatin1(crs));
    object.color = QColor(0, 127, 255);
    std::vector<double> columns[3];
    for (const auto& row : rows) {
        for (std::size_t axis = 0; axis < 3; ++axis)
            columns[axis].push_back(row[axis]);
    }
    object.x = std::make_shared<const std::vector<double>>(std::move(columns[0]));
    object.y = std::make_shared<const std::vector<double>>(std::move(columns[1]));
    object.z = std::make_shared<const std::vector<double>>(std::move(columns[2]));
    const bool area = type == refhost::ObjectType::Polygons;
    if (area || type == refhost::ObjectType::Polylines || type == refhost::ObjectType::Wells)
        object.parts = {{0, static_cast<int>(rows.size()), area, false}};
    return object;
}

/// A grid surface of heights, row by row from the south, with cells of one unit; NaN is a node without value.
inline refhost::ModelObject gridOf(const QString& name, int columns, const std::vector<double>& heights, double x0 = 0,
                                   double y0 = 0, double step = 1)
{
    std::vector<std::array<double, 3>> nodes;
    for (std::size_t node = 0; node < heights.size(); ++node)
        nodes.push_back({x0 + static_cast<double>(node % static_cast<std::size_t>(columns)) * step,
                         y0 + static_cast<double>(node / static_cast<std::size_t>(columns)) * step, heights[node]});
    refhost::ModelObject grid = objectOf(refhost::ObjectType::GridSurfaces, name, nodes);
    grid.grid = refhost::GridGeometry{columns, static_cast<int>(heights.size()) / columns, x0, y0, step, step, 0.0};
    return grid;
}

/// One run of a format over objects, with a read-back of each file written.
struct SaverRun
{
    using Settings = std::vector<std::pair<const char*, QString>>;

    SaverRun(const char* formatKey, const std::vector<refhost::ModelObject>& objects, const QString& path,
             const Settings& settings = {}, kpBase::AbstractProgress* progress = nullptr)
    {
        for (auto& candidate : refhost::makeFormats()) {
            if (candidate->info().key == QLatin1String(formatKey))
                format = std::move(candidate);
        }
        refhost::SettingsMap map = format->settings();
        for (const auto& setting : settings)
            map.set(QString::fromLatin1(setting.first), setting.second);
        refhost::ExportSelection selection;
        selection.path = path;
        for (const refhost::ModelObject& object : objects)
            selection.objects.push_back(&object);
        files = format->plan(selection);
        written = refhost::runExport(*format, selection, files, progress, report);
        for (std::size_t index = 0; written && index < files.size(); ++index)
            readBack.push_back(format->verify(files[index], files[index].path, selection));
    }

    QString error() const { return report.files().empty() ? QString() : report.files().front().error; }
    qint64 rows() const { return report.files().empty() ? -1 : report.files().front().rows; }
    /// "kind: count" of every finding, in order.
    QString findings() const
    {
        QStringList list;
        for (const refhost::Finding& finding : report.findings())
            list.append(QStringLiteral("%1: %2").arg(finding.kind).arg(finding.count));
        return list.join(QStringLiteral(", "));
    }
    /// The first fault that reading the files again has found.
    QString fault() const
    {
        if (!written)
            return QStringLiteral("not written: ") + error();
        for (const refhost::Verification& one : readBack) {
            if (!one.fault.isEmpty())
                return one.fault;
        }
        return {};
    }

    std::unique_ptr<refhost::ExportFormat> format;
    std::vector<refhost::PlannedFile> files;
    refhost::ExportReport report;
    std::vector<refhost::Verification> readBack;
    bool written = false;
};

/// Runs a validator of the shared folder beside the sources. \returns its complaint; "absent" when it is not there
inline QString validate(const QString& script, const QStringList& arguments)
{
    const QString path = QStringLiteral(KP_SOURCE_DIR "/../shared/validate/") + script;
    if (!QFile::exists(path))
        return QStringLiteral("absent");
    QProcess process;
    process.start(path, arguments);
    if (!process.waitForFinished(120000) || process.exitStatus() != QProcess::NormalExit)
        return QStringLiteral("did not run");
    if (process.exitCode() == 2)
        return QStringLiteral("absent");
    return process.exitCode() == 0 ? QString() : QString::fromUtf8(process.readAllStandardError());
}

#define KP_VALIDATE(script, ...)                                                                                       \
    do {                                                                                                               \
        const QString complaint = validate(QStringLiteral(script), QStringList{__VA_ARGS__});                          \
        if (complaint != QLatin1String("absent"))                                                                      \
            QVERIFY2(complaint.isEmpty(), qPrintable(complaint));                                                      \
    } while (false)
