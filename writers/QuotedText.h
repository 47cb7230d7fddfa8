// SPDX-License-Identifier: MIT
#pragma once

#include "core/kpBaseExportCoreExport.h"

#include <QString>

namespace kpBaseExport
{

/// Whether a text between separators is one only in quotes (RFC 4180): it holds the separator, a quote or a line end.
KPBASEEXPORTCORE_EXPORT bool needsQuotes(const QString& text, const QString& separator);
/// The text in quotes, with those inside doubled.
KPBASEEXPORTCORE_EXPORT QString inQuotes(const QString& text);

} // namespace kpBaseExport
