// SPDX-License-Identifier: MIT
#pragma once

#include "model/kpFormatsExport.h"

#include <QString>

namespace kpFormats
{

/// A finding in words: "3 names were changed". Its kind is for programs, this is for people. A kind without words of
/// its own comes as "kind: 3".
KPFORMATS_EXPORT QString findingText(const QString& kind, qint64 count);

} // namespace kpFormats
