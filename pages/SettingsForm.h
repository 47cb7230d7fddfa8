// SPDX-License-Identifier: MIT
#pragma once

#include "export/SettingsValue.h"
#include "pages/kpFormatsUiExport.h"

#include <QWidget>

#include <functional>

namespace kpFormats
{

/// Settings as a form: one row each, the control named after the key. A change takes effect on the settings at once.
class KPFORMATSUI_EXPORT SettingsForm : public QWidget
{
public:
    /// Leaves out the keys \a except. What the settings are bound to outlives the form.
    /// \a changed is called after the user has set a value.
    SettingsForm(
        SettingsValue& settings, const QStringList& except, QWidget* parent,
        const std::function<void()>& changed = [] {});

    /// True when there is nothing to set.
    bool isEmpty() const { return m_empty; }

private:
    bool m_empty = true;
};

} // namespace kpFormats
