// SPDX-License-Identifier: MIT
#include "spec/DraggedCells.h"

#include <QDataStream>
#include <QMap>
#include <QMimeData>
#include <QVariant>

namespace kpBaseExport
{

namespace
{

QString cellsType()
{
    return QStringLiteral("application/x-qabstractitemmodeldatalist");
}

} // namespace

bool holdsCells(const QMimeData* data)
{
    return data && data->hasFormat(cellsType());
}

QVector<DraggedCell> draggedCells(const QMimeData& data)
{
    const QByteArray bytes = data.data(cellsType());
    QDataStream stream(bytes);
    QVector<DraggedCell> cells;
    while (!stream.atEnd()) {
        DraggedCell cell;
        QMap<int, QVariant> roles;
        stream >> cell.row >> cell.column >> roles;
        if (stream.status() != QDataStream::Ok)
            break;
        if (roles.isEmpty())
            continue;
        // The smallest role is that of the text shown.
        cell.text = roles.first().toString();
        cells.append(cell);
    }
    return cells;
}

} // namespace kpBaseExport
