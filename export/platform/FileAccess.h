// SPDX-License-Identifier: MIT
#pragma once

#include "model/kpFormatsExport.h"

namespace kpFormats
{

/// Gives one open file the owner, group, permissions, access control list and extended attributes of another, as far as
/// the user may. \a from need not be open for reading.
KPFORMATS_EXPORT void copyFileAccess(int from, int to);

} // namespace kpFormats
