// SPDX-License-Identifier: MIT
#pragma once

#include "spec/QESSpinBoxDelegate.h"

namespace kpBaseExport
{

/// Edits the start (column 1) or end (column 2) of a field within what its neighbours leave free.
class KPBASEEXPORT_EXPORT QESSpinBoxColumnDelegate : public QESSpinBoxDelegate
{
    Q_OBJECT

public:
    QESSpinBoxColumnDelegate(QExportSpecification* editor, QObject* parent);

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

} // namespace kpBaseExport
