// SPDX-License-Identifier: MIT
#pragma once

#include "export/ExportError.h"

namespace kpBaseExport
{
class MatrixDataExporter;
}

namespace kpFormats
{

class CheckedWrites;

/// The error of an output that cannot be opened; \a error is what the system said, an errno, or 0.
KPFORMATS_EXPORT ExportError cannotOpen(const QString& target, int error);
/// The error of an output that is not complete.
KPFORMATS_EXPORT ExportError cannotWrite(const QString& target, int error);
/// Throws that the file could not be written completely. \throws ExportError
[[noreturn]] KPFORMATS_EXPORT void failIncomplete(const QString& target, const QString& why);
/// \throws ExportError when something that a GDAL driver did was not done, whether the driver has told of it or not
KPFORMATS_EXPORT void requireWritten(const QString& target, const CheckedWrites& checked);
/// For drivers that would put a file in a device's place; \a fileKind is such as "GeoPackage". \throws ExportError
KPFORMATS_EXPORT void refuseDevice(const QString& target, const QString& fileKind);

/// Opens the file of one of the library's writers under its true name; \a target is the final name, for messages.
/// \throws ExportError
KPFORMATS_EXPORT void openWriter(kpBaseExport::MatrixDataExporter& writer, const QString& target);
/// Closes it. \throws ExportError when something of it was not written
KPFORMATS_EXPORT void closeWriter(kpBaseExport::MatrixDataExporter& writer, const QString& target);

} // namespace kpFormats
