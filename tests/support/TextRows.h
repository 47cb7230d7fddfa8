// SPDX-License-Identifier: MIT
#pragma once

#include <QtTest>

#include <initializer_list>

/// The table of a data-driven test whose columns are texts. A row with one entry more than there are columns begins
/// with a name of its own; any other is named after all of its entries.
inline void textRows(std::initializer_list<const char*> columns,
                     std::initializer_list<std::initializer_list<const char*>> rows)
{
    for (const char* column : columns)
        QTest::addColumn<QString>(column);
    for (const auto& row : rows) {
        QStringList texts;
        for (const char* text : row)
            texts.append(QString::fromUtf8(text));
        const QString name =
            row.size() > columns.size() ? texts.takeFirst() : texts.join(QLatin1Char(' ')).simplified();
        QTestData& data = QTest::newRow(qPrintable(name));
        for (const QString& text : qAsConst(texts))
            data << text;
    }
}
