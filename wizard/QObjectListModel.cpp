// SPDX-License-Identifier: MIT
#include "wizard/QObjectListModel.h"

#include <QWidget>

namespace kpBaseExport
{

namespace
{

/// The row of each key, the first one where a key occurs again.
template <typename Key, typename Rows, typename KeyOf>
void indexRows(QHash<Key, std::size_t>& index, const Rows& rows, KeyOf keyOf)
{
    index.reserve(static_cast<int>(rows.size()));
    for (std::size_t row = rows.size(); row > 0; --row)
        index.insert(keyOf(rows[row - 1]), row - 1);
}

} // namespace

QObjectListModel::QObjectListModel(QWidget* parent, const QString& title)
    : QAbstractListModel(parent)
    , m_title(title)
{
}

void QObjectListModel::addName(const QString& name, const int& id, const QString& type, bool checked)
{
    m_entries.push_back({name, checked});
    m_ids.push_back(id);
    m_types.push_back(type);
    m_rowOfId.clear();
    m_rowOfName.clear();
}

void QObjectListModel::addName(const QString& name, const QVariant& value, bool checked)
{
    m_entries.push_back({name, checked});
    m_values.push_back(value);
    m_rowOfName.clear();
}

void QObjectListModel::clear()
{
    m_entries.clear();
    m_ids.clear();
    m_types.clear();
    m_values.clear();
    m_rowOfId.clear();
    m_rowOfName.clear();
}

void QObjectListModel::resetModel()
{
    beginResetModel();
    endResetModel();
}

bool QObjectListModel::isNameInList(const QString& name)
{
    return entryNamed(name) != nullptr;
}

QObjectListModel::Entry* QObjectListModel::entryNamed(const QString& name)
{
    if (m_rowOfName.isEmpty())
        indexRows(m_rowOfName, m_entries, [](const Entry& entry) { return entry.name; });
    const auto found = m_rowOfName.constFind(name);
    return found == m_rowOfName.constEnd() ? nullptr : &m_entries[found.value()];
}

void QObjectListModel::setIdInListChecked(const int& id)
{
    if (!fills(m_ids))
        return;
    if (m_rowOfId.isEmpty())
        indexRows(m_rowOfId, m_ids, [](int each) { return each; });
    const auto found = m_rowOfId.constFind(id);
    if (found != m_rowOfId.constEnd())
        m_entries[found.value()].checked = true;
}

void QObjectListModel::setNameInListChecked(const QString& name)
{
    if (Entry* entry = entryNamed(name))
        entry->checked = true;
}

int QObjectListModel::getGeoId(int row) const
{
    return row >= 0 && static_cast<std::size_t>(row) < m_ids.size() ? m_ids[static_cast<std::size_t>(row)] : 0;
}

std::vector<int> QObjectListModel::selectedGeoIds() const
{
    std::vector<int> ids;
    for (std::size_t row = 0; fills(m_ids) && row < m_entries.size(); ++row) {
        if (m_entries[row].checked)
            ids.push_back(m_ids[row]);
    }
    return ids;
}

std::vector<std::string> QObjectListModel::selectedNames()
{
    std::vector<std::string> names;
    for (const Entry& entry : m_entries) {
        if (entry.checked)
            names.push_back(entry.name.toStdString());
    }
    return names;
}

std::vector<std::string> QObjectListModel::selectedGeoTypes()
{
    std::vector<std::string> types;
    for (std::size_t row = 0; fills(m_types) && row < m_entries.size(); ++row) {
        if (m_entries[row].checked)
            types.push_back(m_types[row].toStdString());
    }
    return types;
}

std::vector<double> QObjectListModel::selectedValues()
{
    std::vector<double> values;
    for (std::size_t row = 0; fills(m_values) && row < m_entries.size(); ++row) {
        if (m_entries[row].checked)
            values.push_back(m_values[row].toDouble());
    }
    return values;
}

int QObjectListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_entries.size());
}

int QObjectListModel::columnCount(const QModelIndex& parent) const
{
    if (parent.isValid())
        return 0;
    return 1 + (m_ids.empty() ? 0 : 1) + (m_types.empty() ? 0 : 1) + (m_values.empty() ? 0 : 1);
}

QVariant QObjectListModel::data(const QModelIndex& index, int role) const
{
    // Between clear() and resetModel() a view may still ask for rows that are gone.
    if (!index.isValid() || index.row() >= rowCount())
        return {};
    const auto row = static_cast<std::size_t>(index.row());
    const int column = index.column();
    switch (role) {
    case Qt::DisplayRole:
        if (column == 0)
            return m_entries[row].name;
        if (column == 1) {
            if (fills(m_ids))
                return m_ids[row];
            if (fills(m_types))
                return m_types[row];
            return fills(m_values) ? m_values[row] : QVariant();
        }
        return column == 2 && fills(m_types) ? QVariant(m_types[row]) : QVariant();
    case Qt::CheckStateRole:
        if (column == 0)
            return static_cast<int>(m_entries[row].checked ? Qt::Checked : Qt::Unchecked);
        return {};
    case Qt::TextAlignmentRole:
        return static_cast<int>((column == 0 ? Qt::AlignLeft : Qt::AlignHCenter) | Qt::AlignVCenter);
    default:
        return {};
    }
}

bool QObjectListModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (!index.isValid() || index.row() >= rowCount())
        return false;
    const auto row = static_cast<std::size_t>(index.row());
    if (role == Qt::CheckStateRole) {
        m_entries[row].checked = !m_entries[row].checked;
        Q_EMIT dataChanged(index, index);
        Q_EMIT objectChecked();
        return true;
    }
    if (role == Qt::EditRole && fills(m_values)) {
        m_values[row] = value;
        Q_EMIT dataChanged(index, index);
        return true;
    }
    return false;
}

QVariant QObjectListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    if (section == 0)
        return m_title;
    if (section == 1) {
        if (!m_ids.empty())
            return tr("Id");
        if (!m_types.empty())
            return tr("Type");
        return m_values.empty() ? QVariant() : QVariant(tr("Age"));
    }
    return section == 2 && !m_types.empty() ? QVariant(tr("Type")) : QVariant();
}

Qt::ItemFlags QObjectListModel::flags(const QModelIndex& index) const
{
    return QAbstractListModel::flags(index) | Qt::ItemIsEditable | Qt::ItemIsUserCheckable;
}

void QObjectListModel::selectAll()
{
    setAllChecked(true);
}

void QObjectListModel::deselectAll()
{
    setAllChecked(false);
}

void QObjectListModel::setAllChecked(bool checked)
{
    for (Entry& entry : m_entries)
        entry.checked = checked;
    resetModel();
}

} // namespace kpBaseExport
