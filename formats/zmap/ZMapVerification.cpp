// SPDX-License-Identifier: MIT
#include "formats/zmap/ZMapVerification.h"

#include "export/GridNodeCheck.h"
#include "export/GridNodes.h"
#include "geo/GdalSession.h"
#include "readers/OpenDataset.h"

#include <algorithm>
#include <cmath>

namespace kpFormats
{

namespace
{

// The header's limits have seven decimals, the places of nodes between them a little less.
constexpr double mostHeaderError = 2e-7;

double positionAllowance(const GridGeometry& grid, double factor)
{
    const double step = std::min(std::abs(grid.stepX), std::abs(grid.stepY)) * factor;
    return grid.rotation == 0.0 ? mostHeaderError : mostTurn * step + mostHeaderError;
}

class GridCheck
{
public:
    GridCheck(const ModelObject& object, const ZMapExportSettings& settings, const LengthFactors& factors,
              Verification& result)
        : m_object(object)
        , m_settings(settings)
        , m_result(result)
        , m_nodes(object, settings.attribute, factors, result)
    {
    }

    void compare(GDALDataset& dataset)
    {
        const GridGeometry& grid = *m_object.grid;
        const QString driver = QString::fromLatin1(dataset.GetDriver()->GetDescription());
        m_result.compareSame(QStringLiteral("kind of file"), QStringLiteral("file"), QStringLiteral("ZMap"), driver);
        if (!m_result.compareCount(m_object.name, QStringLiteral("columns"), grid.columns, dataset.GetRasterXSize())
            || !m_result.compareCount(m_object.name, QStringLiteral("rows"), grid.rows, dataset.GetRasterYSize()))
            return;
        if (dataset.GetGeoTransform(m_transform) != CE_None)
            return m_result.fail(QStringLiteral("%1: it has no position").arg(m_object.name));
        GDALRasterBand& band = *dataset.GetRasterBand(1);
        m_noData = band.GetNoDataValue();
        m_line.resize(static_cast<std::size_t>(grid.columns));
        for (int line = 0; line < grid.rows && m_result.good(); ++line) {
            if (band.RasterIO(GF_Read, 0, line, grid.columns, 1, m_line.data(), grid.columns, 1, GDT_Float64, 0, 0,
                              nullptr)
                != CE_None)
                return m_result.fail(
                    QStringLiteral("line %1 cannot be read: %2").arg(line + 1).arg(QuietGdal::lastMessage()));
            // Lines of the file run from the north.
            compareRow(line, grid.stepY < 0.0 ? line : grid.rows - 1 - line);
        }
    }

private:
    void compareRow(int line, int row)
    {
        const int columns = m_object.grid->columns;
        for (int column = 0; column < columns; ++column) {
            const double read = m_line[static_cast<std::size_t>(column)];
            m_nodes.compare(row * columns + column,
                            {m_transform[0] + (column + 0.5) * m_transform[1],
                             m_transform[3] + (line + 0.5) * m_transform[5], read},
                            read == m_noData, 0.5 * std::pow(10.0, -m_settings.decimals));
        }
    }

    const ModelObject& m_object;
    const ZMapExportSettings& m_settings;
    Verification& m_result;
    GridNodeCheck m_nodes;
    double m_transform[6] = {};
    double m_noData = 0;
    std::vector<double> m_line;
};

} // namespace

Verification verifyZMap(const ModelObject& object, const QString& path, const ZMapExportSettings& settings)
{
    const LengthFactors factors(object, settings.lengthUnit, settings.zIsElevation);
    Verification result(QStringLiteral("GDAL driver ZMap"),
                        {positionAllowance(*object.grid, factors.flat), factors.flatUnit},
                        Allowance::ofDecimals(settings.decimals, factors.heightUnit));
    try {
        const QuietGdal quiet;
        const bool nodes = settings.registration == ZMapExportSettings::Registration::Nodes;
        const GdalOption option("ZMAP_PIXEL_IS_POINT", nodes ? "TRUE" : "FALSE");
        const GDALDatasetUniquePtr dataset = openDataset(path, GDAL_OF_RASTER);
        GridCheck(object, settings, factors, result).compare(*dataset);
    } catch (const std::exception& error) {
        result.fail(QString::fromUtf8(error.what()));
    }
    return result;
}

} // namespace kpFormats
