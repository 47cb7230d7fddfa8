// SPDX-License-Identifier: MIT
#pragma once

#include "host/ui/kpHostUiExport.h"

#include <QDoubleSpinBox>

namespace kpBase
{

/// A spin box whose arrows, held down, repeat the step, or, when that is switched off, step once per press.
class KPHOST_UI_EXPORT QAutoRepeatDoubleSpinBox : public QDoubleSpinBox
{
    Q_OBJECT

public:
    explicit QAutoRepeatDoubleSpinBox(QWidget* parent = nullptr);

    /// On in a new spin box.
    void setAllowAutoRepeat(bool allow);
    bool allowAutoRepeat() const;

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    bool m_allowAutoRepeat = true;
};

} // namespace kpBase
