// SPDX-License-Identifier: MIT
#pragma once

#include "model/ModelObject.h"
#include "model/kpFormatsExport.h"
#include "spec/layout/QESAttribute.h"

#include <QMap>
#include <QStringList>
#include <QVector>

#include <optional>

#include <vector>

namespace kpFormats
{

/// Which fields an ASCII export writes, in which order and where: laid out on the wizard's page or read from a file.
struct AsciiLayout
{
    QMap<QString, kpBaseExport::QESAttribute> fields; ///< by name; the place in a line is the field's order
    QStringList lacking;                              ///< names of the layout that are known to be left out
    std::optional<int> decimals;                      ///< of every real field, where they were given beside the layout
};

/// A field that some of the chosen objects have.
struct OfferedField
{
    QString name;      ///< in layouts: "X", "Y", "Z", "i", "j" or the attribute's, made different from these
    QString attribute; ///< name in the model; empty for coordinates and grid indices
    AttributeKind kind = AttributeKind::Real;
};

/// Coordinates first, then column and row where there is a grid, then the attributes in the order first met.
KPFORMATS_EXPORT std::vector<OfferedField> offeredFields(const std::vector<const ModelObject*>& objects);
/// The field as the layout editor knows it; 3 decimals where the number \a wanted is not known beforehand.
KPFORMATS_EXPORT kpBaseExport::QESAttribute editorField(const OfferedField& field, int wanted);

/// The fields of the layout that the objects have, in order and with columns that do not overlap.
KPFORMATS_EXPORT QVector<kpBaseExport::QESAttribute> fieldsFor(const AsciiLayout& layout,
                                                               const std::vector<OfferedField>& offered);

} // namespace kpFormats
