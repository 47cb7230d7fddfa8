// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

/// The control of that object name; ends the test program when there is none.
template <typename Control>
Control* child(QWidget& parent, const char* name)
{
    auto* found = parent.findChild<Control*>(QString::fromLatin1(name));
    if (!found)
        qFatal("no control %s", name);
    return found;
}
