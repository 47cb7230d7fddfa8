// SPDX-License-Identifier: MIT
#pragma once

#include "export/GridValues.h"
#include "formats/irap/IrapGridExportSettings.h"

namespace kpFormats
{

/// The two forms of an Irap classic grid, which hold the same numbers.
enum class IrapForm { Text, Binary };

/// A grid surface as an Irap file sees it: in the file's unit, rows and columns from the origin with steps that are
/// positive, turned about the origin.
class IrapGrid
{
public:
    /// \a file names the output in messages. \throws ExportError when the grid cannot be written
    IrapGrid(const ModelObject& object, const IrapGridExportSettings& settings, const QString& file);

    const GridGeometry& geometry() const { return m_geometry; }
    const LengthFactors& factors() const { return m_factors; }
    const GridValues& values() const { return m_values; }
    /// The model's number of the node in that column and row of the file.
    int node(int column, int row) const
    {
        const int modelColumn = m_fromEnd[0] ? m_geometry.columns - 1 - column : column;
        const int modelRow = m_fromEnd[1] ? m_geometry.rows - 1 - row : row;
        return modelRow * m_geometry.columns + modelColumn;
    }
    /// How far a node can be moved by writing the geometry with single precision.
    double movedBySinglePrecision() const;

private:
    LengthFactors m_factors;
    GridValues m_values;
    GridGeometry m_geometry;
    bool m_fromEnd[2]; ///< whether columns and rows run against those of the model
};

/// Marks a node without a value in the text form; readers take anything above for it too.
constexpr double irapNull = 9999900.0;
/// The same in the binary form.
constexpr double irapBinaryNull = 1e30;

} // namespace kpFormats
