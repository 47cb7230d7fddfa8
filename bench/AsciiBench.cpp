// SPDX-License-Identifier: MIT
// One million rows of x, y, z and one attribute as separated text: our writer against GDAL's CSV driver, fprintf and
// the plain writing of the same bytes. All in one run, on the same values.
#include "core/GeoObject.h"
#include "host/data/DoubleMatrixData.h"
#include "host/data/VariantMatrixData.h"
#include "writers/MatrixDataAsciiExporter.h"

#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>
#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include <array>
#include <cstdio>
#include <random>

namespace
{

using kpBase::DoubleMatrixData;
using Columns = std::array<std::shared_ptr<const std::vector<double>>, 4>;

constexpr std::size_t rows = 1000000;
constexpr int decimals = 3;

const Columns& columns()
{
    static const Columns data = [] {
        std::mt19937_64 random(1);
        const double ranges[4][2] = {{500000, 600000}, {7400000, 7500000}, {-5000, 1000}, {0, 1}};
        Columns made;
        for (std::size_t column = 0; column < made.size(); ++column) {
            std::uniform_real_distribution<double> value(ranges[column][0], ranges[column][1]);
            std::vector<double> numbers(rows);
            for (double& number : numbers)
                number = value(random);
            made[column] = std::make_shared<const std::vector<double>>(std::move(numbers));
        }
        return made;
    }();
    return data;
}

QString outputPath()
{
    static const QTemporaryDir folder;
    return folder.filePath(QStringLiteral("out.csv"));
}

kpBase::MatrixData* matrix(std::size_t column, const char* name, bool block)
{
    const QString title = QString::fromLatin1(name);
    if (block)
        return new DoubleMatrixData(title, columns()[column]);
    QVector<QVariant> values;
    values.reserve(static_cast<int>(rows));
    for (const double number : *columns()[column])
        values.append(number);
    return new kpBase::VariantMatrixData(title, kpBase::MatrixData::Double, values);
}

void ours(benchmark::State& state, bool block)
{
    kpBaseExport::MatrixDataAsciiExporter writer;
    writer.separator = 2;
    writer.fields = {{QStringLiteral("x"), decimals},
                     {QStringLiteral("y"), decimals},
                     {QStringLiteral("z"), decimals},
                     {QStringLiteral("a"), decimals}};
    writer.geoObject()->vertexData() = {matrix(0, "x", block), matrix(0, "x", block), matrix(1, "y", block),
                                        matrix(2, "z", block)};
    writer.geoObject()->vertexAttributeData() = {matrix(3, "a", block)};
    for (auto step : state) {
        writer.headerPending = true;
        writer.write(outputPath());
    }
    state.SetItemsProcessed(static_cast<int64_t>(state.iterations()) * static_cast<int64_t>(rows));
}

void oursContiguous(benchmark::State& state)
{
    ours(state, true);
}

void oursVariant(benchmark::State& state)
{
    ours(state, false);
}

void fprintfLoop(benchmark::State& state)
{
    for (auto step : state) {
        std::FILE* file = std::fopen(outputPath().toUtf8().constData(), "w");
        std::fputs("x,y,z,a\n", file);
        for (std::size_t row = 0; row < rows; ++row)
            std::fprintf(file, "%.3f,%.3f,%.3f,%.3f\n", (*columns()[0])[row], (*columns()[1])[row],
                         (*columns()[2])[row], (*columns()[3])[row]);
        std::fclose(file);
    }
}

/// The bytes of the table, written in blocks of a megabyte.
void sameBytes(benchmark::State& state)
{
    QFile source(outputPath());
    if (!source.open(QIODevice::ReadOnly)) {
        state.SkipWithError("run it after a benchmark that writes the file");
        return;
    }
    const QByteArray bytes = source.readAll();
    source.close();
    constexpr int block = 1 << 20;
    for (auto step : state) {
        QFile file(outputPath());
        file.open(QIODevice::WriteOnly | QIODevice::Unbuffered);
        for (int offset = 0; offset < bytes.size(); offset += block)
            file.write(bytes.constData() + offset, std::min(block, bytes.size() - offset));
        file.close();
    }
}

void gdalCsv(benchmark::State& state)
{
    GDALAllRegister();
    GDALDriver* driver = GetGDALDriverManager()->GetDriverByName("CSV");
    for (auto step : state) {
        QFile::remove(outputPath());
        GDALDatasetUniquePtr dataset(driver->Create(outputPath().toUtf8().constData(), 0, 0, 0, GDT_Unknown, nullptr));
        OGRLayer* layer = dataset->CreateLayer("out", nullptr, wkbNone, nullptr);
        for (const char* name : {"x", "y", "z", "a"}) {
            OGRFieldDefn field(name, OFTReal);
            field.SetWidth(20);
            field.SetPrecision(decimals);
            layer->CreateField(&field);
        }
        const OGRFeatureUniquePtr feature(OGRFeature::CreateFeature(layer->GetLayerDefn()));
        for (std::size_t row = 0; row < rows; ++row) {
            for (int column = 0; column < 4; ++column)
                feature->SetField(column, (*columns()[static_cast<std::size_t>(column)])[row]);
            feature->SetFID(OGRNullFID);
            if (layer->CreateFeature(feature.get()) != OGRERR_NONE)
                state.SkipWithError("GDAL refused a row");
        }
    }
}

BENCHMARK(oursContiguous)->Unit(benchmark::kMillisecond);
BENCHMARK(sameBytes)->Unit(benchmark::kMillisecond);
BENCHMARK(oursVariant)->Unit(benchmark::kMillisecond);
BENCHMARK(fprintfLoop)->Unit(benchmark::kMillisecond);
BENCHMARK(gdalCsv)->Unit(benchmark::kMillisecond)->Iterations(1);

} // namespace

BENCHMARK_MAIN();
