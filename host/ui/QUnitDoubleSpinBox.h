// SPDX-License-Identifier: MIT
#pragma once

#include "host/data/kpUnits.h"
#include "host/ui/QAutoRepeatDoubleSpinBox.h"

namespace kpBase
{

/// A spin box for a length: shows and edits it in a display unit, takes and gives it in the model's unit, metres.
class KPHOST_UI_EXPORT QUnitDoubleSpinBox : public QAutoRepeatDoubleSpinBox
{
    Q_OBJECT

public:
    explicit QUnitDoubleSpinBox(QWidget* parent = nullptr);

    /// The unit that is shown; the length stays.
    void setDisplayUnit(kpUnits::LengthUnit unit);
    /// Bounds in metres.
    void setModelRange(double least, double most);
    /// Sets the length in metres; with \a notify false no valueChanged() goes out.
    void setModelValue(double metres, bool notify);
    /// What the arrows add or take, in metres; one display unit until it is set.
    void setSingleStep(double metres);
    void stepBy(int steps) override;
    /// The length in metres. Exact for a value that was set and has not been edited since.
    double value() const;

private:
    void showModel(bool notify);

    kpUnits m_unit;
    double m_model = 0.0;
    double m_least = 0.0;
    double m_most = 99.99;
    double m_step = 0.0; ///< 0: one display unit
    bool m_showing = false;
};

} // namespace kpBase
