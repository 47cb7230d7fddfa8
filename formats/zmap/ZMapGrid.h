// SPDX-License-Identifier: MIT
#pragma once

#include "export/GridValues.h"
#include "formats/zmap/ZMapExportSettings.h"

namespace kpFormats
{

/// A grid surface as a ZMap+ file sees it: values by column from the west and row from the north, in the file's unit.
class ZMapGrid
{
public:
    /// \a file names the output in messages. \throws ExportError when the grid cannot be written
    ZMapGrid(const ModelObject& object, const ZMapExportSettings& settings, const QString& file);

    int columns() const { return m_object.grid->columns; }
    int rows() const { return m_object.grid->rows; }
    /// Positions of the outermost nodes.
    double west() const { return m_west; }
    double east() const { return m_west + (columns() - 1) * stepX(); }
    double south() const { return m_south; }
    double north() const { return m_south + (rows() - 1) * stepY(); }
    double stepX() const;
    double stepY() const;
    /// NaN where there is none.
    double value(int column, int rowFromNorth) const
    {
        const int row = m_northFirst ? rowFromNorth : rows() - 1 - rowFromNorth;
        return m_values.at(row * columns() + column);
    }
    const GridValues& values() const { return m_values; }

private:
    const ModelObject& m_object;
    LengthFactors m_factors;
    GridValues m_values;
    bool m_northFirst; ///< row 0 of the model lies in the north
    double m_west = 0.0;
    double m_south = 0.0;
};

} // namespace kpFormats
