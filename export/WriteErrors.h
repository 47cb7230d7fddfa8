// SPDX-License-Identifier: MIT
#pragma once

#include "export/ExportError.h"

namespace kpBaseExport
{
class MatrixDataExporter;
}

namespace kpFormats
{

/// The error of an output that cannot be opened; \a error is what the system said, an errno, or 0.
KPFORMATS_EXPORT ExportError cannotOpen(const QString& target, int error);
/// The error of an output that is not complete.
KPFORMATS_EXPORT ExportError cannotWrite(const QString& target, int error);

/// Opens the file of one of the library's writers under its true name; \a target is the final name, for messages.
/// \throws ExportError
KPFORMATS_EXPORT void openWriter(kpBaseExport::MatrixDataExporter& writer, const QString& target);
/// Closes it. \throws ExportError when something of it was not written
KPFORMATS_EXPORT void closeWriter(kpBaseExport::MatrixDataExporter& writer, const QString& target);

} // namespace kpFormats
