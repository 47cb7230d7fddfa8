// SPDX-License-Identifier: MIT
// One hundred thousand lines of twenty vertices with heights as DXF: our saver against GDAL's driver. All in one run, on
// the same values.
#include "bench/LineSet.h"
#include "formats/dxf/DxfFormat.h"

namespace
{

const std::vector<kpFormats::ModelObject>& metres()
{
    static const std::vector<kpFormats::ModelObject> data = LineSet::make(540000, 7500000, 50000, QString());
    return data;
}

void saver(benchmark::State& state)
{
    const kpFormats::DxfFormat format;
    LineSet::saver(state, format, format.defaults(), metres(), LineSet::outputPath("dxf"));
}

void gdalDxf(benchmark::State& state)
{
    LineSet::gdal(state, "DXF", metres(), LineSet::outputPath("dxf"));
}

BENCHMARK(saver)->Unit(benchmark::kMillisecond);
BENCHMARK(gdalDxf)->Unit(benchmark::kMillisecond)->Iterations(1);

} // namespace

BENCHMARK_MAIN();
