// SPDX-License-Identifier: MIT
#pragma once

#include "spec/QESAttributeTableWidget.h"
#include "spec/QESSpecificationTableWidget.h"
#include "spec/QExportSpecification.h"
#include "tests/wizard/FileDialog.h"

#include <QtTest>

#include <memory>

/// An editor whose attributes the test offers.
class SpecificationEditor : public kpBaseExport::QExportSpecification
{
public:
    using QExportSpecification::addAttributeToSpec;
    using QExportSpecification::attributes;
    using QExportSpecification::deleteAttributeFromSpec;
    using QExportSpecification::fields;
    using QExportSpecification::moveField;
    using QExportSpecification::populateAttributes;
    using QExportSpecification::QExportSpecification;
    using QExportSpecification::savedFormat;
    using QExportSpecification::setAttributeFilter;

    void setGridIndices(bool on) { m_gridIndices = on; }

    void offer(const QStringList& names, int width = 10)
    {
        for (const QString& name : names) {
            kpBaseExport::QESAttribute attribute;
            attribute.name() = name;
            attribute.type() = QStringLiteral("double");
            attribute.width() = width;
            getNonAttribute(name, attribute);
            addAttribute(attribute);
        }
    }
    /// Rows of the list of attributes.
    QStringList listed() const { return columnOf(*m_attributeTable); }
    QStringList fieldNames() const { return columnOf(*m_fieldTable); }
    /// The fields and the list of attributes: "a b | c d".
    QString lists() const
    {
        return fieldNames().join(QLatin1Char(' ')) + QStringLiteral(" | ") + listed().join(QLatin1Char(' '));
    }
    /// "NAME START-END" of each column.
    QString columns() const
    {
        QStringList rows;
        for (int row = 0; row < m_columnTable->rowCount(); ++row) {
            const QStringList cells = rowOf(*m_columnTable, row);
            rows.append(cells[0] + QLatin1Char(' ') + cells[1] + QLatin1Char('-') + cells[2]);
        }
        return rows.join(QStringLiteral(", "));
    }
    static QStringList columnOf(const QTableWidget& table, int column = 0)
    {
        QStringList texts;
        for (int row = 0; row < table.rowCount(); ++row)
            texts.append(table.item(row, column)->text());
        return texts;
    }
    static QStringList rowOf(const QTableWidget& table, int row)
    {
        QStringList texts;
        for (int column = 0; column < table.columnCount(); ++column)
            texts.append(table.item(row, column)->text());
        return texts;
    }

    /// Empty when the tables show the fields row for row, no name occurs twice and no columns overlap.
    QString fault() const
    {
        const int size = fields().size();
        if (m_fieldTable->rowCount() != size || m_columnTable->rowCount() != size)
            return QStringLiteral("%1 fields: %2 and %3 rows").arg(size).arg(fieldNames().size()).arg(columns());
        QSet<QString> names;
        int last = -1;
        for (int row = 0; row < size; ++row) {
            if (!fields().contains(row))
                return QStringLiteral("no field %1").arg(row);
            const kpBaseExport::QESAttribute& field = fields()[row];
            const QString decimals = QString::number(field.precision());
            const QStringList wanted{field.name(), QString::number(field.width()), decimals,
                                     field.name(), QString::number(field.start()), QString::number(field.end()),
                                     decimals};
            const QStringList shown = rowOf(*m_fieldTable, row) + rowOf(*m_columnTable, row);
            if (shown != wanted)
                return QStringLiteral("row %1 shows ").arg(row) + shown.join(QLatin1Char('|'));
            if (names.contains(field.name()))
                return field.name() + QStringLiteral(" twice");
            names.insert(field.name());
            if (field.start() <= last || field.end() < field.start())
                return QStringLiteral("columns overlap: ") + columns();
            last = field.end();
        }
        return {};
    }

    QStringList missing;
    int refreshed = 0;
    QStringList failures; ///< "FILE: CAUSE" of format files
    QStringList asked;    ///< files about whose replacement the editor has asked
    bool mayReplace = true;

protected:
    void attributeMissing(const kpBaseExport::QESAttribute& attribute) override { missing.append(attribute.name()); }
    void refreshAttributes() override { ++refreshed; }
    void formatFailed(const QString& path, const QString& cause) override
    {
        failures.append(QFileInfo(path).fileName() + QStringLiteral(": ") + cause);
    }
    bool mayReplaceFormat(const QString& path) override
    {
        asked.append(QFileInfo(path).fileName());
        return mayReplace;
    }
};

inline kpBaseExport::QESAttribute fieldOf(const char* name, int order, int start = 0, int end = 0)
{
    kpBaseExport::QESAttribute attribute;
    attribute.name() = QString::fromLatin1(name);
    attribute.order() = order;
    attribute.start() = start;
    attribute.end() = end;
    return attribute;
}

inline QStringList words(const char* text)
{
    const QString all = QString::fromUtf8(text);
    return all.isEmpty() ? QStringList() : all.split(QLatin1Char(' '));
}

/// The middle of a row, or a place below the last one.
inline QPoint middleOf(QTableWidget* table, int row)
{
    if (row < table->rowCount())
        return table->visualItemRect(table->item(row, 0)).center();
    const int last = table->rowCount() - 1;
    return {20, last < 0 ? 5 : table->visualItemRect(table->item(last, 0)).bottom() + 15};
}

/// A test with an editor that is shown.
class EditorTest : public QObject
{
protected:
    void openEditor()
    {
        m_editor = std::make_unique<SpecificationEditor>();
        m_editor->resize(760, 420);
        m_editor->show();
        m_list = m_editor->m_attributeTable;
        m_table = m_editor->m_fieldTable;
        m_columns = m_editor->m_columnTable;
        QVERIFY(QTest::qWaitForWindowExposed(m_editor.get()));
    }
    /// Enters the editor with attributes on offer and fields chosen from them.
    void enter(const char* offered, const QVector<kpBaseExport::QESAttribute>& chosen = {})
    {
        m_editor->offer(words(offered));
        for (const kpBaseExport::QESAttribute& field : chosen)
            m_editor->addField(field);
        m_editor->activate();
    }
    /// Chooses an attribute and takes it into the layout.
    void take(int row)
    {
        m_list->setCurrentCell(row, 0);
        QTest::mouseClick(m_editor->m_toFieldButton, Qt::LeftButton);
    }

    std::unique_ptr<SpecificationEditor> m_editor;
    QTableWidget* m_list = nullptr;
    QTableWidget* m_table = nullptr;
    QTableWidget* m_columns = nullptr;
};
