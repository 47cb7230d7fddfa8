// SPDX-License-Identifier: MIT
#include "spec/QESSpinBoxColumnDelegate.h"

#include "spec/QExportSpecification.h"
#include "spec/layout/FieldLayout.h"

#include <QSpinBox>

namespace kpBaseExport
{

QESSpinBoxColumnDelegate::QESSpinBoxColumnDelegate(QExportSpecification* editor, QObject* parent)
    : QESSpinBoxDelegate(editor, parent)
{
}

QWidget* QESSpinBoxColumnDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem&,
                                                const QModelIndex& index) const
{
    auto* box = new QSpinBox(parent);
    if (!m_editor || (index.column() != 1 && index.column() != 2))
        return box;
    const layout::Span range = m_editor->columnRange(index.row(), index.column() == 1);
    box->setRange(range.start, range.end);
    return box;
}

} // namespace kpBaseExport
