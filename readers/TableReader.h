// SPDX-License-Identifier: MIT
#pragma once

#include "model/Model.h"
#include "model/kpFormatsExport.h"
#include "readers/LoadOptions.h"
#include "readers/TextTable.h"

namespace kpFormats
{

/// Reads a table of points as one cloud with an attribute per column, or as one object per row for pins, posts and
/// labels. A row without a number for x or y is left out; one without a number for z has no height.
/// \throws LoadError naming the line
KPFORMATS_EXPORT LoadNotes readTable(Model& model, const QString& path, const LoadOptions& options);
/// Whether the file is a table that readTable() can read: text whose columns of coordinates it knows.
KPFORMATS_EXPORT bool isPointTable(const QString& path, const LoadOptions& options);
/// Notes of the table with the file's name before each.
KPFORMATS_EXPORT LoadNotes notesOf(const TextTable& table);

} // namespace kpFormats
