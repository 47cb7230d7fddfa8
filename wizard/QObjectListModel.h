// SPDX-License-Identifier: MIT
#pragma once

#include "core/saver/kpBaseExportExport.h"

#include <QAbstractListModel>
#include <QHash>
#include <QVariant>

#include <string>
#include <vector>

class QWidget;

namespace kpBaseExport
{

/// A checkable list of named rows with, optionally, an id and a type each, or a value each.
/// Whoever fills it calls clear(), addName() for each row and resetModel() at the end.
class KPBASEEXPORT_EXPORT QObjectListModel : public QAbstractListModel
{
    Q_OBJECT

public:
    /// \a title heads the column of names.
    QObjectListModel(QWidget* parent, const QString& title);

    void addName(const QString& name, const int& id, const QString& type, bool checked);
    void addName(const QString& name, const QVariant& value, bool checked);
    /// Empties the list without telling the views; resetModel() does.
    void clear();
    void resetModel();

    bool isNameInList(const QString& name);
    /// Checks the first row with that id or name, without telling the views.
    void setIdInListChecked(const int& id);
    void setNameInListChecked(const QString& name);

    /// The id of a row; 0 outside the list.
    int getGeoId(int row) const;
    /// What the checked rows hold, in row order; empty when the rows have no such column.
    std::vector<int> selectedGeoIds() const;
    std::vector<std::string> selectedNames();
    std::vector<std::string> selectedGeoTypes();
    std::vector<double> selectedValues();

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

public Q_SLOTS:
    void selectAll();
    void deselectAll();

Q_SIGNALS:
    /// The user has toggled a row.
    void objectChecked();

private:
    struct Entry
    {
        QString name;
        bool checked;
    };

    template <typename Value>
    bool fills(const std::vector<Value>& column) const
    {
        return !column.empty() && column.size() == m_entries.size();
    }
    void setAllChecked(bool checked);
    Entry* entryNamed(const QString& name);

    QString m_title;
    std::vector<Entry> m_entries;
    std::vector<int> m_ids;
    std::vector<QString> m_types;
    std::vector<QVariant> m_values;
    // First row of each id and name; both are made when they are first asked for.
    QHash<int, std::size_t> m_rowOfId;
    QHash<QString, std::size_t> m_rowOfName;
};

} // namespace kpBaseExport
