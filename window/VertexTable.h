// SPDX-License-Identifier: MIT
#pragma once

#include "cli/refhost.h"

#include "model/Model.h"

#include <QAbstractTableModel>

namespace refhost
{

/// The vertices of an object as rows: position, then the attributes of vertices. Empty when there is no such object.
class VertexTable : public QAbstractTableModel
{
public:
    /// The model outlives this.
    explicit VertexTable(const Model& model, QObject* parent = nullptr);

    /// Shows another object; 0 for none.
    void setObject(int id);

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

private:
    const ModelObject* object() const { return m_model.find(m_id); }

    const Model& m_model;
    int m_id = 0;
    bool m_degrees = false; ///< positions count in degrees
};

} // namespace refhost
