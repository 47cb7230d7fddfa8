// SPDX-License-Identifier: MIT
#pragma once

#include "core/saver/kpBaseExportExport.h"

#include <QTableWidget>

class QESSpecificationTableWidget;

namespace kpBaseExport
{
class QExportSpecification;
}

/// The list of attributes on offer. They are dragged from here into the layout; a field that is dropped here (where
/// the viewport accepts drops) leaves the layout.
class KPBASEEXPORT_EXPORT QESAttributeTableWidget : public QTableWidget
{
    Q_OBJECT

public:
    explicit QESAttributeTableWidget(QWidget* parent = nullptr);

    /// The editor to act on; not owned.
    void setSheet(kpBaseExport::QExportSpecification* sheet);
    /// The only table whose drags are accepted; not owned.
    void setSource(QESSpecificationTableWidget* source);

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    /// Rows are moved out of the list, too.
    Qt::DropActions supportedDropActions() const override;

private:
    bool accepts(const QDropEvent& event) const;

    kpBaseExport::QExportSpecification* m_sheet = nullptr;
    QESSpecificationTableWidget* m_source = nullptr;
};
