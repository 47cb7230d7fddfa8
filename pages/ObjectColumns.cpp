// SPDX-License-Identifier: MIT
#include "pages/ObjectColumns.h"

#include "wizard/PlainText.h"
#include "wizard/QObjectListModel.h"

namespace kpFormats
{

ObjectColumns::ObjectColumns(const Model& model, QObject* parent)
    : QIdentityProxyModel(parent)
    , m_objects(model)
{
}

int ObjectColumns::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : sourceColumns() + 1;
}

QModelIndex ObjectColumns::index(int row, int column, const QModelIndex& parent) const
{
    // The list below has no such column.
    if (isSetColumn(column) && hasIndex(row, column, parent))
        return createIndex(row, column);
    return QIdentityProxyModel::index(row, column, parent);
}

QVariant ObjectColumns::data(const QModelIndex& index, int role) const
{
    if (role == Qt::ToolTipRole)
        return kpBaseExport::plainText(data(index, Qt::DisplayRole).toString());
    if (!isSetColumn(index.column()))
        return QIdentityProxyModel::data(index, role);
    if (role == Qt::TextAlignmentRole)
        return static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter);
    const ModelObject* object = role == Qt::DisplayRole ? objectOf(index.row()) : nullptr;
    return object ? object->set : QVariant();
}

QVariant ObjectColumns::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Horizontal && isSetColumn(section))
        return role == Qt::DisplayRole ? tr("Set") : QVariant();
    return QIdentityProxyModel::headerData(section, orientation, role);
}

Qt::ItemFlags ObjectColumns::flags(const QModelIndex& index) const
{
    Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
    if (index.column() == 0)
        flags |= Qt::ItemIsUserCheckable;
    return flags;
}

const ModelObject* ObjectColumns::objectOf(int row) const
{
    return m_objects.find(static_cast<const kpBaseExport::QObjectListModel*>(sourceModel())->getGeoId(row));
}

} // namespace kpFormats
