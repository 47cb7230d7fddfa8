// SPDX-License-Identifier: MIT
#include "formats/raster/NetcdfVerification.h"

#include "export/GridNodes.h"
#include "geo/CoordinateSystems.h"
#include "geo/GdalSession.h"
#include "geo/SystemComparison.h"
#include "readers/OpenDataset.h"

#include <algorithm>
#include <cmath>

namespace kpFormats
{

namespace
{

double positionAllowance(const ModelObject& object)
{
    constexpr double part = 1e-12;
    double largest = 1.0;
    for (const Numbers& numbers : {object.x, object.y}) {
        for (const double number : *numbers)
            largest = std::max(largest, std::abs(number));
    }
    const GridGeometry& grid = *object.grid;
    const double turn = grid.rotation == 0.0 ? 0.0 : mostTurn * std::min(std::abs(grid.stepX), std::abs(grid.stepY));
    return part * largest + turn;
}

class NetcdfCheck
{
public:
    NetcdfCheck(GDALGroup& root, const ModelObject& object, const RasterExportSettings& settings,
                const RasterNumbers& numbers, Verification& result)
        : m_root(root)
        , m_object(object)
        , m_settings(settings)
        , m_numbers(numbers)
        , m_result(result)
        , m_columns(static_cast<std::size_t>(object.grid->columns))
        , m_rows(static_cast<std::size_t>(object.grid->rows))
    {
    }

    void compare(const std::vector<RasterGrid::Band>& bands, const QStringList& names)
    {
        // All but the axes and the system.
        qint64 found = 0;
        for (const std::string& name : m_root.GetMDArrayNames())
            found += name == "x" || name == "y" || name == "crs" ? 0 : 1;
        if (!m_result.compareCount(m_object.name, QStringLiteral("variables"), static_cast<qint64>(bands.size()),
                                   found))
            return;
        for (std::size_t index = 0; index < bands.size() && m_result.good(); ++index)
            compareBand(bands[index], names[static_cast<int>(index)], index == 0);
    }

private:
    std::shared_ptr<GDALMDArray> arrayOf(const QString& name)
    {
        std::shared_ptr<GDALMDArray> array = m_root.OpenMDArray(name.toStdString());
        if (!array)
            m_result.fail(QStringLiteral("%1: there is no variable %2").arg(m_object.name, name));
        return array;
    }

    /// The numbers of an array of one dimension, or of a row of one of two.
    bool read(GDALMDArray& array, std::vector<double>& numbers, std::size_t row = 0)
    {
        const bool flat = array.GetDimensionCount() == 1;
        const GUInt64 start[] = {flat ? 0 : row, 0};
        const std::size_t count[] = {flat ? numbers.size() : 1, numbers.size()};
        const bool done =
            array.Read(start, count, nullptr, nullptr, GDALExtendedDataType::Create(GDT_Float64), numbers.data());
        if (!done)
            m_result.fail(QStringLiteral("%1 cannot be read: %2")
                              .arg(QString::fromStdString(array.GetName()), QuietGdal::lastMessage()));
        return done;
    }

    bool readAxes(const GDALMDArray& array)
    {
        const auto dimensions = array.GetDimensions();
        if (!m_result.compareCount(m_object.name, QStringLiteral("dimensions"), 2,
                                   static_cast<qint64>(dimensions.size()))
            || !m_result.compareCount(m_object.name, QStringLiteral("rows"), m_object.grid->rows,
                                      static_cast<qint64>(dimensions[0]->GetSize()))
            || !m_result.compareCount(m_object.name, QStringLiteral("columns"), m_object.grid->columns,
                                      static_cast<qint64>(dimensions[1]->GetSize())))
            return false;
        m_y.resize(m_rows);
        m_x.resize(m_columns);
        const auto y = dimensions[0]->GetIndexingVariable();
        const auto x = dimensions[1]->GetIndexingVariable();
        if (!x || !y) {
            m_result.fail(QStringLiteral("%1: its axes have no positions").arg(m_object.name));
            return false;
        }
        return read(*y, m_y) && read(*x, m_x);
    }

    void compareSystem(const GDALMDArray& array)
    {
        const QString found = wktOf(array.GetSpatialRef().get());
        if (m_object.crs.isEmpty()) {
            if (!found.isEmpty())
                m_result.fail(QStringLiteral("the coordinate system %1 was read where the file is to have none")
                                  .arg(crsName(found)));
            return;
        }
        m_result.alsoCompared(QStringLiteral("coordinate system"));
        const QString difference = differenceOfSystems(found, m_object.crs, m_object.x->front(), m_object.y->front());
        if (!difference.isEmpty())
            m_result.fail(difference);
    }

    void compareBand(const RasterGrid::Band& band, const QString& name, bool first)
    {
        const std::shared_ptr<GDALMDArray> array = arrayOf(name);
        if (!array || !readAxes(*array))
            return;
        compareSystem(*array);
        const auto label = array->GetAttribute("long_name");
        const char* const text = label ? label->ReadAsString() : nullptr;
        m_result.compareSame(QStringLiteral("names of variables"), m_object.name, band.name, QString::fromUtf8(text));
        // UDUNITS has longer words for one unit.
        const QString unit = QString::fromStdString(array->GetUnit());
        m_result.compareSame(QStringLiteral("units"), m_object.name, band.unit,
                             unit == QLatin1String("US_survey_foot") ? QStringLiteral("ftUS") : unit);
        m_noData = array->GetNoDataValueAsDouble();
        std::vector<double> line(m_columns);
        for (std::size_t row = 0; row < m_rows && m_result.good(); ++row) {
            if (read(*array, line, row))
                compareRow(band, line, row, first);
        }
    }

    void compareRow(const RasterGrid::Band& band, const std::vector<double>& line, std::size_t row, bool first)
    {
        const GridGeometry& grid = *m_object.grid;
        const double factor = unitFactor(m_object.lengthUnit, m_settings.lengthUnit);
        // Rows of the file run from the south, columns from the west.
        const std::size_t own = grid.stepY > 0.0 ? row : m_rows - 1 - row;
        for (std::size_t column = 0; column < m_columns; ++column) {
            const std::size_t vertex = own * m_columns + (grid.stepX > 0.0 ? column : m_columns - 1 - column);
            const auto where = [&] {
                return QStringLiteral("%1, %2, column %3, row %4")
                    .arg(m_object.name, band.name)
                    .arg(column + 1)
                    .arg(row + 1);
            };
            const double height = (*m_object.z)[vertex] * (m_settings.zIsElevation ? factor : -factor);
            const double wanted = band.attribute ? band.attribute->at(static_cast<int>(vertex)) : height;
            const bool missing = m_numbers.isMissing(wanted);
            const double read = line[column];
            const Verification::Place place{m_x[column], m_y[row], read};
            const Verification::Place expected{(*m_object.x)[vertex], (*m_object.y)[vertex], wanted};
            if (first && missing)
                m_result.compareFlatPosition(expected, place, where);
            else if (first)
                m_result.comparePosition(expected, place, where);
            if (missing)
                m_result.compareMissing(read == m_noData, QString::number(read), where);
            else if (band.attribute)
                m_result.compareValue(wanted, read, m_numbers.single ? std::abs(wanted) * 6e-8 : 0.0, where);
        }
    }

    GDALGroup& m_root;
    const ModelObject& m_object;
    const RasterExportSettings& m_settings;
    const RasterNumbers& m_numbers;
    Verification& m_result;
    std::size_t m_columns;
    std::size_t m_rows;
    std::vector<double> m_x;
    std::vector<double> m_y;
    double m_noData = 0;
};

} // namespace

Verification verifyNetcdf(const QString& path, const ModelObject& object, const RasterExportSettings& settings,
                          const RasterNumbers& numbers, const std::vector<RasterGrid::Band>& bands,
                          const QStringList& names)
{
    const QString named = crsUnit(object.crs);
    Verification result(QStringLiteral("GDAL driver netCDF"),
                        {positionAllowance(object), named.isEmpty() ? object.lengthUnit : named},
                        {numbers.allowed(0), writtenUnit(object.lengthUnit, settings.lengthUnit)});
    try {
        const QuietGdal quiet;
        const GdalOption noNotes("GDAL_PAM_ENABLED", "NO");
        const GDALDatasetUniquePtr dataset = openDataset(path, GDAL_OF_MULTIDIM_RASTER);
        const std::shared_ptr<GDALGroup> root = dataset->GetRootGroup();
        const QString driver = QString::fromLatin1(dataset->GetDriver()->GetDescription());
        if (result.compareSame(QStringLiteral("kind of file"), QStringLiteral("file"), QStringLiteral("netCDF"), driver)
            && root)
            NetcdfCheck(*root, object, settings, numbers, result).compare(bands, names);
        else
            result.fail(QStringLiteral("it has no variables"));
    } catch (const std::exception& error) {
        result.fail(QString::fromUtf8(error.what()));
    }
    return result;
}

} // namespace kpFormats
