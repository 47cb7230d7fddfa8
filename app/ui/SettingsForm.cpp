// SPDX-License-Identifier: MIT
#include "app/ui/SettingsForm.h"

#include "app/ui/SettingControl.h"

#include <QFormLayout>

namespace refhost
{

SettingsForm::SettingsForm(const SettingsMap& settings, const QStringList& except, QWidget* parent)
    : QWidget(parent)
{
    auto* form = new QFormLayout(this);
    form->setContentsMargins(0, 0, 0, 0);
    for (const Setting& setting : settings.settings()) {
        if (except.contains(setting.key))
            continue;
        form->addRow(labelOf(setting.key), makeSettingControl(setting, {}, QString(), this, [] {}).widget);
        m_empty = false;
    }
}

} // namespace refhost
