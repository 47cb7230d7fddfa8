// SPDX-License-Identifier: MIT
#include "pages/ObjectFilter.h"

namespace kpFormats
{

void ObjectFilter::setSearch(const QString& text)
{
    m_words = SearchWords(text);
    invalidateFilter();
}

void ObjectFilter::setCheckedOnly(bool on)
{
    m_checkedOnly = on;
    invalidateFilter();
}

bool ObjectFilter::filterAcceptsRow(int row, const QModelIndex& parent) const
{
    const QAbstractItemModel& rows = *sourceModel();
    if (m_checkedOnly && rows.index(row, 0, parent).data(Qt::CheckStateRole).toInt() != Qt::Checked)
        return false;
    if (m_words.isEmpty())
        return true;
    QStringList texts;
    for (int column = 0; column < rows.columnCount(parent); ++column)
        texts.append(rows.index(row, column, parent).data().toString());
    return m_words.areIn(texts);
}

} // namespace kpFormats
