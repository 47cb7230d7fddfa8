// SPDX-License-Identifier: MIT
// What the editor of a layout holds, and how its maps and tables are kept the same.
#include "spec/QExportSpecification.h"

#include "host/data/FormatFile.h"
#include "spec/FormTexts.h"

#include <QHash>
#include <QSignalBlocker>

#include <algorithm>
#include <limits>

namespace kpBaseExport
{

namespace
{

constexpr int nameColumn = 0;
constexpr int fieldWidth = 1;
constexpr int fieldPrecision = 2;
constexpr int columnStart = 1;
constexpr int columnEnd = 2;
constexpr int columnPrecision = 3;
constexpr int growthOfLastColumn = 100;

int numberIn(const QTableWidget& table, int row, int column)
{
    const QTableWidgetItem* item = table.item(row, column);
    return item ? item->text().toInt() : 0;
}

QString textIn(const QTableWidget& table, int row, int column)
{
    const QTableWidgetItem* item = table.item(row, column);
    return item ? item->text() : QString();
}

QTableWidgetItem* cellOf(QTableWidget& table, int row, int column)
{
    QTableWidgetItem* item = table.item(row, column);
    if (item)
        return item;
    item = new QTableWidgetItem;
    if (column == nameColumn)
        item->setFlags(Qt::ItemIsSelectable | Qt::ItemIsDragEnabled | Qt::ItemIsEnabled);
    else
        item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    table.setItem(row, column, item);
    return item;
}

void setCells(QTableWidget& table, int row, const QString& name, std::initializer_list<int> numbers)
{
    cellOf(table, row, nameColumn)->setText(name);
    int column = nameColumn;
    for (const int number : numbers)
        cellOf(table, row, ++column)->setText(QString::number(number));
}

} // namespace

void QExportSpecification::addAttribute(const QESAttribute& attribute)
{
    m_attributes.insert(attribute.name(), attribute);
}

void QExportSpecification::deleteAttribute(const QString& name)
{
    m_attributes.remove(name);
}

void QExportSpecification::deleteAttribute(const QESAttribute& attribute)
{
    deleteAttribute(attribute.name());
}

void QExportSpecification::clearAttribute()
{
    const QSignalBlocker blocker(m_attributeTable);
    m_attributeTable->clear();
    // Clearing takes the header's text, too.
    m_attributeTable->setHorizontalHeaderLabels({FormTexts::tr("Attribute")});
    m_attributes.clear();
}

void QExportSpecification::addField(const QESAttribute& attribute)
{
    m_specification.insert(attribute.name(), attribute);
}

void QExportSpecification::deleteField(const QString& name)
{
    m_specification.remove(name);
}

void QExportSpecification::deleteField(const QESAttribute& attribute)
{
    deleteField(attribute.name());
}

bool QExportSpecification::hasAttribute(const QString& name) const
{
    return m_specification.contains(name);
}

bool QExportSpecification::hasAttribute(const QESAttribute& attribute) const
{
    return hasAttribute(attribute.name());
}

void QExportSpecification::clearFields()
{
    const QSignalBlocker fieldBlocker(m_fieldTable);
    const QSignalBlocker columnBlocker(m_columnTable);
    m_fieldTable->setRowCount(0);
    m_columnTable->setRowCount(0);
    m_fields.clear();
    m_names.clear();
    m_specification.clear();
}

void QExportSpecification::clear()
{
    clearFields();
    clearAttribute();
}

QESAttribute QExportSpecification::field(int index) const
{
    QESAttribute attribute;
    const auto shown = m_fields.find(index);
    if (shown == m_fields.end())
        return attribute;
    const auto stored = m_specification.find(shown->name());
    if (stored == m_specification.end())
        return attribute;
    attribute = stored.value();
    attribute.name() = layout::writerName(attribute.name());
    attribute.order() = index;
    attribute.width() = shown->width();
    attribute.start() = shown->start();
    attribute.end() = shown->end();
    attribute.precision() = shown->precision();
    return attribute;
}

int QExportSpecification::size() const
{
    return m_fields.size();
}

void QExportSpecification::getNonAttribute(const QString& name, QESAttribute& out) const
{
    layout::nonAttribute(name, out);
}

void QExportSpecification::getStringNonAttribute(const QString& name, int order, QESAttribute& out) const
{
    out.name() = name;
    out.type() = QStringLiteral("string");
    out.order() = order;
    out.typeId() = 0;
    out.width() = 12;
    out.start() = 0;
}

void QExportSpecification::activate()
{
    refreshAttributes();
    populateFields();
    populateAttributes(m_group);
    sendSpecChange();
}

void QExportSpecification::deactivate()
{
    populateMap();
}

void QExportSpecification::sendSpecChange()
{
    QStringList names;
    names.reserve(m_fields.size());
    for (const QESAttribute& shown : qAsConst(m_fields))
        names.append(shown.name());
    Q_EMIT onSpecChange(names);
}

void QExportSpecification::addRowToField(int row, const QESAttribute& attribute)
{
    setCells(*m_fieldTable, row, attribute.name(), {attribute.width(), attribute.precision()});
}

void QExportSpecification::addRowToColumn(int row, const QESAttribute& attribute)
{
    setCells(*m_columnTable, row, attribute.name(), {attribute.start(), attribute.end(), attribute.precision()});
}

void QExportSpecification::changeTableCell(QTableWidget* table, int row, int column, const QString& text)
{
    const QSignalBlocker blocker(table);
    if (QTableWidgetItem* item = table->item(row, column))
        item->setText(text);
}

void QExportSpecification::changeTableCell(QTableWidget* table, int row, int column, int number)
{
    changeTableCell(table, row, column, QString::number(number));
}

bool QExportSpecification::isField(const QString& name) const
{
    return m_names.contains(name);
}

void QExportSpecification::addAttributeToSpec(int row, const QESAttribute& attribute)
{
    {
        const QSignalBlocker fieldBlocker(m_fieldTable);
        const QSignalBlocker columnBlocker(m_columnTable);
        if (!isField(attribute.name()))
            insertField(std::clamp(row, 0, m_fieldTable->rowCount()), attribute);
    }
    sendSpecChange();
}

void QExportSpecification::insertField(int row, const QESAttribute& attribute)
{
    QESAttribute added = attribute;
    const int previousEnd = row > 0 ? numberIn(*m_columnTable, row - 1, columnEnd) : -1;
    const layout::Span span = layout::spanBehind(previousEnd, added.width());
    added.start() = span.start;
    added.end() = span.end;

    m_fieldTable->insertRow(row);
    addRowToField(row, added);
    m_columnTable->insertRow(row);
    addRowToColumn(row, added);
    QMap<int, QESAttribute> fields;
    for (auto entry = m_fields.begin(); entry != m_fields.end(); ++entry)
        fields.insert(fields.end(), entry.key() < row ? entry.key() : entry.key() + 1, entry.value());
    fields.insert(row, added);
    m_fields = fields;

    int next = layout::spanBehind(added.end(), 0).start;
    for (int following = row + 1; following < m_columnTable->rowCount(); ++following) {
        layout::Span place{numberIn(*m_columnTable, following, columnStart),
                           numberIn(*m_columnTable, following, columnEnd)};
        if (!layout::pushedRight(place, next))
            break;
        changeTableCell(m_columnTable, following, columnStart, place.start);
        changeTableCell(m_columnTable, following, columnEnd, place.end);
    }
    remapAttributesMap();
}

void QExportSpecification::deleteAttributeFromSpec(const QESAttribute& attribute)
{
    {
        const QSignalBlocker fieldBlocker(m_fieldTable);
        const QSignalBlocker columnBlocker(m_columnTable);
        int row = 0;
        while (row < m_fieldTable->rowCount() && textIn(*m_fieldTable, row, nameColumn) != attribute.name())
            ++row;
        if (row < m_fieldTable->rowCount()) {
            m_fieldTable->removeRow(row);
            m_columnTable->removeRow(row);
            m_fields.remove(row);
            remapAttributesMap();
        }
    }
    sendSpecChange();
}

void QExportSpecification::remapAttributesMap()
{
    QHash<QString, QESAttribute> earlier;
    for (const QESAttribute& shown : qAsConst(m_fields)) {
        if (!earlier.contains(shown.name()))
            earlier.insert(shown.name(), shown);
    }
    m_fields.clear();
    m_names.clear();
    int row = 0;
    while (row < m_fieldTable->rowCount()) {
        const auto found = earlier.constFind(textIn(*m_fieldTable, row, nameColumn));
        if (found == earlier.constEnd()) {
            m_fieldTable->removeRow(row);
            m_columnTable->removeRow(row);
            continue;
        }
        QESAttribute shown = found.value();
        shown.start() = numberIn(*m_columnTable, row, columnStart);
        shown.end() = numberIn(*m_columnTable, row, columnEnd);
        shown.precision() = numberIn(*m_columnTable, row, columnPrecision);
        shown.width() = numberIn(*m_fieldTable, row, fieldWidth);
        m_fields.insert(m_fields.end(), row, shown);
        m_names.insert(shown.name());
        ++row;
    }
    sendSpecChange();
}

void QExportSpecification::populateFields()
{
    const QSignalBlocker fieldBlocker(m_fieldTable);
    const QSignalBlocker columnBlocker(m_columnTable);
    QVector<QESAttribute> laidOut =
        layout::orderedFields(m_specification, [this](const QString& name) { return m_attributes.contains(name); });
    layout::layOut(laidOut);
    m_fields.clear();
    m_names.clear();
    for (QTableWidget* table : {static_cast<QTableWidget*>(m_fieldTable), static_cast<QTableWidget*>(m_columnTable)}) {
        table->setRowCount(0);
        table->setRowCount(laidOut.size());
    }
    for (int row = 0; row < laidOut.size(); ++row) {
        addRowToField(row, laidOut[row]);
        addRowToColumn(row, laidOut[row]);
        m_fields.insert(m_fields.end(), row, laidOut[row]);
        m_names.insert(laidOut[row].name());
    }
}

void QExportSpecification::populateMap()
{
    QMap<QString, QESAttribute> kept;
    for (auto entry = m_fields.begin(); entry != m_fields.end(); ++entry) {
        const QESAttribute& shown = entry.value();
        QESAttribute stored;
        const auto found = m_specification.constFind(shown.name());
        if (found != m_specification.constEnd()) {
            stored = found.value();
        } else {
            const auto offered = m_attributes.constFind(shown.name());
            stored.name() = shown.name();
            if (offered != m_attributes.constEnd()) {
                stored.type() = offered->type();
                stored.typeId() = offered->typeId();
            }
        }
        stored.order() = entry.key();
        stored.width() = shown.width();
        stored.start() = shown.start();
        stored.end() = shown.end();
        stored.precision() = shown.precision();
        kept.insert(shown.name(), stored);
    }
    m_specification = kept;
}

void QExportSpecification::columnTableCellChanged(int row, int col)
{
    auto* table = qobject_cast<QTableWidget*>(sender());
    const auto shown = m_fields.find(row);
    if (!table || shown == m_fields.end())
        return;
    const QString text = textIn(*table, row, col);
    const int number = text.toInt();
    if (col == nameColumn) {
        // A name stands for one field: one that is taken is put back.
        if (!isField(text)) {
            m_names.remove(shown->name());
            m_names.insert(text);
            shown->name() = text;
        }
        changeTableCell(m_fieldTable, row, nameColumn, shown->name());
        changeTableCell(m_columnTable, row, nameColumn, shown->name());
    } else if (col == (table == m_fieldTable ? fieldPrecision : columnPrecision)) {
        shown->precision() = number;
        changeTableCell(m_fieldTable, row, fieldPrecision, number);
        changeTableCell(m_columnTable, row, columnPrecision, number);
    } else {
        int& member = table == m_fieldTable ? shown->width() : col == columnStart ? shown->start() : shown->end();
        member = number;
        changeTableCell(table, row, col, number);
    }
}

layout::Span QExportSpecification::columnRange(int row, bool start) const
{
    const QESAttribute shown = m_fields.value(row);
    const bool last = !m_fields.contains(row + 1);
    layout::Span range;
    if (start)
        range = {row == 0 ? 1 : m_fields.value(row - 1).end() + 1, shown.end() - 1};
    else if (last)
        range = {shown.start() + 1,
                 std::min(shown.end(), std::numeric_limits<int>::max() - growthOfLastColumn) + growthOfLastColumn};
    else
        range = {shown.start() + 1, m_fields.value(row + 1).start() - 1};
    if (range.start > range.end)
        range.start = range.end = start ? shown.start() : shown.end();
    return range;
}

void QExportSpecification::insertShownAttributes(int row, const QStringList& names)
{
    for (const QString& name : names) {
        const QString full = m_group.isEmpty() ? name : m_group + QLatin1Char(':') + name;
        const auto offered = m_attributes.constFind(full);
        if (offered == m_attributes.constEnd() || isField(full))
            continue;
        addAttributeToSpec(row, offered.value());
        ++row;
    }
}

void QExportSpecification::takeFieldsOut(const QStringList& names, QESSpecificationTableWidget* table)
{
    for (const QString& name : names) {
        const auto offered = m_attributes.constFind(name);
        if (offered != m_attributes.constEnd())
            deleteAttributeFromSpec(offered.value());
    }
    populateAttributes();
    onTableSelectionChanged(table);
    onAttributeSelectionChanged();
}

void QExportSpecification::moveField(int from, int to)
{
    QESSpecificationTableWidget* table = shownTable();
    if (from == to || std::min(from, to) < 0 || std::max(from, to) >= table->rowCount())
        return;
    table->moveCells(from, to);
    fieldsReordered(table, to);
}

void QExportSpecification::fieldsReordered(QESSpecificationTableWidget* table, int row)
{
    const bool inFields = table == m_fieldTable;
    QTableWidget* other = inFields ? m_columnTable : m_fieldTable;
    for (int at = 0; at < table->rowCount(); ++at) {
        changeTableCell(other, at, nameColumn, textIn(*table, at, nameColumn));
        changeTableCell(other, at, inFields ? columnPrecision : fieldPrecision,
                        numberIn(*table, at, inFields ? fieldPrecision : columnPrecision));
    }
    {
        const QSignalBlocker fieldBlocker(m_fieldTable);
        const QSignalBlocker columnBlocker(m_columnTable);
        remapAttributesMap();
    }
    table->setCurrentCell(row, std::max(table->currentColumn(), 0));
    onTableSelectionChanged(table);
}

} // namespace kpBaseExport
