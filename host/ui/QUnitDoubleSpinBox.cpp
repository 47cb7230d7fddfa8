// SPDX-License-Identifier: MIT
#include "host/ui/QUnitDoubleSpinBox.h"

#include <QSignalBlocker>

#include <algorithm>

namespace kpBase
{

QUnitDoubleSpinBox::QUnitDoubleSpinBox(QWidget* parent)
    : QAutoRepeatDoubleSpinBox(parent)
{
    setSuffix(QLatin1Char(' ') + QLatin1String(m_unit.abbreviation()));
    connect(this, QOverload<double>::of(&QDoubleSpinBox::valueChanged), this, [this](double shown) {
        if (!m_showing)
            m_model = shown * m_unit.metresPerUnit();
    });
}

void QUnitDoubleSpinBox::setDisplayUnit(kpUnits::LengthUnit unit)
{
    m_unit.setLengthUnit(unit);
    setSuffix(QLatin1Char(' ') + QLatin1String(m_unit.abbreviation()));
    showModel(false);
}

void QUnitDoubleSpinBox::setModelRange(double least, double most)
{
    m_least = least;
    m_most = std::max(least, most);
    m_model = std::clamp(m_model, m_least, m_most);
    showModel(false);
}

void QUnitDoubleSpinBox::setModelValue(double metres, bool notify)
{
    m_model = std::clamp(metres, m_least, m_most);
    showModel(notify);
}

void QUnitDoubleSpinBox::setSingleStep(double metres)
{
    m_step = metres;
}

void QUnitDoubleSpinBox::stepBy(int steps)
{
    if (m_step == 0.0) {
        QAutoRepeatDoubleSpinBox::stepBy(steps);
        return;
    }
    interpretText();
    setModelValue(m_model + steps * m_step, true);
    selectAll();
}

double QUnitDoubleSpinBox::value() const
{
    return m_model;
}

void QUnitDoubleSpinBox::showModel(bool notify)
{
    // What is shown is rounded; the length itself is kept as it was given.
    m_showing = true;
    {
        const QSignalBlocker blocker(notify ? nullptr : this);
        setRange(m_least / m_unit.metresPerUnit(), m_most / m_unit.metresPerUnit());
        setValue(m_model / m_unit.metresPerUnit());
    }
    m_showing = false;
}

} // namespace kpBase
