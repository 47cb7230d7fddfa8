// SPDX-License-Identifier: MIT
#pragma once

#include "export/Verification.h"
#include "formats/cellcenters/CellTable.h"

namespace kpFormats
{

/// Reads a table of cell centres as a table of points and compares indices, places, names and values with the grid.
Verification verifyCellCenters(const CellTable& table, const ModelObject& object, const QString& path);

} // namespace kpFormats
