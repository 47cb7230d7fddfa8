// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// Writes a model file with one object of each kind that a reader knows, and its sources, into \a folder.
/// \a size is the number of points along a side: surfaces have its square of nodes. \a shift moves everything.
/// \returns the path of the model file
QString writeFaultModel(const QString& folder, int size, double shift);

/// Object names that file systems, formats and shells stumble over.
QStringList hostileNames();
