// SPDX-License-Identifier: MIT
// Surfaces, meshes and cell grids of ten thousand to a million nodes or cells as GOCAD, OFF, ZMap+ and GRDECL, with
// fprintf and GDAL's ZMap driver on the same values in the same run.
#include "formats/gocad/GocadFormat.h"
#include "formats/grdecl/GrdeclFormat.h"
#include "formats/off/OffFormat.h"
#include "formats/zmap/ZMapFormat.h"

#include <QTemporaryDir>

#include <benchmark/benchmark.h>
#include <gdal_priv.h>

#include <cmath>
#include <cstdio>
#include <map>

namespace
{

using namespace kpFormats;

QString outputPath()
{
    static const QTemporaryDir folder;
    return folder.filePath(QStringLiteral("out.dat"));
}

double heightAt(int column, int row)
{
    return -1500.0 + 200.0 * std::sin(0.013 * column) * std::cos(0.017 * row) + 0.001 * column;
}

/// A square grid surface of that many nodes, with one attribute.
const ModelObject& surface(int64_t nodes)
{
    static std::map<int64_t, ModelObject> made;
    ModelObject& grid = made[nodes];
    if (grid.x)
        return grid;
    const int side = static_cast<int>(std::lround(std::sqrt(static_cast<double>(nodes))));
    std::vector<double> x;
    std::vector<double> y;
    std::vector<double> z;
    for (int row = 0; row < side; ++row) {
        for (int column = 0; column < side; ++column) {
            x.push_back(459000.0 + 25.0 * column);
            y.push_back(5934000.0 + 25.0 * row);
            z.push_back(heightAt(column, row));
        }
    }
    grid.name = QStringLiteral("surface");
    grid.type = ObjectType::GridSurfaces;
    AttributeColumn twt;
    twt.name = QStringLiteral("twt");
    twt.numbers = std::make_shared<const std::vector<double>>(z);
    grid.vertexAttributes.push_back(twt);
    grid.x = std::make_shared<const std::vector<double>>(std::move(x));
    grid.y = std::make_shared<const std::vector<double>>(std::move(y));
    grid.z = std::make_shared<const std::vector<double>>(std::move(z));
    GridGeometry geometry;
    geometry.columns = side;
    geometry.rows = side;
    geometry.originX = 459000.0;
    geometry.originY = 5934000.0;
    geometry.stepX = 25.0;
    geometry.stepY = 25.0;
    grid.grid = geometry;
    return grid;
}

/// That many cells in layers of a hundred by a hundred, every corner at a depth of its own.
const ModelObject& volume(int64_t cells)
{
    static std::map<int64_t, ModelObject> made;
    ModelObject& object = made[cells];
    if (object.cells)
        return object;
    CellGrid grid;
    grid.columns = 100;
    grid.rows = 100;
    grid.layers = static_cast<int>(cells / 10000);
    for (int j = 0; j <= grid.rows; ++j) {
        for (int i = 0; i <= grid.columns; ++i) {
            for (const double depth : {1500.0, 2500.0})
                grid.coord.insert(grid.coord.end(), {459000.0 + 50.0 * i, 5934000.0 + 50.0 * j, depth});
        }
    }
    for (int k = 0; k < 2 * grid.layers; ++k) {
        for (int j = 0; j < 2 * grid.rows; ++j) {
            for (int i = 0; i < 2 * grid.columns; ++i)
                grid.zcorn.push_back(-heightAt(i, j) + 2.5 * k);
        }
    }
    std::vector<double> porosity;
    for (int64_t cell = 0; cell < cells; ++cell)
        porosity.push_back(0.2 + 0.05 * std::sin(0.1 * static_cast<double>(cell)));
    AttributeColumn column;
    column.name = QStringLiteral("PORO");
    column.numbers = std::make_shared<const std::vector<double>>(std::move(porosity));
    grid.cellAttributes.push_back(column);
    object.name = QStringLiteral("volume");
    object.type = ObjectType::GeoCellularVolumes;
    object.cells = std::make_shared<const CellGrid>(std::move(grid));
    return object;
}

template <typename AFormat>
void write(benchmark::State& state, const ModelObject& object, const char* key = nullptr, const char* value = nullptr)
{
    const AFormat format;
    SettingsValue settings = format.defaults();
    if (key)
        settings.set(QString::fromLatin1(key), QString::fromLatin1(value));
    ExportSelection selection;
    selection.objects = {&object};
    const PlannedFile file{outputPath(), {&object}};
    for (auto step : state) {
        Findings findings;
        format.prepare(file, selection, settings, findings)->write(file.path, findings, nullptr);
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void gocadPoints(benchmark::State& state)
{
    write<GocadFormat>(state, surface(state.range(0)), "gridsAs", "points");
}

void gocadPointsFprintf(benchmark::State& state)
{
    const ModelObject& object = surface(state.range(0));
    for (auto step : state) {
        std::FILE* file = std::fopen(outputPath().toUtf8().constData(), "w");
        for (std::size_t node = 0; node < object.x->size(); ++node)
            std::fprintf(file, "PVRTX %zu %.4f %.4f %.4f %.17g\n", node + 1, (*object.x)[node], (*object.y)[node],
                         (*object.z)[node], (*object.vertexAttributes[0].numbers)[node]);
        std::fclose(file);
    }
}

void gocadSurface(benchmark::State& state)
{
    write<GocadFormat>(state, surface(state.range(0)));
}

void offSurface(benchmark::State& state)
{
    write<OffFormat>(state, surface(state.range(0)));
}

void offFprintf(benchmark::State& state)
{
    const ModelObject& object = surface(state.range(0));
    const int side = object.grid->columns;
    for (auto step : state) {
        std::FILE* file = std::fopen(outputPath().toUtf8().constData(), "w");
        for (std::size_t node = 0; node < object.x->size(); ++node)
            std::fprintf(file, "%.4f %.4f %.4f\n", (*object.x)[node], (*object.y)[node], (*object.z)[node]);
        for (int row = 0; row + 1 < side; ++row) {
            for (int column = 0; column + 1 < side; ++column) {
                const int node = row * side + column;
                std::fprintf(file, "3 %d %d %d\n3 %d %d %d\n", node, node + 1, node + side + 1, node, node + side + 1,
                             node + side);
            }
        }
        std::fclose(file);
    }
}

void zmap(benchmark::State& state)
{
    write<ZMapFormat>(state, surface(state.range(0)));
}

void zmapGdal(benchmark::State& state)
{
    GDALAllRegister();
    const ModelObject& object = surface(state.range(0));
    const int side = object.grid->columns;
    const GDALDatasetUniquePtr source(
        GetGDALDriverManager()->GetDriverByName("MEM")->Create("", side, side, 1, GDT_Float64, nullptr));
    double transform[6] = {459000.0 - 12.5, 25.0, 0.0, 5934000.0 + 25.0 * side - 12.5, 0.0, -25.0};
    source->SetGeoTransform(transform);
    for (int row = 0; row < side; ++row) {
        void* line = const_cast<double*>(object.z->data()
                                         + static_cast<std::size_t>(side - 1 - row) * static_cast<std::size_t>(side));
        if (source->GetRasterBand(1)->RasterIO(GF_Write, 0, row, side, 1, line, side, 1, GDT_Float64, 0, 0, nullptr)
            != CE_None)
            state.SkipWithError("GDAL took no line");
    }
    GDALDriver* driver = GetGDALDriverManager()->GetDriverByName("ZMap");
    for (auto step : state) {
        const GDALDatasetUniquePtr copy(
            driver->CreateCopy(outputPath().toUtf8().constData(), source.get(), FALSE, nullptr, nullptr, nullptr));
        if (!copy)
            state.SkipWithError("GDAL wrote no grid");
    }
}

void grdecl(benchmark::State& state)
{
    write<GrdeclFormat>(state, volume(state.range(0)));
}

void grdeclFprintf(benchmark::State& state)
{
    const CellGrid& grid = *volume(state.range(0)).cells;
    for (auto step : state) {
        std::FILE* file = std::fopen(outputPath().toUtf8().constData(), "w");
        const auto record = [file](const char* keyword, const std::vector<double>& numbers, const char* format) {
            std::fprintf(file, "%s\n", keyword);
            for (std::size_t index = 0; index < numbers.size(); ++index) {
                std::fprintf(file, format, numbers[index]);
                if (index % 8 == 7)
                    std::fputc('\n', file);
            }
            std::fputs("/\n", file);
        };
        record("COORD", grid.coord, " %.3f");
        record("ZCORN", grid.zcorn, " %.3f");
        record("PORO", *grid.cellAttributes[0].numbers, " %.17g");
        std::fclose(file);
    }
}

template <typename AFormat>
void verify(benchmark::State& state, const ModelObject& object)
{
    const AFormat format;
    ExportSelection selection;
    selection.objects = {&object};
    const PlannedFile planned{outputPath(), {&object}};
    Findings findings;
    const auto file = format.prepare(planned, selection, format.defaults(), findings);
    file->write(planned.path, findings, nullptr);
    for (auto step : state) {
        const std::optional<Verification> seen = file->verify(planned.path);
        if (!seen || !seen->good())
            state.SkipWithError("the file differs");
    }
}

void gocadVerify(benchmark::State& state)
{
    verify<GocadFormat>(state, surface(state.range(0)));
}

void grdeclVerify(benchmark::State& state)
{
    verify<GrdeclFormat>(state, volume(state.range(0)));
}

void sizes(benchmark::internal::Benchmark* bench)
{
    bench->Unit(benchmark::kMillisecond)->Arg(10000)->Arg(100000)->Arg(1000000);
}

void largest(benchmark::internal::Benchmark* bench)
{
    bench->Unit(benchmark::kMillisecond)->Arg(1000000);
}

BENCHMARK(gocadPoints)->Apply(sizes);
BENCHMARK(gocadPointsFprintf)->Apply(largest);
BENCHMARK(gocadSurface)->Apply(sizes);
BENCHMARK(offSurface)->Apply(sizes);
BENCHMARK(offFprintf)->Apply(largest);
BENCHMARK(zmap)->Apply(sizes);
BENCHMARK(zmapGdal)->Apply(largest);
BENCHMARK(grdecl)->Apply(sizes);
BENCHMARK(grdeclFprintf)->Apply(largest);
BENCHMARK(gocadVerify)->Apply(largest);
BENCHMARK(grdeclVerify)->Apply(largest);

} // namespace

BENCHMARK_MAIN();
