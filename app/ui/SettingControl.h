// SPDX-License-Identifier: MIT
#pragma once

#include "app/jobs/SettingsMap.h"

#include <functional>

class QWidget;

namespace refhost
{

/// A control for a setting and the function that shows the setting's present value in it.
struct SettingControl
{
    QWidget* widget = nullptr;
    std::function<void()> show;
};

/// Choices are shown by the given texts, or by words of their own. \a changed is called after the user has set a value.
SettingControl makeSettingControl(const Setting& setting, const QStringList& choiceTexts, const QString& checkText,
                                  QWidget* parent, const std::function<void()>& changed);

} // namespace refhost
