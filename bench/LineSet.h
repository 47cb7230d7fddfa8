// SPDX-License-Identifier: MIT
#pragma once

#include "export/Format.h"

#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>
#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include <random>

/// One hundred thousand lines of twenty vertices, and the same written by a GDAL driver: what the benchmarks of the
/// vector formats share.
namespace LineSet
{

constexpr int lines = 100000;
constexpr int vertices = 20;

/// The lines as objects; \a scale is that of the coordinates, about \a x, \a y.
inline std::vector<kpFormats::ModelObject> make(double x, double y, double scale, const QString& crs)
{
    std::mt19937_64 random(1);
    std::uniform_real_distribution<double> part(-1, 1);
    std::vector<kpFormats::ModelObject> made(lines);
    for (int line = 0; line < lines; ++line) {
        kpFormats::ModelObject& object = made[static_cast<std::size_t>(line)];
        object.type = kpFormats::ObjectType::Polylines;
        object.name = QStringLiteral("Line %1").arg(line);
        object.set = QStringLiteral("Lines");
        object.color = QColor(line % 256, 100, 50);
        object.crs = crs;
        object.parts = {{0, vertices, false, false}};
        std::vector<double> columns[3];
        double place[3] = {x + scale * part(random), y + scale * part(random), 1000 * part(random)};
        for (int vertex = 0; vertex < vertices; ++vertex) {
            for (int axis = 0; axis < 3; ++axis) {
                place[axis] += (axis < 2 ? scale * 0.001 : 1.0) * part(random);
                columns[axis].push_back(place[axis]);
            }
        }
        object.x = std::make_shared<const std::vector<double>>(std::move(columns[0]));
        object.y = std::make_shared<const std::vector<double>>(std::move(columns[1]));
        object.z = std::make_shared<const std::vector<double>>(std::move(columns[2]));
    }
    return made;
}

inline QString outputPath(const char* extension)
{
    static const QTemporaryDir folder;
    return folder.filePath(QStringLiteral("out.")) + QString::fromLatin1(extension);
}

inline void countBytes(benchmark::State& state, const QString& path)
{
    state.counters["MB"] = static_cast<double>(QFile(path).size()) / 1e6;
    state.SetItemsProcessed(static_cast<int64_t>(state.iterations()) * lines * vertices);
}

/// The whole saver, as the command line and the wizard call it.
inline void saver(benchmark::State& state, const kpFormats::Format& format, const kpFormats::SettingsValue& settings,
                  const std::vector<kpFormats::ModelObject>& objects, const QString& path)
{
    kpFormats::ExportSelection selection;
    selection.path = path;
    for (const kpFormats::ModelObject& object : objects)
        selection.objects.push_back(&object);
    const kpFormats::PlannedFile file{path, selection.objects};
    for (auto step : state) {
        kpFormats::Findings findings;
        if (format.prepare(file, selection, settings, findings)->write(path, findings, nullptr) != lines)
            state.SkipWithError("not everything was written");
    }
    countBytes(state, path);
}

/// A GDAL driver through its C++ API.
inline void gdal(benchmark::State& state, const char* driverName, const std::vector<kpFormats::ModelObject>& objects,
                 const QString& path)
{
    GDALAllRegister();
    GDALDriver* driver = GetGDALDriverManager()->GetDriverByName(driverName);
    for (auto step : state) {
        QFile::remove(path);
        GDALDatasetUniquePtr dataset(driver->Create(path.toUtf8().constData(), 0, 0, 0, GDT_Unknown, nullptr));
        OGRLayer* layer = dataset->CreateLayer("lines", nullptr, wkbLineString25D, nullptr);
        const int name = layer->GetLayerDefn()->GetFieldIndex("Name");
        for (const kpFormats::ModelObject& object : objects) {
            const OGRFeatureUniquePtr feature(OGRFeature::CreateFeature(layer->GetLayerDefn()));
            if (name >= 0)
                feature->SetField(name, object.name.toUtf8().constData());
            auto line = std::make_unique<OGRLineString>();
            line->setPoints(vertices, object.x->data(), object.y->data(), object.z->data());
            feature->SetGeometryDirectly(line.release());
            if (layer->CreateFeature(feature.get()) != OGRERR_NONE)
                state.SkipWithError("GDAL refused a line");
        }
        dataset.reset();
    }
    countBytes(state, path);
}

} // namespace LineSet
