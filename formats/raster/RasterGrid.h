// SPDX-License-Identifier: MIT
#pragma once

#include "export/NumberColumns.h"
#include "formats/raster/RasterExportSettings.h"
#include "formats/raster/RasterTraits.h"

#include <array>
#include <optional>
#include <vector>

namespace kpFormats
{

/// A grid surface as a raster sees it: bands of values by line from the north and column from the west.
class RasterGrid
{
public:
    struct Band
    {
        QString name;
        QString unit;
        std::optional<NumberColumn> attribute; ///< nothing: heights
    };

    /// \a file names the output in messages; notes in \a findings which attributes have no band. The object outlives
    /// the grid. \throws ExportError when the grid cannot be written
    RasterGrid(const ModelObject& object, const RasterTraits& traits, const RasterExportSettings& settings,
               const ExportSelection& selection, const QString& file, Findings& findings);

    const ModelObject& object() const { return m_object; }
    int columns() const { return m_object.grid->columns; }
    int rows() const { return m_object.grid->rows; }
    const std::vector<Band>& bands() const { return m_bands; }
    /// From columns and lines of pixels to positions, as GDAL has it: a node is in the middle of its pixel.
    std::array<double, 6> transform() const;
    /// NaN where there is none.
    double value(std::size_t band, int column, int line) const
    {
        const int row = m_northFirst ? line : rows() - 1 - line;
        const int node = row * columns() + (m_westFirst ? column : columns() - 1 - column);
        const Band& of = m_bands[band];
        return of.attribute ? of.attribute->at(node) : (*m_object.z)[static_cast<std::size_t>(node)] * m_heightFactor;
    }

private:
    const ModelObject& m_object;
    std::vector<Band> m_bands;
    double m_heightFactor;
    double m_angle;    ///< radians, as written
    bool m_northFirst; ///< row 0 of the model lies in the north
    bool m_westFirst;
};

} // namespace kpFormats
