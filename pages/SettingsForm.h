// SPDX-License-Identifier: MIT
#pragma once

#include "export/SettingsValue.h"
#include "pages/kpFormatsUiExport.h"

#include <QWidget>

namespace kpFormats
{

/// Settings as a form: one row each, the control named after the key. A change takes effect on the settings at once.
class KPFORMATSUI_EXPORT SettingsForm : public QWidget
{
public:
    /// Leaves out the keys \a except. What the settings are bound to outlives the form.
    SettingsForm(SettingsValue& settings, const QStringList& except, QWidget* parent);

    /// True when there is nothing to set.
    bool isEmpty() const { return m_empty; }

private:
    bool m_empty = true;
};

} // namespace kpFormats
