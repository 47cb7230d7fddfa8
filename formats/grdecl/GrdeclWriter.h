// SPDX-License-Identifier: MIT
#pragma once

#include "export/BlockWriter.h"
#include "export/Findings.h"
#include "export/NumberColumns.h"
#include "formats/grdecl/GrdeclExportSettings.h"
#include "formats/grdecl/GrdeclRecord.h"
#include "model/ProgressTicker.h"

namespace kpFormats
{

/// Notes corners of inactive cells that have no depth. \throws ExportError naming \a file when the geometry is not
/// complete where a cell is active
void noteCornersWithoutDepth(const ModelObject& object, const QString& file, Findings& findings);

/// Writes one corner-point grid.
class GrdeclWriter
{
public:
    /// The geometry of the object's grid is complete.
    GrdeclWriter(BlockWriter& out, const ModelObject& object, const GrdeclExportSettings& settings, OutputUnit unit,
                 Findings& findings);

    /// \a columns are properties that are written behind the geometry.
    /// Stops early when the user cancels: then it returns false. \throws ExportError
    bool write(const std::vector<NumberColumn>& columns, kpBase::AbstractProgress* progress);

private:
    void writeHead();
    bool writeCoordinates(ProgressTicker& progress);
    bool writeDepths(ProgressTicker& progress);
    bool writeActive(ProgressTicker& progress);
    bool writeProperty(const NumberColumn& column, const QString& keyword, ProgressTicker& progress);
    bool isActive(std::size_t cell) const { return m_grid.active.empty() || m_grid.active[cell] != 0; }

    BlockWriter& m_out;
    const ModelObject& m_object;
    const CellGrid& m_grid;
    const GrdeclExportSettings& m_settings;
    Findings& m_findings;
    OutputUnit m_unit;
    double m_factor;
    double m_originX = 0.0; ///< in the output's unit
    double m_originY = 0.0;
    std::size_t m_cells = 0;
};

} // namespace kpFormats
