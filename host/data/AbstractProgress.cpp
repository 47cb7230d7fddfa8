// SPDX-License-Identifier: MIT
#include "host/data/AbstractProgress.h"

namespace kpBase
{

AbstractProgress::~AbstractProgress() = default;

} // namespace kpBase
