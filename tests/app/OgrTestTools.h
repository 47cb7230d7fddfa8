// SPDX-License-Identifier: MIT
#pragma once

#include "app/readers/GdalSession.h"
#include "tests/app/SaverRun.h"

#include <ogrsf_frmts.h>

namespace refhost
{

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

} // namespace refhost
