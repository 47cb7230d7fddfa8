// SPDX-License-Identifier: MIT
#pragma once

#include "formats/ogr/OgrTraits.h"

namespace kpFormats
{

/// Whether two texts in ISO 8601 are the same date, time or both, in the same zone.
bool sameMoment(const QString& iso, const QString& other, TextMeaning meaning);

/// Whether a field of dates or times of the driver holds \a iso with nothing lost.
bool holdsMoment(const QString& iso, TextMeaning meaning, const OgrTraits& traits);

} // namespace kpFormats
