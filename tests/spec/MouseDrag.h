// SPDX-License-Identifier: MIT
#pragma once

#include <QApplication>
#include <QMouseEvent>
#include <QTableWidget>
#include <QWindow>
#include <QtTest>

/// Drags an item with the mouse onto a place of another view (or the same), through Qt's own drag. Both are shown.
inline void dragByMouse(QTableWidget* from, int row, QTableWidget* to, const QPoint& place)
{
    QWidget* source = from->viewport();
    const QPoint start = from->visualItemRect(from->item(row, 0)).center();
    const auto send = [source](QEvent::Type type, const QPoint& at, Qt::MouseButtons buttons) {
        const auto button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
        QMouseEvent event(type, at, source->mapToGlobal(at), button, buttons, Qt::NoModifier);
        QApplication::sendEvent(source, &event);
    };
    // The drag runs its own event loop; the rest of the way is made from there.
    QTimer::singleShot(0, to, [to, place] {
        QWindow* window = to->window()->windowHandle();
        const QPoint at = to->viewport()->mapTo(to->window(), place);
        QTest::mouseMove(window, at - QPoint(1, 1));
        QTest::mouseMove(window, at);
        QTest::mouseRelease(window, Qt::LeftButton, Qt::NoModifier, at);
    });
    send(QEvent::MouseButtonPress, start, Qt::LeftButton);
    for (int step = 1; step < 4; ++step)
        send(QEvent::MouseMove, start + QPoint(step * QApplication::startDragDistance(), 0), Qt::LeftButton);
    send(QEvent::MouseButtonRelease, start, Qt::NoButton);
}

/// A test whose drags are real needs a platform that has drag and drop; "offscreen" has none.
#define KP_DRAG_TEST_MAIN(Test)                                                                                        \
    int main(int argc, char** argv)                                                                                    \
    {                                                                                                                  \
        qputenv("QT_QPA_PLATFORM", "minimal:enable_fonts");                                                            \
        QApplication application(argc, argv);                                                                          \
        Test test;                                                                                                     \
        return QTest::qExec(&test, argc, argv);                                                                        \
    }
