// SPDX-License-Identifier: MIT
#pragma once

#include "export/Verification.h"
#include "formats/ogr/OgrTraits.h"

class OGRSpatialReference;

namespace kpFormats
{

/// Compares the system that a reader finds with the one that was to be written, by where both have \a place. What the
/// driver cannot say is expected to be missing.
void compareOgrSystem(const OGRSpatialReference* read, const QString& target, const OgrTraits& traits,
                      const Verification::Place& place, Verification& result);

} // namespace kpFormats
