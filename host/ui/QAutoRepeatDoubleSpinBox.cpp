// SPDX-License-Identifier: MIT
#include "host/ui/QAutoRepeatDoubleSpinBox.h"

namespace kpBase
{

QAutoRepeatDoubleSpinBox::QAutoRepeatDoubleSpinBox(QWidget* parent)
    : QDoubleSpinBox(parent)
{
}

void QAutoRepeatDoubleSpinBox::setAllowAutoRepeat(bool allow)
{
    m_allowAutoRepeat = allow;
}

bool QAutoRepeatDoubleSpinBox::allowAutoRepeat() const
{
    return m_allowAutoRepeat;
}

void QAutoRepeatDoubleSpinBox::timerEvent(QTimerEvent* event)
{
    // The base repeats the step of a held arrow from its timers, and uses them for nothing else.
    if (m_allowAutoRepeat)
        QDoubleSpinBox::timerEvent(event);
}

} // namespace kpBase
