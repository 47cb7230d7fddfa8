// SPDX-License-Identifier: MIT
#include "pages/ObjectFilter.h"

#include <algorithm>

namespace kpFormats
{

void ObjectFilter::setSearch(const QString& text)
{
    m_words = text.simplified().split(QLatin1Char(' '), Qt::SkipEmptyParts);
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
    return std::all_of(m_words.begin(), m_words.end(), [&texts](const QString& word) {
        return std::any_of(texts.begin(), texts.end(),
                           [&word](const QString& text) { return text.contains(word, Qt::CaseInsensitive); });
    });
}

} // namespace kpFormats
