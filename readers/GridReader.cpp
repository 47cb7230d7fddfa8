// SPDX-License-Identifier: MIT
#include "readers/GridReader.h"

#include "geo/CoordinateSystems.h"
#include "geo/GdalSession.h"
#include "readers/LoadError.h"
#include "readers/OpenDataset.h"
#include "readers/VectorReader.h"

#include <QFile>
#include <QFileInfo>

#include <cmath>
#include <limits>

namespace kpFormats
{

namespace
{

constexpr double mostNodes = 1e9;

} // namespace

bool isZMapGrid(const QString& path)
{
    QFile file(path);
    if (QFileInfo(path).isDir() || !file.open(QIODevice::ReadOnly))
        return false;
    // Comments, then "@NAME HEADER, GRID, 5".
    constexpr int mostComments = 100;
    constexpr qint64 longestLine = 1000;
    for (int number = 0; number < mostComments; ++number) {
        const QByteArray line = file.readLine(longestLine);
        if (!line.startsWith('!'))
            return line.startsWith('@') && line.split(',').value(1).trimmed() == "GRID";
    }
    return false;
}

LoadNotes readGrid(Model& model, const QString& path, const LoadOptions& options)
{
    const QuietGdal quiet;
    // The limits in a ZMap+ header are the outermost nodes, whatever GDAL takes them for by default.
    const GdalOption zmapNodes("ZMAP_PIXEL_IS_POINT", "TRUE");
    const GDALDatasetUniquePtr dataset = openDataset(path, GDAL_OF_RASTER);
    const int columns = dataset->GetRasterXSize();
    const int rows = dataset->GetRasterYSize();
    if (dataset->GetRasterCount() < 1 || columns < 1 || rows < 1)
        throw LoadError(path, QStringLiteral("the raster has no band"), QStringLiteral("give a raster of heights"));
    if (static_cast<double>(columns) * rows > mostNodes)
        throw LoadError(path, QStringLiteral("the raster has %1 x %2 pixels").arg(columns).arg(rows),
                        QStringLiteral("resample it to less than a thousand million"));
    double transform[6] = {0, 1, 0, 0, 0, -1};
    dataset->GetGeoTransform(transform);

    const auto count = static_cast<std::size_t>(columns) * static_cast<std::size_t>(rows);
    std::vector<double> z(count);
    GDALRasterBand* band = dataset->GetRasterBand(1);
    // Read so that row 0 is the southernmost: the last line first.
    for (int row = 0; row < rows; ++row) {
        const int line = transform[5] < 0 ? rows - 1 - row : row;
        if (band->RasterIO(GF_Read, 0, line, columns, 1, z.data() + static_cast<std::size_t>(row) * columns, columns, 1,
                           GDT_Float64, 0, 0, nullptr)
            != CE_None) {
            throw LoadError(path,
                            QStringLiteral("reading line %1 failed: %2").arg(line + 1).arg(QuietGdal::lastMessage()),
                            QStringLiteral("the file may be damaged; copy it again from its source"));
        }
    }
    int hasNoData = 0;
    const double noData = band->GetNoDataValue(&hasNoData);
    // A value of single precision stands beside a "no data" text of more digits.
    const auto isNoData = [hasNoData, noData](double value) {
        return hasNoData && (value == noData || static_cast<float>(value) == static_cast<float>(noData));
    };
    std::vector<double> x(count);
    std::vector<double> y(count);
    for (int row = 0; row < rows; ++row) {
        const int line = transform[5] < 0 ? rows - 1 - row : row;
        for (int column = 0; column < columns; ++column) {
            const std::size_t node = static_cast<std::size_t>(row) * columns + column;
            x[node] = transform[0] + (column + 0.5) * transform[1] + (line + 0.5) * transform[2];
            y[node] = transform[3] + (column + 0.5) * transform[4] + (line + 0.5) * transform[5];
            if (isNoData(z[node]))
                z[node] = std::numeric_limits<double>::quiet_NaN();
        }
    }

    ModelObject grid;
    grid.type = options.type.value_or(ObjectType::GridSurfaces);
    grid.name = options.name.isEmpty() ? QFileInfo(path).completeBaseName() : options.name;
    grid.set = options.set.isEmpty() ? QStringLiteral("Grids") : options.set;
    grid.color =
        options.color.isEmpty() ? paletteColor(static_cast<int>(model.objects().size())) : QColor(options.color);
    grid.crs = options.crs.isEmpty() ? wktOf(dataset->GetSpatialRef()) : wktOf(options.crs);
    grid.lengthUnit = options.lengthUnit;
    grid.source = path;
    GridGeometry geometry;
    geometry.columns = columns;
    geometry.rows = rows;
    geometry.originX = x.front();
    geometry.originY = y.front();
    geometry.stepX = std::hypot(transform[1], transform[4]);
    geometry.stepY = std::hypot(transform[2], transform[5]);
    geometry.rotation = std::atan2(transform[4], transform[1]) * 180.0 / M_PI;
    grid.grid = geometry;
    grid.x = std::make_shared<const std::vector<double>>(std::move(x));
    grid.y = std::make_shared<const std::vector<double>>(std::move(y));
    grid.z = std::make_shared<const std::vector<double>>(std::move(z));
    model.add(std::move(grid));
    return {};
}

} // namespace kpFormats
