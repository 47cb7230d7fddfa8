// SPDX-License-Identifier: MIT
#include "window/VertexTable.h"

#include "geo/CoordinateSystems.h"
#include "window/AttributeFigures.h"

#include <QLocale>

#include <cmath>

namespace refhost
{

namespace
{

constexpr int axes = 3;
constexpr int shownDecimals = 3;
constexpr int shownDecimalsOfDegrees = 7;

} // namespace

VertexTable::VertexTable(const Model& model, QObject* parent)
    : QAbstractTableModel(parent)
    , m_model(model)
{
}

void VertexTable::setObject(int id)
{
    beginResetModel();
    m_id = id;
    m_degrees = object() && unitsOf(object()->crs).degrees;
    endResetModel();
}

int VertexTable::rowCount(const QModelIndex& parent) const
{
    return !parent.isValid() && object() ? object()->vertexCount() : 0;
}

int VertexTable::columnCount(const QModelIndex& parent) const
{
    return !parent.isValid() && object() ? axes + static_cast<int>(object()->vertexAttributes.size()) : 0;
}

QVariant VertexTable::data(const QModelIndex& index, int role) const
{
    const bool isNumber =
        index.column() < axes
        || (object()
            && object()->vertexAttributes[static_cast<std::size_t>(index.column() - axes)].kind != AttributeKind::Text);
    if (role == Qt::TextAlignmentRole)
        return static_cast<int>((isNumber ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    if (role != Qt::DisplayRole || !index.isValid() || !object())
        return {};
    if (index.column() >= axes)
        return shownValue(object()->vertexAttributes[static_cast<std::size_t>(index.column() - axes)], index.row());
    const Numbers& numbers = index.column() == 0 ? object()->x : index.column() == 1 ? object()->y : object()->z;
    const double number = (*numbers)[static_cast<std::size_t>(index.row())];
    if (!std::isfinite(number) || (index.column() == 2 && !object()->hasZ))
        return {};
    const bool degrees = m_degrees && index.column() < 2;
    return QLocale().toString(number, 'f', degrees ? shownDecimalsOfDegrees : shownDecimals);
}

QVariant VertexTable::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole || !object())
        return QAbstractTableModel::headerData(section, orientation, role);
    if (section < axes)
        return QStringLiteral("XYZ").mid(section, 1);
    const AttributeColumn& column = object()->vertexAttributes[static_cast<std::size_t>(section - axes)];
    return column.unit.isEmpty() ? column.name : QStringLiteral("%1 [%2]").arg(column.name, column.unit);
}

} // namespace refhost
