// SPDX-License-Identifier: MIT
#pragma once

#include "core/GeoObject.h"
#include "core/MatrixDataExporter.h"
#include "export/Findings.h"
#include "formats/ascii/AsciiExportSettings.h"
#include "formats/ascii/AsciiLayout.h"
#include "model/ModelObject.h"
#include "model/kpFormatsExport.h"

#include <QStringList>

#include <optional>
#include <vector>

namespace kpFormats
{

/// Where the values of a field come from.
struct KPFORMATS_EXPORT AsciiColumn
{
    enum Source { X, Y, Z, Attribute, GridColumn, GridRow };

    Source source = Attribute;
    QString attribute; ///< name in the model, of an Attribute
};

/// The columns of a table of several objects.
struct AsciiTable
{
    std::vector<kpBaseExport::MatrixDataExporter::FieldInfo> fields;
    std::vector<AsciiColumn> columns; ///< one per field
};

/// X, Y, Z, then every attribute in the order first met; an attribute named like a coordinate field gets another
/// name.  chosen limits the attributes; names that no object has are noted in \a findings.
KPFORMATS_EXPORT AsciiTable asciiTable(const std::vector<const ModelObject*>& objects,
                                       const std::optional<QStringList>& chosen, int decimals, Findings& findings);
/// The fields of a layout that some of the chosen \a objects have; the others are noted in \a findings.
KPFORMATS_EXPORT AsciiTable asciiTable(const AsciiLayout& layout, const std::vector<const ModelObject*>& objects,
                                       bool inColumns, Findings& findings);

/// The names of attributes as a spreadsheet takes for no formula, where the settings ask for that.
KPFORMATS_EXPORT void guardNames(AsciiTable& table, const AsciiExportSettings& settings);

/// Gives each field the columns that its longest value needs, with one blank between.
KPFORMATS_EXPORT void layOutColumns(AsciiTable& table, const std::vector<const ModelObject*>& objects,
                                    const AsciiExportSettings& settings);

/// Whether nothing at all stands for an unknown height; between blanks it would make a row shorter.
KPFORMATS_EXPORT bool leavesHeightsBlank(const AsciiExportSettings& settings);
/// Notes the vertices that have no height.
KPFORMATS_EXPORT void noteHeights(const ModelObject& object, const AsciiExportSettings& settings, Findings& findings);

/// Fills \a record with the object's matrices, shared with the model, and notes what the table cannot carry.
KPFORMATS_EXPORT void fillRecord(kpBaseExport::GeoObject& record, const ModelObject& object, const AsciiTable& table,
                                 const AsciiExportSettings& settings, Findings& findings);

} // namespace kpFormats
