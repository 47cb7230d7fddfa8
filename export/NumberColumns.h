// SPDX-License-Identifier: MIT
#pragma once

#include "export/ExportSelection.h"
#include "export/Findings.h"
#include "model/ModelObject.h"
#include "model/kpFormatsExport.h"

#include <vector>

namespace kpFormats
{

/// An attribute as numbers, whatever it is in the model: one per vertex or cell, or the same for all.
class KPFORMATS_EXPORT NumberColumn
{
public:
    explicit NumberColumn(const AttributeColumn& column)
        : m_name(column.name)
        , m_unit(column.unit)
        , m_kind(column.kind)
        , m_column(&column)
    {
    }
    explicit NumberColumn(const ObjectAttribute& attribute);

    const QString& name() const { return m_name; }
    const QString& unit() const { return m_unit; }
    AttributeKind kind() const { return m_kind; }
    /// The value of a vertex or cell; NaN when it is missing.
    double at(int index) const;

private:
    QString m_name;
    QString m_unit;
    AttributeKind m_kind;
    const AttributeColumn* m_column = nullptr;
    double m_constant = 0.0; ///< of an attribute of the whole object
};

/// The chosen attributes of the object's vertices and of the whole object that are numbers; notes the others. The
/// object outlives the columns.
KPFORMATS_EXPORT std::vector<NumberColumn> numberColumns(const ModelObject& object, const ExportSelection& selection,
                                                         Findings& findings);
/// Those of the vertices alone.
KPFORMATS_EXPORT std::vector<NumberColumn> vertexColumns(const ModelObject& object, const ExportSelection& selection,
                                                         Findings& findings);
/// The same for the cells of a volume.
KPFORMATS_EXPORT std::vector<NumberColumn> cellColumns(const ModelObject& object, const ExportSelection& selection,
                                                       Findings& findings);
/// Notes chosen attributes that none of the objects has.
KPFORMATS_EXPORT void noteMissingAttributes(const std::vector<const ModelObject*>& objects,
                                            const ExportSelection& selection, Findings& findings);
/// Notes every attribute of the object, for formats that have none.
KPFORMATS_EXPORT void noteAttributesLeftOut(const ModelObject& object, Findings& findings);

} // namespace kpFormats
