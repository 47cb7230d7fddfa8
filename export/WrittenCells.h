// SPDX-License-Identifier: MIT
#pragma once

#include "export/Findings.h"
#include "model/ModelObject.h"
#include "model/kpFormatsExport.h"

namespace kpFormats
{

/// The numbers of the cells that a file has: those whose corners all have a place, inactive ones where they are wanted.
KPFORMATS_EXPORT std::vector<qint64> writtenCells(const CellGrid& grid, bool inactiveCells);
/// The same of a volume; notes the cells that are left out. \throws ExportError naming \a file when there is none
KPFORMATS_EXPORT std::vector<qint64> writtenCells(const ModelObject& object, bool inactiveCells, const QString& file,
                                                  Findings& findings);

} // namespace kpFormats
