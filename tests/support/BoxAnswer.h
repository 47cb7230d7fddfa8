// SPDX-License-Identifier: MIT
#pragma once

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <QtTest>

/// Answers message boxes with one button as they come; remembers what they said.
class BoxAnswer : public QObject
{
public:
    explicit BoxAnswer(QMessageBox::StandardButton answer)
    {
        connect(&m_timer, &QTimer::timeout, this, [this, answer] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (!box)
                return;
            texts.append(box->text());
            QTest::mouseClick(box->button(answer), Qt::LeftButton);
        });
        m_timer.start(20);
    }

    QStringList texts;

private:
    QTimer m_timer;
};
