// SPDX-License-Identifier: MIT
#include "spec/QESSpecificationTableWidget.h"

#include "spec/DraggedCells.h"
#include "spec/QESAttributeTableWidget.h"
#include "spec/QExportSpecification.h"

#include <QDrag>
#include <QDropEvent>
#include <QMimeData>
#include <QSignalBlocker>

QESSpecificationTableWidget::QESSpecificationTableWidget(QWidget* parent)
    : QTableWidget(parent)
{
}

void QESSpecificationTableWidget::setSheet(kpBaseExport::QExportSpecification* sheet)
{
    m_sheet = sheet;
}

void QESSpecificationTableWidget::setSource(QESAttributeTableWidget* source)
{
    m_source = source;
}

void QESSpecificationTableWidget::ignoreColumns(const QSet<int>& columns)
{
    m_ignored = columns;
}

void QESSpecificationTableWidget::ignoreColumns(int column)
{
    m_ignored.insert(column);
}

bool QESSpecificationTableWidget::accepts(const QDropEvent& event) const
{
    return event.source() == this || (m_source && event.source() == m_source);
}

void QESSpecificationTableWidget::dragEnterEvent(QDragEnterEvent* event)
{
    event->setAccepted(accepts(*event));
}

void QESSpecificationTableWidget::dragMoveEvent(QDragMoveEvent* event)
{
    event->setAccepted(accepts(*event));
}

void QESSpecificationTableWidget::dropEvent(QDropEvent* event)
{
    if (event->source() == this) {
        dropRow(event);
    } else if (accepts(*event)) {
        dropAttributes(event);
    } else {
        event->setDropAction(Qt::IgnoreAction);
        event->ignore();
    }
}

void QESSpecificationTableWidget::dropAttributes(QDropEvent* event)
{
    if (!m_sheet || !kpBaseExport::holdsCells(event->mimeData()))
        return;
    const QTableWidgetItem* item = itemAt(event->pos());
    QStringList names;
    for (const kpBaseExport::DraggedCell& cell : kpBaseExport::draggedCells(*event->mimeData()))
        names.append(cell.text);
    names.sort();
    m_sheet->insertShownAttributes(item ? item->row() : rowCount(), names);
    // After a move the list of attributes deletes the dragged rows itself.
    event->setDropAction(Qt::MoveAction);
    event->accept();
}

void QESSpecificationTableWidget::dropRow(QDropEvent* event)
{
    const QModelIndexList selected = selectionModel()->selectedIndexes();
    const QTableWidgetItem* target = itemAt(event->pos());
    const bool wholeRow = selectionMode() == SingleSelection && selectionBehavior() == SelectRows && !selected.isEmpty()
                          && selected.size() == columnCount();
    if (!wholeRow || !target || target->row() == selected.first().row()) {
        event->setDropAction(Qt::IgnoreAction);
        event->ignore();
        return;
    }
    const int to = target->row();
    moveCells(selected.first().row(), to);
    // After a copy the view deletes nothing.
    event->setDropAction(Qt::CopyAction);
    event->accept();
    if (m_sheet)
        m_sheet->fieldsReordered(this, to);
}

void QESSpecificationTableWidget::startDrag(Qt::DropActions)
{
    const QModelIndexList selected = selectedIndexes();
    QMimeData* cells = selected.isEmpty() ? nullptr : model()->mimeData(selected);
    if (!cells)
        return;
    QRect row;
    for (const QModelIndex& index : selected)
        row |= visualRect(index);
    row &= viewport()->rect();
    auto* drag = new QDrag(this);
    drag->setMimeData(cells);
    drag->setPixmap(viewport()->grab(row));
    drag->setHotSpot(viewport()->mapFromGlobal(QCursor::pos()) - row.topLeft());
    // The view's own drag inside one table knows moves only and would delete the row after one.
    drag->exec(Qt::CopyAction | Qt::MoveAction, Qt::CopyAction);
}

void QESSpecificationTableWidget::moveCells(int from, int to)
{
    // Cells that are empty for a moment are not edits.
    const QSignalBlocker blocker(this);
    const int step = from < to ? 1 : -1;
    for (int column = 0; column < columnCount(); ++column) {
        if (m_ignored.contains(column))
            continue;
        QTableWidgetItem* moved = takeItem(from, column);
        for (int row = from; row != to; row += step)
            setItem(row, column, takeItem(row + step, column));
        setItem(to, column, moved);
    }
}
