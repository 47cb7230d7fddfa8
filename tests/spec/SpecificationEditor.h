// SPDX-License-Identifier: MIT
#pragma once

#include "spec/QESAttributeTableWidget.h"
#include "spec/QESSpecificationTableWidget.h"
#include "spec/QExportSpecification.h"

#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QSet>
#include <QStringList>
#include <QTimer>
#include <QtTest>

/// An editor whose attributes the test offers.
class SpecificationEditor : public kpBaseExport::QExportSpecification
{
public:
    using QExportSpecification::QExportSpecification;
    using QExportSpecification::addAttributeToSpec;
    using QExportSpecification::addRowToAttribute;
    using QExportSpecification::attributes;
    using QExportSpecification::deleteAttributeFromSpec;
    using QExportSpecification::fields;
    using QExportSpecification::getFormatFile;
    using QExportSpecification::loadFormat;
    using QExportSpecification::moveField;
    using QExportSpecification::onLoadFormatClicked;
    using QExportSpecification::onSaveFormatClicked;
    using QExportSpecification::populateAttributes;
    using QExportSpecification::populateFields;
    using QExportSpecification::populateMap;
    using QExportSpecification::savedFormat;
    using QExportSpecification::setAttributeFilter;
    using QExportSpecification::specification;

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
    /// "NAME START-END" of each column.
    QStringList columns() const
    {
        QStringList rows;
        for (int row = 0; row < m_columnTable->rowCount(); ++row)
            rows.append(QStringLiteral("%1 %2-%3").arg(cell(*m_columnTable, row, 0), cell(*m_columnTable, row, 1), cell(*m_columnTable, row, 2)));
        return rows;
    }
    static QString cell(const QTableWidget& table, int row, int column) { return table.item(row, column)->text(); }
    static QStringList columnOf(const QTableWidget& table, int column = 0)
    {
        QStringList texts;
        for (int row = 0; row < table.rowCount(); ++row)
            texts.append(cell(table, row, column));
        return texts;
    }

    /// Empty when the tables show the fields row for row, no name occurs twice and no columns overlap.
    QString fault() const
    {
        QSet<QString> names;
        int last = -1;
        if (m_fieldTable->rowCount() != fields().size() || m_columnTable->rowCount() != fields().size())
            return QStringLiteral("%1 fields, %2 and %3 rows").arg(fields().size()).arg(m_fieldTable->rowCount()).arg(m_columnTable->rowCount());
        for (int row = 0; row < fields().size(); ++row) {
            if (!fields().contains(row))
                return QStringLiteral("no field %1").arg(row);
            const kpBaseExport::QESAttribute& shown = fields()[row];
            const QStringList wanted{shown.name(), QString::number(shown.width()), QString::number(shown.precision())};
            const QStringList inFields{cell(*m_fieldTable, row, 0), cell(*m_fieldTable, row, 1), cell(*m_fieldTable, row, 2)};
            const QStringList wantedColumns{shown.name(), QString::number(shown.start()), QString::number(shown.end()), QString::number(shown.precision())};
            const QStringList inColumns{cell(*m_columnTable, row, 0), cell(*m_columnTable, row, 1), cell(*m_columnTable, row, 2), cell(*m_columnTable, row, 3)};
            if (inFields != wanted || inColumns != wantedColumns)
                return QStringLiteral("row %1 shows %2 / %3").arg(row).arg(inFields.join(QLatin1Char('|')), inColumns.join(QLatin1Char('|')));
            if (names.contains(shown.name()))
                return QStringLiteral("%1 twice").arg(shown.name());
            names.insert(shown.name());
            if (shown.start() <= last || shown.end() < shown.start())
                return QStringLiteral("columns overlap: ") + columns().join(QStringLiteral(", "));
            last = shown.end();
        }
        return {};
    }

    QStringList missing;

protected:
    void attributeMissing(const kpBaseExport::QESAttribute& attribute) override { missing.append(attribute.name()); }
    void refreshAttributes() override { ++refreshed; }

public:
    int refreshed = 0;
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
    const int below = table->rowCount() == 0 ? 5 : table->visualItemRect(table->item(table->rowCount() - 1, 0)).bottom() + 15;
    return {20, below};
}

/// Answers the next file dialog: with a path, or by cancelling when it is empty.
inline void chooseInDialog(const QString& path)
{
    QTimer::singleShot(0, qApp, [path] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        if (!dialog)
            return;
        if (path.isEmpty()) {
            dialog->reject();
            return;
        }
        auto* edit = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        edit->setText(path);
        QTest::keyClick(edit, Qt::Key_Return);
    });
}
