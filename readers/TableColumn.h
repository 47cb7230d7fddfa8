// SPDX-License-Identifier: MIT
#pragma once

#include "model/AttributeColumn.h"
#include "model/kpFormatsExport.h"
#include "readers/TextTable.h"

namespace kpFormats
{

/// What a column of a table can be told to hold: "text", "integer", "real", "boolean", "date", "time", "datetime".
KPFORMATS_EXPORT const QStringList& columnTypeNames();

/// Column number \a column of the table as an attribute, a value for each of \a rows. \a type is one of
/// columnTypeNames(); empty: what all of its cells agree on. Whole numbers with leading zeros are texts, and so are
/// those that no double holds exactly, so that no digit is lost; "nan", "inf", "na", "n/a" and "null" among numbers are
/// missing values.
/// \param notes takes what is not plain to see in the file
/// \throws LoadError naming the line when a cell is not of the type that was asked for
KPFORMATS_EXPORT AttributeColumn tableColumn(const TextTable& table, int column, const std::vector<int>& rows,
                                             const QString& type, QStringList& notes);

} // namespace kpFormats
