// SPDX-License-Identifier: MIT
#include "export/AttributeTable.h"

#include <QLocale>

namespace kpFormats
{

namespace
{

QString valueText(const QVariant& value)
{
    return value.type() == QVariant::Double ? QString::number(value.toDouble(), 'g', QLocale::FloatingPointShortest)
                                            : value.toString();
}

QVariant valueAt(const AttributeColumn& column, int vertex)
{
    if (column.kind != AttributeKind::Real)
        return column.values.value(vertex);
    const auto index = static_cast<std::size_t>(vertex);
    if (!column.numbers || index >= column.numbers->size() || (column.missing && (*column.missing)[index]))
        return {};
    return (*column.numbers)[index];
}

void appendRow(QString& table, const QString& name, const QString& unit, const QVariant& value)
{
    if (value.isNull())
        return;
    const QString title = unit.isEmpty() ? name : QStringLiteral("%1 (%2)").arg(name, unit);
    table += QStringLiteral("<tr><td>") + title.toHtmlEscaped() + QStringLiteral("</td><td>")
             + valueText(value).toHtmlEscaped() + QStringLiteral("</td></tr>");
}

} // namespace

QString attributeTable(const ModelObject& object, const ExportSelection& selection, int vertex)
{
    QString rows;
    for (const ObjectAttribute& attribute : object.objectAttributes) {
        if (selection.wantsAttribute(attribute.name))
            appendRow(rows, attribute.name, attribute.unit, attribute.value);
    }
    if (vertex >= 0) {
        for (const AttributeColumn& column : object.vertexAttributes) {
            if (selection.wantsAttribute(column.name))
                appendRow(rows, column.name, column.unit, valueAt(column, vertex));
        }
    }
    return rows.isEmpty() ? QString() : QStringLiteral("<table>") + rows + QStringLiteral("</table>");
}

} // namespace kpFormats
