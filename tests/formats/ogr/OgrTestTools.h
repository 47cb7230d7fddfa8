// SPDX-License-Identifier: MIT
#pragma once

#include "tests/ogr/ReadBack.h"
#include "tests/support/SaverRun.h"

namespace kpFormats
{

using Positions = std::vector<std::array<double, 3>>;

/// Every line, ring or point of a geometry.
inline void addRuns(const OGRGeometry& geometry, std::vector<Positions>& runs)
{
    const auto add = [&runs](const OGRSimpleCurve& curve) {
        runs.emplace_back();
        for (const OGRPoint& point : curve)
            runs.back().push_back({point.getX(), point.getY(), point.getZ()});
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

/// The same of every feature of a file.
inline std::vector<Positions> runsIn(const QString& path)
{
    std::vector<Positions> runs;
    const GDALDatasetUniquePtr source = openVector(path);
    for (auto& feature : *source->GetLayer(0))
        addRuns(*feature->GetGeometryRef(), runs);
    return runs;
}

/// A dump is read by nothing of GDAL's.
inline void ogrFormatRows(bool dump = false)
{
    QTest::addColumn<QString>("format");
    for (const char* format : {"shp", "tab", "gpkg", "geojson", "fgb", "gml", "sqlite"})
        QTest::newRow(format) << QString::fromLatin1(format);
    if (dump)
        QTest::newRow("pgdump") << QStringLiteral("pgdump");
}

} // namespace kpFormats
