// SPDX-License-Identifier: MIT
#include "app/ui/SettingsForm.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QLocale>
#include <QSpinBox>

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
        QWidget* control = makeControl(setting);
        control->setObjectName(setting.key);
        control->setToolTip(setting.description);
        form->addRow(labelOf(setting.key), control);
        m_empty = false;
    }
}

QWidget* SettingsForm::makeControl(const Setting& setting)
{
    const auto set = setting.set;
    switch (setting.kind) {
    case Setting::Choice: {
        auto* box = new QComboBox(this);
        box->addItems(setting.choices);
        box->setCurrentText(setting.get());
        connect(box, &QComboBox::currentTextChanged, this, set);
        return box;
    }
    case Setting::Boolean: {
        auto* box = new QCheckBox(this);
        box->setChecked(setting.get() == QLatin1String("true"));
        connect(box, &QCheckBox::toggled, this,
                [set](bool on) { set(on ? QStringLiteral("true") : QStringLiteral("false")); });
        return box;
    }
    case Setting::Integer: {
        auto* box = new QSpinBox(this);
        box->setRange(static_cast<int>(setting.least), static_cast<int>(setting.most));
        box->setValue(setting.get().toInt());
        connect(box, QOverload<int>::of(&QSpinBox::valueChanged), this,
                [set](int value) { set(QString::number(value)); });
        return box;
    }
    case Setting::Real: {
        auto* box = new QDoubleSpinBox(this);
        box->setLocale(QLocale::c());
        box->setDecimals(6);
        box->setRange(setting.least, setting.most);
        box->setValue(setting.get().toDouble());
        connect(box, QOverload<double>::of(&QDoubleSpinBox::valueChanged), this,
                [set](double value) { set(QString::number(value, 'g', QLocale::FloatingPointShortest)); });
        return box;
    }
    case Setting::Text:
        break;
    }
    auto* edit = new QLineEdit(setting.get(), this);
    connect(edit, &QLineEdit::textChanged, this, set);
    return edit;
}

} // namespace refhost
