// SPDX-License-Identifier: MIT
#pragma once

#include "export/Verification.h"
#include "formats/ogr/OgrSystems.h"
#include "formats/ogr/OgrTraits.h"

class OGRSpatialReference;

namespace kpFormats
{

/// Compares the system that a reader finds with the one that the positions are in, by where both have \a place. What the
/// report tells that the file cannot say is expected to be missing, or as far off as is told.
void compareOgrSystem(const OGRSpatialReference* read, const QString& target, const WrittenSystem& written,
                      const OgrTraits& traits, const Verification::Place& place, Verification& result);

} // namespace kpFormats
