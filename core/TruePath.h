// SPDX-License-Identifier: MIT
#pragma once

#include "core/kpBaseExportCoreExport.h"

#include <QString>

#include <filesystem>

namespace kpBaseExport
{

/// The file that everybody else means by \a name, for the standard library's streams.
KPBASEEXPORTCORE_EXPORT std::filesystem::path truePath(const QString& name);

} // namespace kpBaseExport
