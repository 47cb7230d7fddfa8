// SPDX-License-Identifier: MIT
#pragma once

#include "readers/LoadOptions.h"

#include <vector>

namespace kpFormats
{

/// The place of the first of \a names among the columns, in whatever case; -1 when none is there.
int columnNamed(const QStringList& columns, const QStringList& names);

/// Which columns of a table hold coordinates: those that the options name, else the first with a usual name.
struct CoordinateColumns
{
    CoordinateColumns(const QStringList& columns, const LoadOptions& options);

    bool hasPositions() const { return x >= 0 && y >= 0; }

    int x; ///< -1 when there is none
    int y;
    int z;
};

/// Longitudes and latitudes by their names and values are WGS 84: its WKT, and a note; else nothing.
QString systemOfColumns(const QString& xName, const QString& yName, const std::vector<double>& x,
                        const std::vector<double>& y, LoadNotes& notes);

} // namespace kpFormats
