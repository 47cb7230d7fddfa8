// SPDX-License-Identifier: MIT
#pragma once

#include "app/savers/ascii/AsciiExportSettings.h"
#include "app/savers/ascii/AsciiLayout.h"
#include "app/savers/ascii/AsciiRecord.h"
#include "writers/MatrixDataAsciiExporter.h"

#include <QByteArray>

namespace refhost
{

/// What an export and its preview share: the writer made ready, and one object written with it.
void prepareWriter(kpBaseExport::MatrixDataAsciiExporter& writer, const AsciiTable& table,
                   const AsciiExportSettings& settings);
void writeObject(kpBaseExport::MatrixDataAsciiExporter& writer, const ModelObject& object, const AsciiTable& table,
                 const AsciiExportSettings& settings, ExportReport& report);

/// The text that stands between two values; empty where values lie in fixed columns.
QString separatorText(const AsciiExportSettings& settings);

/// The first \a rows vertices of an object, sharing what can be shared, as an object of its own.
ModelObject firstRows(const ModelObject& object, int rows);
/// The beginning of the file that an export of these objects writes: the header and the first \a rows rows of the
/// first object, byte for byte.
QByteArray asciiPreview(const AsciiExportSettings& settings, const AsciiLayout& layout,
                        const std::vector<const ModelObject*>& objects, int rows);

} // namespace refhost
