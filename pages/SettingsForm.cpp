// SPDX-License-Identifier: MIT
#include "pages/SettingsForm.h"

#include "pages/SettingControl.h"

#include <QFormLayout>

namespace kpFormats
{

SettingsForm::SettingsForm(SettingsValue& settings, const QStringList& except, QWidget* parent,
                           const std::function<void()>& changed)
    : QWidget(parent)
{
    auto* form = new QFormLayout(this);
    form->setContentsMargins(0, 0, 0, 0);
    for (const Setting& setting : settings.settings()) {
        if (except.contains(setting.key))
            continue;
        QWidget* control = makeSettingControl(settings, setting, setting.label, this, changed).widget;
        // A check box carries its own text, so that a click on the text counts too.
        if (setting.kind == Setting::Boolean)
            form->setWidget(form->rowCount(), QFormLayout::FieldRole, control);
        else
            form->addRow(setting.label, control);
        m_empty = false;
    }
}

} // namespace kpFormats
