// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>
#include <QEvent>
#include <QTest>

/// Lets the animations of controls that are gone end with their next tick and go. Qt gives them no parent, so that a
/// test that ends earlier leaks them.
inline void letAnimationsEnd()
{
    QTest::qWait(50);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}
