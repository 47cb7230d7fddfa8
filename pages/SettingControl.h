// SPDX-License-Identifier: MIT
#pragma once

#include "export/SettingsMap.h"
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

/// Choices are shown by the given texts, or by words of their own. \a changed is called after the user has set a value.
KPFORMATSUI_EXPORT SettingControl makeSettingControl(const Setting& setting, const QStringList& choiceTexts,
                                                     const QString& checkText, QWidget* parent,
                                                     const std::function<void()>& changed);

} // namespace kpFormats
