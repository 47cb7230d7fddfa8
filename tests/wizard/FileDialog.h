// SPDX-License-Identifier: MIT
#pragma once

#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QtTest>

/// What a file dialog showed when it came up.
struct ShownDialog
{
    QString caption;
    QString directory;
    QStringList filters;
};

/// Answers the next file dialog: with a path, or by cancelling when it is empty.
inline void chooseInDialog(const QString& path, ShownDialog* shown = nullptr)
{
    QTimer::singleShot(50, qApp, [path, shown] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        QVERIFY(dialog);
        if (shown)
            *shown = {dialog->windowTitle(), dialog->directory().absolutePath(), dialog->nameFilters()};
        if (path.isEmpty()) {
            dialog->reject();
            return;
        }
        auto* edit = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        edit->setText(path);
        QTest::keyClick(edit, Qt::Key_Return);
    });
}
