// SPDX-License-Identifier: MIT
#include "core/saver/AttributeNamesSheet.h"

namespace kpBaseExport
{

AttributeNamesSheet::~AttributeNamesSheet() = default;

} // namespace kpBaseExport
