// SPDX-License-Identifier: MIT
#include "spec/QESSpinBoxDelegate.h"

#include <QSpinBox>

namespace kpBaseExport
{

QESSpinBoxDelegate::QESSpinBoxDelegate(QExportSpecification* editor, QObject* parent)
    : QItemDelegate(parent)
    , m_editor(editor)
{
}

QWidget* QESSpinBoxDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem&, const QModelIndex&) const
{
    auto* box = new QSpinBox(parent);
    box->setRange(minimum, maximum);
    box->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    return box;
}

void QESSpinBoxDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const
{
    static_cast<QSpinBox*>(editor)->setValue(index.data(Qt::DisplayRole).toInt());
}

void QESSpinBoxDelegate::setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const
{
    auto* box = static_cast<QSpinBox*>(editor);
    box->interpretText();
    model->setData(index, box->value(), Qt::EditRole);
}

void QESSpinBoxDelegate::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                                              const QModelIndex&) const
{
    editor->setGeometry(option.rect);
}

} // namespace kpBaseExport
