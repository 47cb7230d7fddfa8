// SPDX-License-Identifier: MIT
#pragma once

#include "app/jobs/ExportSelection.h"

namespace refhost
{

/// The attributes of vertices, cells and whole objects, each name once, in the order first met.
QStringList attributeNames(const std::vector<const ModelObject*>& objects);

} // namespace refhost
