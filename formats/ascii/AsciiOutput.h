// SPDX-License-Identifier: MIT
#pragma once

#include "formats/ascii/AsciiExportSettings.h"
#include "formats/ascii/AsciiLayout.h"
#include "formats/ascii/AsciiRecord.h"
#include "model/kpFormatsExport.h"
#include "writers/MatrixDataAsciiExporter.h"

#include <QByteArray>

namespace kpFormats
{

/// What an export and its preview share: the writer made ready, and one object written with it.
KPFORMATS_EXPORT void prepareWriter(kpBaseExport::MatrixDataAsciiExporter& writer, const AsciiTable& table,
                                    const AsciiExportSettings& settings);
KPFORMATS_EXPORT void writeObject(kpBaseExport::MatrixDataAsciiExporter& writer, const ModelObject& object,
                                  const AsciiTable& table, const AsciiExportSettings& settings, Findings& findings);

/// Why values could not be told apart with the separator, and what to do; empty when they can.
KPFORMATS_EXPORT QString separatorFault(const AsciiExportSettings& settings);

/// The text that stands between two values; empty where values lie in fixed columns.
KPFORMATS_EXPORT QString separatorText(const AsciiExportSettings& settings);

/// The first \a rows vertices of an object, sharing what can be shared, as an object of its own.
KPFORMATS_EXPORT ModelObject firstRows(const ModelObject& object, int rows);
/// The beginning of the file that an export of these objects writes: the header and the first \a rows rows of the
/// first object, byte for byte. The settings have a layout.
KPFORMATS_EXPORT QByteArray asciiPreview(const AsciiExportSettings& settings,
                                         const std::vector<const ModelObject*>& objects, int rows);

} // namespace kpFormats
