// SPDX-License-Identifier: MIT
#pragma once

#include "core/saver/kpBaseExportExport.h"

#include <QItemDelegate>

namespace kpBaseExport
{

class QExportSpecification;

/// Edits a number of a layout in a spin box of a fixed range.
class KPBASEEXPORT_EXPORT QESSpinBoxDelegate : public QItemDelegate
{
    Q_OBJECT

public:
    QESSpinBoxDelegate(QExportSpecification* editor, QObject* parent);

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;

    int minimum = 0; ///< least value
    int maximum = 8; ///< largest value

protected:
    QExportSpecification* m_editor; ///< not owned
};

} // namespace kpBaseExport
