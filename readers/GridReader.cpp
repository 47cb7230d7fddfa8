// SPDX-License-Identifier: MIT
#include "readers/GridReader.h"

#include "geo/CoordinateSystems.h"
#include "geo/GdalSession.h"
#include "readers/LoadError.h"
#include "readers/OpenDataset.h"
#include "readers/RegularGrid.h"

#include <cmath>
#include <limits>

namespace kpFormats
{

namespace
{

constexpr double mostNodes = 1e9;
constexpr int mostAttributes = 32;

/// The length unit that a band's text names; empty when it names none that is known.
QString lengthUnitOf(const QString& text)
{
    const QString name = text.trimmed().toLower();
    if (name == QLatin1String("m") || name.startsWith(QLatin1String("met")))
        return QStringLiteral("m");
    if (name.contains(QLatin1String("survey")) || name == QLatin1String("ftus") || name == QLatin1String("us-ft"))
        return QStringLiteral("ftUS");
    if (name == QLatin1String("ft") || name == QLatin1String("feet") || name == QLatin1String("foot"))
        return QStringLiteral("ft");
    return name == QLatin1String("km") ? name : QString();
}

class RasterReader
{
public:
    RasterReader(GDALDataset& dataset, const QString& path)
        : m_dataset(dataset)
        , m_path(path)
        , m_columns(dataset.GetRasterXSize())
        , m_rows(dataset.GetRasterYSize())
    {
        if (dataset.GetRasterCount() < 1 || m_columns < 1 || m_rows < 1)
            throw LoadError(path, QStringLiteral("the raster has no band"), QStringLiteral("give a raster of heights"));
        if (static_cast<double>(m_columns) * m_rows > mostNodes)
            throw LoadError(path, QStringLiteral("the raster has %1 x %2 pixels").arg(m_columns).arg(m_rows),
                            QStringLiteral("resample it to less than a thousand million"));
        dataset.GetGeoTransform(m_transform);
    }

    LoadNotes addTo(Model& model, const LoadOptions& options)
    {
        const int count = m_dataset.GetRasterCount();
        if (options.band < 1 || options.band > count)
            throw LoadError(m_path, QStringLiteral("there is no band %1").arg(options.band),
                            QStringLiteral("it has %1").arg(count));
        RegularGrid grid;
        grid.z = bandValues(options.band);
        const QString unit = QString::fromUtf8(m_dataset.GetRasterBand(options.band)->GetUnitType());
        grid.unit = lengthUnitOf(unit);
        if (!unit.isEmpty() && grid.unit.isEmpty())
            m_notes.append(
                QStringLiteral("%1: the values of band %2 are in \"%3\", which is not a length that is known, "
                               "and are taken as heights")
                    .arg(m_path, QString::number(options.band), unit));
        grid.crs = wktOf(m_dataset.GetSpatialRef());
        placeNodes(grid);
        for (int band = 1; band <= count && static_cast<int>(grid.attributes.size()) < mostAttributes; ++band) {
            if (band != options.band)
                grid.attributes.push_back(bandColumn(band));
        }
        if (count > 1)
            m_notes.append(
                QStringLiteral("%1: band %2 of %3 is taken as heights, %4 others are attributes of the nodes")
                    .arg(m_path)
                    .arg(options.band)
                    .arg(count)
                    .arg(grid.attributes.size()));
        m_notes += addGrid(model, m_path, options, std::move(grid));
        return m_notes;
    }

private:
    int lineOf(int row) const { return m_transform[5] < 0 ? m_rows - 1 - row : row; }

    /// Scaled as the file says; NaN where there is no data.
    std::vector<double> bandValues(int number)
    {
        GDALRasterBand* band = m_dataset.GetRasterBand(number);
        const auto columns = static_cast<std::size_t>(m_columns);
        std::vector<double> values(columns * static_cast<std::size_t>(m_rows));
        for (int row = 0; row < m_rows; ++row) {
            const int line = lineOf(row);
            if (band->RasterIO(GF_Read, 0, line, m_columns, 1, values.data() + static_cast<std::size_t>(row) * columns,
                               m_columns, 1, GDT_Float64, 0, 0, nullptr)
                != CE_None) {
                throw LoadError(
                    m_path, QStringLiteral("reading line %1 failed: %2").arg(line + 1).arg(QuietGdal::lastMessage()),
                    QStringLiteral("the file may be damaged; copy it again from its source"));
            }
        }
        int hasNoData = 0;
        const double noData = band->GetNoDataValue(&hasNoData);
        const double scale = band->GetScale();
        const double offset = band->GetOffset();
        const bool scaled = scale != 1.0 || offset != 0.0;
        for (double& value : values) {
            // A value of single precision stands beside a "no data" text of more digits.
            if (hasNoData && (value == noData || static_cast<float>(value) == static_cast<float>(noData)))
                value = std::numeric_limits<double>::quiet_NaN();
            else if (scaled && std::abs(value) < beyondHeights)
                value = value * scale + offset;
        }
        if (scaled)
            m_notes.append(QStringLiteral("%1: band %2 was scaled by %3 and moved by %4, as the file says")
                               .arg(m_path)
                               .arg(number)
                               .arg(scale)
                               .arg(offset));
        return values;
    }

    AttributeColumn bandColumn(int number)
    {
        GDALRasterBand* band = m_dataset.GetRasterBand(number);
        AttributeColumn column;
        column.name = QString::fromUtf8(band->GetDescription());
        if (column.name.isEmpty())
            column.name = QStringLiteral("band %1").arg(number);
        column.unit = QString::fromUtf8(band->GetUnitType());
        std::vector<double> values = bandValues(number);
        std::vector<unsigned char> missing(values.size(), 0);
        bool any = false;
        for (std::size_t node = 0; node < values.size(); ++node) {
            if (!(std::abs(values[node]) < beyondHeights)) {
                values[node] = 0.0;
                missing[node] = 1;
                any = true;
            }
        }
        column.numbers = std::make_shared<const std::vector<double>>(std::move(values));
        if (any)
            column.missing = std::make_shared<const std::vector<unsigned char>>(std::move(missing));
        return column;
    }

    void placeNodes(RegularGrid& grid) const
    {
        grid.x.resize(grid.z.size());
        grid.y.resize(grid.z.size());
        const double* const t = m_transform;
        std::size_t node = 0;
        for (int row = 0; row < m_rows; ++row) {
            const int line = lineOf(row);
            for (int column = 0; column < m_columns; ++column, ++node) {
                grid.x[node] = t[0] + (column + 0.5) * t[1] + (line + 0.5) * t[2];
                grid.y[node] = t[3] + (column + 0.5) * t[4] + (line + 0.5) * t[5];
            }
        }
        grid.geometry.columns = m_columns;
        grid.geometry.rows = m_rows;
        grid.geometry.originX = grid.x.front();
        grid.geometry.originY = grid.y.front();
        grid.geometry.stepX = std::hypot(t[1], t[4]);
        grid.geometry.stepY = std::hypot(t[2], t[5]);
        grid.geometry.rotation = std::atan2(t[4], t[1]) * 180.0 / M_PI;
    }

    GDALDataset& m_dataset;
    QString m_path;
    int m_columns;
    int m_rows;
    double m_transform[6] = {0, 1, 0, 0, 0, -1};
    LoadNotes m_notes;
};

/// The data set of that name in a file that holds several and no raster of its own.
QString subdataset(GDALDataset& dataset, const QString& path, const QString& layer)
{
    QStringList names;
    char** const list = dataset.GetMetadata("SUBDATASETS");
    for (int number = 1; const char* name = CSLFetchNameValue(list, CPLSPrintf("SUBDATASET_%d_NAME", number));
         ++number) {
        const QString whole = QString::fromUtf8(name);
        if (!layer.isEmpty() && whole.endsWith(QLatin1Char(':') + layer))
            return whole;
        names.append(whole.mid(whole.lastIndexOf(QLatin1Char(':')) + 1));
    }
    throw LoadError(path,
                    layer.isEmpty() ? QStringLiteral("it holds several data sets")
                                    : QStringLiteral("there is no data set \"%1\"").arg(layer),
                    QStringLiteral("name one with \"layer\" in its entry of a model file; it has: %1")
                        .arg(names.join(QStringLiteral(", "))));
}

} // namespace

LoadNotes readGrid(Model& model, const QString& path, const LoadOptions& options)
{
    const QuietGdal quiet;
    GDALDatasetUniquePtr dataset = openDataset(path, GDAL_OF_RASTER);
    if (dataset->GetRasterCount() < 1 && dataset->GetMetadata("SUBDATASETS")) {
        const QString name = subdataset(*dataset, path, options.layer);
        dataset.reset(GDALDataset::Open(name.toUtf8().constData(), GDAL_OF_RASTER | GDAL_OF_READONLY));
        if (!dataset)
            throw LoadError(path, QStringLiteral("%1 cannot be opened: %2").arg(name, QuietGdal::lastMessage()),
                            QStringLiteral("check it at its source"));
    }
    return RasterReader(*dataset, path).addTo(model, options);
}

} // namespace kpFormats
