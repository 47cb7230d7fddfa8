// SPDX-License-Identifier: MIT
#include "formats/raster/RasterSource.h"

#include <algorithm>

namespace kpFormats
{

namespace
{

class Band : public GDALRasterBand
{
public:
    Band(GDALDataset& dataset, const RasterGrid& grid, const RasterNumbers& numbers, int number)
        : m_grid(grid)
        , m_numbers(numbers)
        , m_band(static_cast<std::size_t>(number - 1))
    {
        poDS = &dataset;
        nBand = number;
        eDataType = numbers.single ? GDT_Float32 : GDT_Float64;
        nRasterXSize = grid.columns();
        nRasterYSize = grid.rows();
        nBlockXSize = grid.columns();
        nBlockYSize = 1;
        const RasterGrid::Band& band = grid.bands()[m_band];
        m_unit = band.unit.toStdString();
        SetDescription(band.name.toUtf8().constData());
    }

    double GetNoDataValue(int* has) override
    {
        if (has)
            *has = 1;
        return m_numbers.null;
    }
    const char* GetUnitType() override { return m_unit.c_str(); }

protected:
    CPLErr IReadBlock(int, int line, void* block) override
    {
        if (m_numbers.single)
            fill(line, static_cast<float*>(block));
        else
            fill(line, static_cast<double*>(block));
        return CE_None;
    }

private:
    template <typename Number>
    void fill(int line, Number* numbers) const
    {
        for (int column = 0; column < m_grid.columns(); ++column) {
            const double value = m_grid.value(m_band, column, line);
            numbers[column] = static_cast<Number>(m_numbers.isMissing(value) ? m_numbers.null : value);
        }
    }

    const RasterGrid& m_grid;
    const RasterNumbers& m_numbers;
    std::size_t m_band;
    std::string m_unit;
};

} // namespace

RasterSource::RasterSource(const RasterGrid& grid, const RasterNumbers& numbers)
    : m_grid(grid)
{
    nRasterXSize = grid.columns();
    nRasterYSize = grid.rows();
    eAccess = GA_ReadOnly;
    for (int number = 1; number <= static_cast<int>(grid.bands().size()); ++number)
        SetBand(number, new Band(*this, grid, numbers, number)); // GDAL deletes it
    // A value belongs to a node, not to the area around it.
    SetMetadataItem("AREA_OR_POINT", "Point");
    SetMetadataItem("TIFFTAG_IMAGEDESCRIPTION", grid.object().name.toUtf8().constData());
    if (m_system.SetFromUserInput(grid.object().crs.toUtf8().constData()) == OGRERR_NONE)
        m_system.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
}

CPLErr RasterSource::GetGeoTransform(double* transform)
{
    const std::array<double, 6> numbers = m_grid.transform();
    std::copy(numbers.begin(), numbers.end(), transform);
    return CE_None;
}

const OGRSpatialReference* RasterSource::GetSpatialRef() const
{
    return m_system.IsEmpty() ? nullptr : &m_system;
}

} // namespace kpFormats
