// SPDX-License-Identifier: MIT
#pragma once

#include "formats/ogr/OgrSystems.h"

#include <QString>

#include <array>
#include <vector>

namespace kpFormats
{

/// What a MapInfo table can say of a coordinate system: the system as its readers resolve it puts \a places, which are
/// positions in \a target, where they are. Datums that a table has no name for are given by their ellipsoid and a shift
/// that is right in the middle of the places. Empty when nothing comes near.
WrittenSystem tabSystem(const QString& target, const std::vector<std::array<double, 2>>& places);

} // namespace kpFormats
