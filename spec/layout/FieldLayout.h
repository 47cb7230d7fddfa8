// SPDX-License-Identifier: MIT
#pragma once

#include "core/MatrixDataExporter.h"
#include "core/kpBaseExportCoreExport.h"
#include "spec/layout/QESAttribute.h"

#include <QMap>
#include <QVector>

#include <functional>
#include <vector>

namespace kpBaseExport
{

/// The arithmetic of a layout: what stands where. No window is needed.
namespace layout
{

/// The columns of one field, both inclusive.
struct Span
{
    int start = 0;
    int end = 0;
};

/// "GROUP" and "MEMBER" of "GROUP:MEMBER", parted at the first colon; the whole name when there is none.
KPBASEEXPORTCORE_EXPORT QString parentName(const QString& name);
KPBASEEXPORTCORE_EXPORT QString childName(const QString& name);
KPBASEEXPORTCORE_EXPORT bool isCompound(const QString& name);

/// True for the names of the coordinates and grid indices: "X", "Y", "Z", "i", "j".
KPBASEEXPORTCORE_EXPORT bool isNonAttribute(const QString& name);
/// True for a field that is one of these five by its type, and not an attribute that happens to have such a name.
KPBASEEXPORTCORE_EXPORT bool isNonAttribute(const QESAttribute& field);
/// Fills \a out with the standard field of one of these five; leaves it as it is for any other name.
KPBASEEXPORTCORE_EXPORT void nonAttribute(const QString& name, QESAttribute& out);

/// Columns of a new field of that width behind a field that ends at \a previousEnd; -1 for a new first field.
KPBASEEXPORTCORE_EXPORT Span spanBehind(int previousEnd, int width);
/// The columns at which a field lies that must not start before \a next; false when it can stay.
KPBASEEXPORTCORE_EXPORT bool pushedRight(Span& span, int& next);

/// The fields of a specification (by name) that are on offer, in their order, the unplaced ones last; each gets
/// its place as order.
KPBASEEXPORTCORE_EXPORT QVector<QESAttribute> orderedFields(const QMap<QString, QESAttribute>& specification,
                                                            const std::function<bool(const QString&)>& onOffer);
/// Gives columns to fields that have none and moves those to the right that lie over the field before.
KPBASEEXPORTCORE_EXPORT void layOut(QVector<QESAttribute>& fields);

/// The field as the writer takes it: X, Y, Z in lower case.
KPBASEEXPORTCORE_EXPORT QString writerName(const QString& name);
/// The writer's list of the fields. Columns are the fields' own; separated fields get those that their widths give.
KPBASEEXPORTCORE_EXPORT std::vector<MatrixDataExporter::FieldInfo> fieldInfos(const QVector<QESAttribute>& fields,
                                                                              bool columns);

} // namespace layout

} // namespace kpBaseExport
