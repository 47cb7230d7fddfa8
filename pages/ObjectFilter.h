// SPDX-License-Identifier: MIT
#pragma once

#include "pages/SearchWords.h"
#include "pages/kpFormatsUiExport.h"

#include <QSortFilterProxyModel>

namespace kpFormats
{

/// The rows of the wizard's list of objects that a search shows, sorted.
class KPFORMATSUI_EXPORT ObjectFilter : public QSortFilterProxyModel
{
public:
    using QSortFilterProxyModel::QSortFilterProxyModel;

    /// Rows that have every word of \a text in one of their columns, in whatever case.
    void setSearch(const QString& text);
    void setCheckedOnly(bool on);
    bool filters() const { return m_checkedOnly || !m_words.isEmpty(); }

protected:
    bool filterAcceptsRow(int row, const QModelIndex& parent) const override;

private:
    SearchWords m_words;
    bool m_checkedOnly = false;
};

} // namespace kpFormats
