// SPDX-License-Identifier: MIT
#pragma once

#include "export/ExportSelection.h"
#include "export/Findings.h"
#include "formats/ogr/OgrLayers.h"
#include "formats/ogr/OgrTraits.h"

#include <QVariant>
#include <QVector>

#include <vector>

namespace kpBase
{
class AbstractProgress;
}

namespace kpBaseExport
{
class OGRAttributeInfo;
}

namespace kpFormats
{

/// One field of a layer.
struct OgrColumn
{
    enum Content { Attribute, ObjectName, Colour, Height };

    Content content = Attribute;
    QString attribute;                        ///< name in the model
    QString unit;                             ///< of the first object that has it
    AttributeKind kind = AttributeKind::Text; ///< as written, whatever the objects' own kinds
    TextMeaning meaning = TextMeaning::Plain; ///< dates and times that have a field of their own
    QString field;                            ///< name in the file
    int width = 0;
    int decimals = 0;
    OgrTraits::Texts leaveOut = OgrTraits::Texts::Any; ///< texts go without the characters that have no place there
    int cutTo = 0;                                     ///< bytes that longer texts are cut to; 0 when none is longer
    double most = 0;                                   ///< numbers beyond this are left out; 0 for no limit
};

/// The fields of a layer, made for the values that are there.
struct OgrTable
{
    std::vector<OgrColumn> columns;
    bool onlyLatin = true; ///< no text but in ASCII
    QString foreignTexts;  ///< each character beyond ASCII that occurs, once

    /// Where "Horizontal " or "Vertical " goes before texts of the field "type": the index of the last numbers "dip" and
    /// of the last texts "type"; -1 for none.
    int dip = -1;
    int type = -1;

    QVector<kpBaseExport::OGRAttributeInfo> fields() const;
};

/// The fields of a layer as the objects' attributes name them: kinds that fit all, names that the driver takes, no more
/// than it holds. Notes in \a findings what has no field.
std::vector<OgrColumn> ogrColumns(const OgrLayer& layer, const ExportSelection& selection,
                                  const OgrExportSettings& settings, const OgrTraits& traits, Findings& findings);

/// Fits the columns of a table to their values: looks at every value once and notes in \a findings what the fields
/// cannot hold. Of no use when the user cancels.
void sizeColumns(OgrTable& table, const OgrLayer& layer, const OgrExportSettings& settings, const OgrTraits& traits,
                 Findings& findings, const kpBase::AbstractProgress* progress);

/// Whether the character has no place in such texts.
bool isLeftOut(QChar character, OgrTraits::Texts texts);

/// \a value as the column holds it; an invalid one for a missing value.
QVariant writtenValue(const OgrColumn& column, const QVariant& value);

/// The text of a type, which says first whether the \a dip beside it is level or upright.
QString withDirection(const QString& type, const QVariant& dip);

/// The attribute of that name, or null. \a hint is where it was in the object before: objects of one source have their
/// attributes in one order.
const AttributeColumn* vertexAttributeOf(const ModelObject& object, const QString& name, std::size_t& hint);
const ObjectAttribute* objectAttributeOf(const ModelObject& object, const QString& name, std::size_t& hint);

} // namespace kpFormats
