// SPDX-License-Identifier: MIT
// One hundred thousand lines of twenty vertices with heights as KML: our saver and writer against GDAL's drivers. All in
// one run, on the same values.
#include "bench/LineSet.h"
#include "formats/kml/KmlFormat.h"
#include "geo/CoordinateSystems.h"
#include "writers/MatrixDataKMLExporter.h"

namespace
{

const std::vector<kpFormats::ModelObject>& degrees()
{
    static const std::vector<kpFormats::ModelObject> data =
        LineSet::make(117, -22, 0.5, kpFormats::wktOf(QStringLiteral("EPSG:4326")));
    return data;
}

void saver(benchmark::State& state)
{
    const kpFormats::KmlFormat format;
    LineSet::saver(state, format, format.defaults(), degrees(), LineSet::outputPath("kml"));
}

/// The same from a projected system, PROJ included.
void saverTransforming(benchmark::State& state)
{
    const std::vector<kpFormats::ModelObject> metres =
        LineSet::make(540000, 7500000, 50000, kpFormats::wktOf(QStringLiteral("EPSG:28350")));
    const kpFormats::KmlFormat format;
    LineSet::saver(state, format, format.defaults(), metres, LineSet::outputPath("kml"));
}

/// The library's writer with its lists of points, without heights.
void writer(benchmark::State& state)
{
    std::vector<QList<QPointF>> points;
    for (const kpFormats::ModelObject& object : degrees()) {
        points.emplace_back();
        for (int vertex = 0; vertex < LineSet::vertices; ++vertex)
            points.back().append(
                {(*object.y)[static_cast<std::size_t>(vertex)], (*object.x)[static_cast<std::size_t>(vertex)]});
    }
    const QString path = LineSet::outputPath("kml");
    for (auto step : state) {
        kpBaseExport::MatrixDataKMLExporter kml(path);
        kml.fileOpen();
        for (std::size_t line = 0; line < points.size(); ++line)
            kml.writePolyLine(points[line], degrees()[line].name, degrees()[line].color);
        kml.fileClose();
    }
    LineSet::countBytes(state, path);
}

void gdalKml(benchmark::State& state)
{
    LineSet::gdal(state, "KML", degrees(), LineSet::outputPath("kml"));
}

BENCHMARK(saver)->Unit(benchmark::kMillisecond);
BENCHMARK(saverTransforming)->Unit(benchmark::kMillisecond);
BENCHMARK(writer)->Unit(benchmark::kMillisecond);
BENCHMARK(gdalKml)->Unit(benchmark::kMillisecond)->Iterations(1);

} // namespace

BENCHMARK_MAIN();
