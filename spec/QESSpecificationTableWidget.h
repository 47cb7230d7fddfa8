// SPDX-License-Identifier: MIT
#pragma once

#include "core/saver/kpBaseExportExport.h"

#include <QSet>
#include <QTableWidget>

class QESAttributeTableWidget;

namespace kpBaseExport
{
class QExportSpecification;
}

/// The fields of the layout, one a row. Takes attributes from the list on offer; a row dragged onto another changes
/// the order of the fields.
class KPBASEEXPORT_EXPORT QESSpecificationTableWidget : public QTableWidget
{
    Q_OBJECT

public:
    explicit QESSpecificationTableWidget(QWidget* parent = nullptr);

    /// The editor to act on; not owned.
    void setSheet(kpBaseExport::QExportSpecification* sheet);
    /// The other table whose drags are accepted; not owned.
    void setSource(QESAttributeTableWidget* source);
    /// Columns whose cells stay in place when rows are reordered.
    void ignoreColumns(const QSet<int>& columns);
    void ignoreColumns(int column);

    /// Moves the cells that travel from one row to another; the rows between close up. Only this table changes.
    void moveCells(int from, int to);

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void startDrag(Qt::DropActions supportedActions) override;

private:
    bool accepts(const QDropEvent& event) const;
    void dropAttributes(QDropEvent* event);
    void dropRow(QDropEvent* event);

    kpBaseExport::QExportSpecification* m_sheet = nullptr;
    QESAttributeTableWidget* m_source = nullptr;
    QSet<int> m_ignored;
};
