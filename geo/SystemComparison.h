// SPDX-License-Identifier: MIT
#pragma once

#include "model/kpFormatsExport.h"

#include <QString>

namespace kpFormats
{

/// Whether a coordinate system that was read from a file is \a wanted: whether both put the place x, y, which is in the
/// wanted one, within a centimetre of each other. Both as WKT. \returns what is wrong, in words; empty when nothing is
KPFORMATS_EXPORT QString differenceOfSystems(const QString& read, const QString& wanted, double x, double y);

} // namespace kpFormats
