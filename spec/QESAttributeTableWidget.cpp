// SPDX-License-Identifier: MIT
#include "spec/QESAttributeTableWidget.h"

#include "spec/DraggedCells.h"
#include "spec/QESSpecificationTableWidget.h"
#include "spec/QExportSpecification.h"

#include <QDropEvent>

QESAttributeTableWidget::QESAttributeTableWidget(QWidget* parent)
    : QTableWidget(parent)
{
}

void QESAttributeTableWidget::setSheet(kpBaseExport::QExportSpecification* sheet)
{
    m_sheet = sheet;
}

void QESAttributeTableWidget::setSource(QESSpecificationTableWidget* source)
{
    m_source = source;
}

Qt::DropActions QESAttributeTableWidget::supportedDropActions() const
{
    return Qt::CopyAction | Qt::MoveAction;
}

bool QESAttributeTableWidget::accepts(const QDropEvent& event) const
{
    return m_source && event.source() == m_source;
}

void QESAttributeTableWidget::dragEnterEvent(QDragEnterEvent* event)
{
    event->setAccepted(accepts(*event));
}

void QESAttributeTableWidget::dragMoveEvent(QDragMoveEvent* event)
{
    event->setAccepted(accepts(*event));
}

void QESAttributeTableWidget::dropEvent(QDropEvent* event)
{
    // The editor takes the fields out of both tables itself, so the dragging table must delete nothing.
    event->setDropAction(Qt::IgnoreAction);
    event->ignore();
    if (!accepts(*event) || !kpBaseExport::holdsCells(event->mimeData()))
        return;
    QStringList names;
    for (const kpBaseExport::DraggedCell& cell : kpBaseExport::draggedCells(*event->mimeData())) {
        if (cell.column == 0)
            names.append(cell.text);
    }
    if (m_sheet && !names.isEmpty())
        m_sheet->takeFieldsOut(names, m_source);
}
