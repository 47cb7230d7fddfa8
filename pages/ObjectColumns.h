// SPDX-License-Identifier: MIT
#pragma once

#include "model/Model.h"
#include "pages/kpFormatsUiExport.h"

#include <QIdentityProxyModel>

namespace kpFormats
{

/// The wizard's list of objects with the set of each in a column of its own, so that objects of one name can be told
/// apart, and whole names as tool tips. Rows are checked, not edited.
class KPFORMATSUI_EXPORT ObjectColumns : public QIdentityProxyModel
{
public:
    /// The model outlives this.
    ObjectColumns(const Model& model, QObject* parent);

    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QModelIndex index(int row, int column, const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    bool isSetColumn(int column) const { return column == sourceColumns(); }
    int sourceColumns() const { return QIdentityProxyModel::columnCount(); }
    const ModelObject* objectOf(int row) const;

    const Model& m_objects;
};

} // namespace kpFormats
