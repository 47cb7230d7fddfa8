// SPDX-License-Identifier: MIT
// A cross-section of two million points as OpenTecLink: our writer against a plain loop over an output stream. All in one
// run, on the same values; the bytes are the same.
#include "core/GeoObject.h"
#include "host/data/DoubleMatrixData.h"
#include "writers/MatrixDataOpenTecLinkExporter.h"

#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <fstream>
#include <random>

namespace
{

using Numbers = std::shared_ptr<const std::vector<double>>;

constexpr std::size_t points = 2000000;

const Numbers& column(std::size_t number)
{
    static const std::array<Numbers, 3> columns = [] {
        std::mt19937_64 random(1);
        std::uniform_real_distribution<double> value(-5000, 100000);
        std::array<Numbers, 3> made;
        for (Numbers& numbers : made) {
            std::vector<double> values(points);
            for (double& one : values)
                one = value(random);
            numbers = std::make_shared<const std::vector<double>>(std::move(values));
        }
        return made;
    }();
    return columns[number];
}

QString outputPath(const char* name)
{
    static const QTemporaryDir folder;
    return folder.filePath(QString::fromLatin1(name));
}

void writer(benchmark::State& state)
{
    kpBaseExport::MatrixDataOpenTecLinkExporter exporter;
    exporter.geoObject()->sectionData().push_back(new kpBase::DoubleMatrixData(
        QStringLiteral("H"), std::vector<kpBase::DoubleMatrixData::Column>{
                                 {column(0), nullptr}, {column(1), nullptr}, {column(2), nullptr}}));
    for (auto step : state)
        exporter.write(outputPath("ours"));
    state.SetItemsProcessed(static_cast<int64_t>(state.iterations()) * static_cast<int64_t>(points));
}

void iostreamLoop(benchmark::State& state)
{
    for (auto step : state) {
        std::ofstream out(outputPath("loop").toStdString());
        out.setf(std::ios::fixed, std::ios::floatfield);
        out.precision(2);
        out << "version 1.0\n\nunit_z_depth meter\nunit_xy_section_position meter\n\n"
            << "open_tec_link_section SectionDummy\n\nsection_age " << 0.0
            << "\n\nsegment\nname H\ncolor_rgb \ntype \npoints\n";
        for (std::size_t row = 0; row < points; ++row)
            out << "xyz " << (*column(0))[row] << ' ' << (*column(1))[row] << ' ' << -(*column(2))[row] << '\n';
        out << "points-end\nsegment-end\n\nopen_tec_link_section-end\n\n";
    }
    QFile ours(outputPath("ours"));
    QFile loop(outputPath("loop"));
    if (!ours.open(QIODevice::ReadOnly) || !loop.open(QIODevice::ReadOnly) || ours.readAll() != loop.readAll())
        state.SkipWithError("the bytes differ");
}

BENCHMARK(writer)->Unit(benchmark::kMillisecond);
BENCHMARK(iostreamLoop)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
