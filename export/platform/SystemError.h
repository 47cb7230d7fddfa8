// SPDX-License-Identifier: MIT
#pragma once

#include "model/kpFormatsExport.h"

#include <QString>

namespace kpFormats
{

/// What the system calls an error.
KPFORMATS_EXPORT QString errorText(int number);
/// What to do when it has kept a file from being written.
KPFORMATS_EXPORT QString writingCure(int number);

} // namespace kpFormats
