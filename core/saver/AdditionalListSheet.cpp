// SPDX-License-Identifier: MIT
#include "core/saver/AdditionalListSheet.h"

namespace kpBaseExport
{

AdditionalListSheet::~AdditionalListSheet() = default;

} // namespace kpBaseExport
