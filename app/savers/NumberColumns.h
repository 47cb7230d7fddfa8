// SPDX-License-Identifier: MIT
#pragma once

#include "app/jobs/ExportReport.h"
#include "app/jobs/ExportSelection.h"
#include "app/model/ModelObject.h"

#include <vector>

namespace refhost
{

/// An attribute as numbers, whatever it is in the model: one per vertex or cell, or the same for all.
class NumberColumn
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
std::vector<NumberColumn> numberColumns(const ModelObject& object, const ExportSelection& selection,
                                        ExportReport& report);
/// The same for the cells of a volume.
std::vector<NumberColumn> cellColumns(const ModelObject& object, const ExportSelection& selection,
                                      ExportReport& report);
/// Notes chosen attributes that none of the objects has.
void noteMissingAttributes(const std::vector<const ModelObject*>& objects, const ExportSelection& selection,
                           ExportReport& report);
/// Notes every attribute of the object, for formats that have none.
void noteAttributesLeftOut(const ModelObject& object, ExportReport& report);

} // namespace refhost
