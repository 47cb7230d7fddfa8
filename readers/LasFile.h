// SPDX-License-Identifier: MIT
#pragma once

#include "model/AttributeColumn.h"
#include "model/kpFormatsExport.h"
#include "readers/LoadOptions.h"

#include <QHash>

#include <vector>

namespace kpFormats
{

/// A well log: its curves by depth along the hole.
struct LasFile
{
    QString well;
    QString depthUnit;          ///< "m" or "ft"
    std::vector<double> depths; ///< from the top
    std::vector<AttributeColumn> curves;
    QHash<QString, QString> wellSection; ///< values by mnemonic in capitals
    QHash<QString, QString> parameters;  ///< the same
    QString index;                       ///< description of the depth
    LoadNotes notes;
};

/// Reads a LAS file of version 1.2 or 2.0, wrapped or not.
/// The format: https://www.cwls.org/products (LAS 2.0, update of January 2014)
/// \throws LoadError naming the line
KPFORMATS_EXPORT LasFile readLasFile(const QString& path, const QString& encoding);

} // namespace kpFormats
