// SPDX-License-Identifier: MIT
#pragma once

#include "app/jobs/ExportRun.h"
#include "app/model/Model.h"
#include "app/readers/GdalSession.h"
#include "tests/app/CancelAt.h"
#include "tests/app/FileContent.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <array>
#include <cmath>

#include <ogrsf_frmts.h>

namespace refhost
{

/// A build with sanitizers is some thirty times as slow: it takes fewer steps.
#ifdef __SANITIZE_ADDRESS__
constexpr bool sanitized = true;
#else
constexpr bool sanitized = false;
#endif

inline std::unique_ptr<ExportFormat> formatOf(const QString& key, const QStringList& settings = {})
{
    for (auto& format : makeFormats()) {
        if (format->info().key != key)
            continue;
        SettingsMap map = format->settings();
        for (const QString& setting : settings)
            map.set(setting.section(QLatin1Char('='), 0, 0), setting.section(QLatin1Char('='), 1));
        return std::move(format);
    }
    return nullptr;
}

inline ExportSelection selectionOf(const Model& model, const QString& path)
{
    ExportSelection selection;
    for (const ModelObject& object : model.objects())
        selection.objects.push_back(&object);
    selection.path = path;
    return selection;
}

inline Numbers numbersOf(std::vector<double> values)
{
    return std::make_shared<const std::vector<double>>(std::move(values));
}

inline ModelObject objectOf(const QString& name, ObjectType type, std::vector<double> x, std::vector<double> y,
                            std::vector<double> z, std::vector<Part> parts = {})
{
    ModelObject object;
    object.name = name;
    object.type = type;
    object.x = numbersOf(std::move(x));
    object.y = numbersOf(std::move(y));
    object.z = numbersOf(std::move(z));
    object.parts = std::move(parts);
    return object;
}

inline AttributeColumn columnOf(const QString& name, AttributeKind kind, const QVector<QVariant>& values)
{
    AttributeColumn column;
    column.name = name;
    column.kind = kind;
    if (kind != AttributeKind::Real) {
        column.values = values;
        return column;
    }
    std::vector<double> numbers;
    std::vector<unsigned char> missing;
    for (const QVariant& value : values) {
        numbers.push_back(value.toDouble());
        missing.push_back(value.isNull() ? 1 : 0);
    }
    column.numbers = numbersOf(std::move(numbers));
    column.missing = std::make_shared<const std::vector<unsigned char>>(std::move(missing));
    return column;
}

inline qint64 countOf(const ExportReport& report, const QString& kind)
{
    qint64 count = 0;
    for (const Finding& finding : report.findings()) {
        if (finding.kind == kind)
            count += finding.count;
    }
    return count;
}

inline QString errorsOf(const ExportReport& report)
{
    QString text;
    for (const FileOutcome& file : report.files())
        text += file.error;
    return text;
}

inline GDALDatasetUniquePtr openVector(const QString& path)
{
    registerGdalDrivers();
    return GDALDatasetUniquePtr(GDALDataset::Open(path.toUtf8().constData(), GDAL_OF_VECTOR | GDAL_OF_READONLY));
}

using Positions = std::vector<std::array<double, 3>>;

/// Every line, ring or point of a geometry.
inline void addRuns(const OGRGeometry& geometry, std::vector<Positions>& runs)
{
    const auto add = [&runs](const OGRSimpleCurve& curve) {
        runs.emplace_back();
        for (int index = 0; index < curve.getNumPoints(); ++index)
            runs.back().push_back({curve.getX(index), curve.getY(index), curve.getZ(index)});
    };
    switch (wkbFlatten(geometry.getGeometryType())) {
    case wkbPoint:
        runs.push_back({{geometry.toPoint()->getX(), geometry.toPoint()->getY(), geometry.toPoint()->getZ()}});
        break;
    case wkbLineString:
        add(*geometry.toLineString());
        break;
    case wkbPolygon:
        for (const OGRLinearRing* ring : *geometry.toPolygon())
            add(*ring);
        break;
    default:
        for (const OGRGeometry* part : *geometry.toGeometryCollection())
            addRuns(*part, runs);
    }
}

/// All files of a folder and their contents.
inline QMap<QString, QByteArray> contentsOf(const QString& folder)
{
    QMap<QString, QByteArray> contents;
    for (const QString& name : QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot))
        contents.insert(name, contentOf(folder + QLatin1Char('/') + name));
    return contents;
}

} // namespace refhost
