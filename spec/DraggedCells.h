// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QVector>

class QMimeData;

namespace kpBaseExport
{

/// One cell of an item view that is being dragged.
struct DraggedCell
{
    int row = 0;
    int column = 0;
    QString text;
};

/// True when \a data holds cells of an item view, in Qt's own type "application/x-qabstractitemmodeldatalist".
bool holdsCells(const QMimeData* data);
/// The cells that have a text or another value; broken data end the list.
QVector<DraggedCell> draggedCells(const QMimeData& data);

} // namespace kpBaseExport
