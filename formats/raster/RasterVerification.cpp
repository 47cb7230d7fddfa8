// SPDX-License-Identifier: MIT
#include "formats/raster/RasterVerification.h"

#include "export/GridNodes.h"
#include "geo/CoordinateSystems.h"
#include "geo/GdalSession.h"
#include "geo/SystemComparison.h"
#include "readers/OpenDataset.h"

#include <cpl_string.h>

#include <algorithm>
#include <cmath>

namespace kpFormats
{

namespace
{

/// What sums of doubles, or fourteen digits of a text, take from a position.
double positionAllowance(const RasterExpectation& file)
{
    constexpr double part = 1e-12;
    double largest = std::max(file.object.grid->columns, file.object.grid->rows);
    for (const Numbers& numbers : {file.object.x, file.object.y}) {
        for (const double number : *numbers)
            largest = std::max(largest, std::abs(number));
    }
    const GridGeometry& grid = *file.object.grid;
    const bool turned = !file.traits.rotation && grid.rotation != 0.0;
    const double step = std::min(std::abs(grid.stepX), std::abs(grid.stepY));
    const bool unlike = file.traits.squareCells && grid.stepX != grid.stepY;
    return part * largest + (turned || unlike ? mostTurn * step : 0.0);
}

Verification emptyVerification(const RasterExpectation& file)
{
    const QString named = crsUnit(file.object.crs);
    const bool heights = !file.bands.front().attribute;
    return Verification(
        QStringLiteral("GDAL driver %1").arg(file.traits.driver),
        {positionAllowance(file), named.isEmpty() ? file.object.lengthUnit : named},
        {heights ? file.numbers.allowed(0) : 0.0, writtenUnit(file.object.lengthUnit, file.settings.lengthUnit)});
}

class RasterCheck
{
public:
    RasterCheck(GDALDataset& dataset, const RasterExpectation& expected, Verification& result)
        : m_dataset(dataset)
        , m_file(expected)
        , m_grid(*expected.object.grid)
        , m_result(result)
    {
    }

    void compare()
    {
        const QString& name = m_file.object.name;
        const QString driver = QString::fromLatin1(m_dataset.GetDriver()->GetDescription());
        m_result.compareSame(QStringLiteral("kind of file"), QStringLiteral("file"), readersDriver(), driver);
        if (!m_result.compareCount(name, QStringLiteral("columns"), m_grid.columns, m_dataset.GetRasterXSize())
            || !m_result.compareCount(name, QStringLiteral("rows"), m_grid.rows, m_dataset.GetRasterYSize())
            || !m_result.compareCount(name, QStringLiteral("bands"), static_cast<qint64>(m_file.bands.size()),
                                      m_dataset.GetRasterCount()))
            return;
        if (m_dataset.GetGeoTransform(m_transform) != CE_None)
            return m_result.fail(QStringLiteral("%1: it has no position").arg(name));
        compareSystem();
        if (m_file.traits.driver == QLatin1String("GTiff") || m_file.traits.driver == QLatin1String("COG")) {
            const char* const point = m_dataset.GetMetadataItem("AREA_OR_POINT");
            m_result.compareSame(QStringLiteral("values at points"), name, QStringLiteral("Point"),
                                 QString::fromLatin1(point ? point : "Area"));
        }
        m_line.resize(static_cast<std::size_t>(m_grid.columns));
        for (std::size_t band = 0; band < m_file.bands.size() && m_result.good(); ++band)
            compareBand(band);
    }

private:
    QString readersDriver() const
    {
        return m_file.traits.driver == QLatin1String("COG") ? QStringLiteral("GTiff") : m_file.traits.driver;
    }

    void compareSystem()
    {
        const OGRSpatialReference* const reference = m_dataset.GetSpatialRef();
        const QString read = wktOf(reference);
        if (!m_file.system) {
            // Of a GeoTIFF that says where its values are and no system, GDAL makes a local one.
            if (!read.isEmpty() && !reference->IsLocal())
                m_result.fail(QStringLiteral("the coordinate system %1 was read where the file is to have none")
                                  .arg(crsName(read)));
            return;
        }
        m_result.alsoCompared(QStringLiteral("coordinate system"));
        const QString difference =
            differenceOfSystems(read, m_file.object.crs, m_file.object.x->front(), m_file.object.y->front());
        if (!difference.isEmpty())
            m_result.fail(difference);
    }

    void compareBand(std::size_t index)
    {
        GDALRasterBand& band = *m_dataset.GetRasterBand(static_cast<int>(index) + 1);
        if (m_file.traits.bands) {
            m_result.compareSame(QStringLiteral("names of bands"), m_file.object.name, m_file.bands[index].name,
                                 QString::fromUtf8(band.GetDescription()));
            m_result.compareSame(QStringLiteral("units"), m_file.object.name, m_file.bands[index].unit,
                                 QString::fromUtf8(band.GetUnitType()));
        }
        m_noData = band.GetNoDataValue();
        for (int line = 0; line < m_grid.rows && m_result.good(); ++line) {
            if (band.RasterIO(GF_Read, 0, line, m_grid.columns, 1, m_line.data(), m_grid.columns, 1, GDT_Float64, 0, 0,
                              nullptr)
                != CE_None)
                return m_result.fail(
                    QStringLiteral("line %1 cannot be read: %2").arg(line + 1).arg(QuietGdal::lastMessage()));
            compareLine(index, line);
        }
    }

    void compareLine(std::size_t index, int line)
    {
        const RasterGrid::Band& band = m_file.bands[index];
        const double factor = unitFactor(m_file.object.lengthUnit, m_file.settings.lengthUnit);
        const int row = m_grid.stepY < 0.0 ? line : m_grid.rows - 1 - line;
        for (int pixel = 0; pixel < m_grid.columns; ++pixel) {
            const int column = m_grid.stepX < 0.0 ? m_grid.columns - 1 - pixel : pixel;
            const int node = row * m_grid.columns + column;
            const auto vertex = static_cast<std::size_t>(node);
            const auto where = [&] {
                return QStringLiteral("%1, %2, column %3, row %4")
                    .arg(m_file.object.name, band.name)
                    .arg(column + 1)
                    .arg(row + 1);
            };
            const double height = (*m_file.object.z)[vertex] * (m_file.settings.zIsElevation ? factor : -factor);
            const double wanted = band.attribute ? band.attribute->at(node) : height;
            const bool missing = m_file.numbers.isMissing(wanted);
            const double read = m_line[static_cast<std::size_t>(pixel)];
            const double across = pixel + 0.5;
            const double down = line + 0.5;
            const double* const t = m_transform;
            const Verification::Place place{t[0] + across * t[1] + down * t[2], t[3] + across * t[4] + down * t[5],
                                            read};
            const Verification::Place expected{(*m_file.object.x)[vertex], (*m_file.object.y)[vertex], wanted};
            // Positions are those of all bands.
            if (index == 0 && (missing || band.attribute))
                m_result.compareFlatPosition(expected, place, where);
            else if (index == 0)
                m_result.comparePosition(expected, place, where);
            if (missing)
                m_result.compareMissing(read == m_noData, QString::number(read), where);
            else if (band.attribute)
                m_result.compareValue(wanted, read, m_file.numbers.allowed(index), where);
        }
    }

    GDALDataset& m_dataset;
    const RasterExpectation& m_file;
    const GridGeometry& m_grid;
    Verification& m_result;
    double m_transform[6] = {};
    double m_noData = 0;
    std::vector<double> m_line;
};

} // namespace

Verification verifyRaster(const QString& path, const RasterExpectation& expected)
{
    Verification result = emptyVerification(expected);
    try {
        const QuietGdal quiet;
        // What stands beside the file is not in it.
        const GdalOption noNotes("GDAL_PAM_ENABLED", "NO");
        CPLStringList options;
        for (const QString& option : expected.traits.readOptions)
            options.AddString(option.toUtf8().constData());
        const GDALDatasetUniquePtr dataset = openDataset(path, GDAL_OF_RASTER, options.List());
        RasterCheck(*dataset, expected, result).compare();
    } catch (const std::exception& error) {
        result.fail(QString::fromUtf8(error.what()));
    }
    return result;
}

} // namespace kpFormats
