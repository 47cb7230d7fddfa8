// SPDX-License-Identifier: MIT
#pragma once

#include "export/LengthFactors.h"
#include "export/NumberColumns.h"
#include "formats/cellcenters/CellCentersExportSettings.h"

#include <array>

namespace kpFormats
{

/// What the rows of a table of cell centres hold.
class CellTable
{
public:
    /// Notes what is left out or renamed. \throws ExportError naming \a file when there is no cell to write
    CellTable(const ModelObject& object, const ExportSelection& selection, const CellCentersExportSettings& settings,
              const QString& file, Findings& findings);

    /// Numbers of the cells.
    const std::vector<qint64>& cells() const { return m_cells; }
    /// In the unit of the file: x, y, and z or depth.
    std::array<double, 3> centre(qint64 cell) const;
    /// Columns of indices: i, j and k from 1, and whether the cell is active where inactive ones are there too.
    const QStringList& indexNames() const { return m_indexNames; }
    std::vector<int> indices(qint64 cell) const;
    /// "z" or "depth".
    const QString& heightName() const { return m_heightName; }
    const std::vector<NumberColumn>& properties() const { return m_properties; }
    /// Names of the properties in the file.
    const QStringList& propertyNames() const { return m_propertyNames; }
    const LengthFactors& factors() const { return m_factors; }
    int flatDecimals() const { return m_flatDecimals; }
    int heightDecimals() const { return m_heightDecimals; }

private:
    void chooseDecimals(int chosen);

    const ModelObject& m_object;
    LengthFactors m_factors;
    std::vector<qint64> m_cells;
    std::vector<NumberColumn> m_properties;
    QStringList m_propertyNames;
    QStringList m_indexNames;
    QString m_heightName;
    int m_flatDecimals = 0;
    int m_heightDecimals = 0;
};

} // namespace kpFormats
