// SPDX-License-Identifier: MIT
#pragma once

#include "export/SettingsValue.h"
#include "pages/kpFormatsUiExport.h"

#include <functional>

class QWidget;

namespace kpFormats
{

/// A control for a setting and the function that shows the setting's present value in it.
struct SettingControl
{
    QWidget* widget = nullptr;
    std::function<void()> show;
};

///  checkText stands beside a check box. The settings outlive the control.  changed is called after the user has set
/// a value.
KPFORMATSUI_EXPORT SettingControl makeSettingControl(SettingsValue& settings, const Setting& setting,
                                                     const QString& checkText, QWidget* parent,
                                                     const std::function<void()>& changed);

} // namespace kpFormats
